// What follows a download: the ECU has to leave its bootloader and to start what it was given. Runs
// on the thread that updates.
#pragma once

#include <chrono>
#include <functional>

#include "app/ClpgecuDoc.h"

namespace zelorgas {

struct ApplicationStartHooks {
  // The bootloader does not leave by itself: the person has to switch the ignition off and on.
  // Called once at most.
  std::function<void()> ignition_needed = {};
  // True ends the waiting. Asked ten times a second while the line is left quiet; a try without an
  // answer takes two seconds, in which it is not asked.
  std::function<bool()> stop_wanted = {};
};

// Longer than a bootloader waits to be spoken to; asked earlier it would stay.
inline constexpr std::chrono::seconds kQuietTime{6};

// Waits until the ECU answers as an application: leaves the line quiet first, and behind every
// answer of the bootloader; an ECU that does not answer is asked every second. An unplugged port is
// opened again. False when the hook wants it to end.
[[nodiscard]] bool WaitForApplication(ClpgecuDoc& document, const ApplicationStartHooks& hooks);

}  // namespace zelorgas
