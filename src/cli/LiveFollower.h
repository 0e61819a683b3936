// Follows the ECU's live values for as long as a command asks, saying what becomes of the link
// meanwhile. Used by the thread that runs the command.
#pragma once

#include <functional>
#include <optional>
#include <span>

#include "app/EcuImage.h"
#include "cli/CliSession.h"
#include "platform/Clock.h"

namespace zelorgas {

struct LiveUpdate {
  double seconds = 0;  // since the first update
  EcuImage image;
  std::span<const LiveRecord> records;  // that have come since the update before, oldest first
};

// Starts the document's worker on the connected link and hands every update to `show`, until
// `duration` has passed since the first one (without a duration there is no end), the person
// interrupts, `show` gives false, or another ECU answers than at first. kRefused, after a message,
// in the last case, when the port cannot be opened, when no values have come, and when
// what the ECU lost in a restart could not be written back.
ExitStatus FollowLiveValues(CliSession& session, std::optional<Clock::Duration> duration,
                            const std::function<bool(const LiveUpdate&)>& show);

}  // namespace zelorgas
