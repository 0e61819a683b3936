#include "firmware/ApplicationStart.h"

#include <utility>

#include "app/Identification.h"
#include "firmware/LinkPreparation.h"

namespace zelorgas {
namespace {

constexpr std::chrono::seconds kBetweenQuestions{1};
constexpr std::chrono::milliseconds kStopSlice{100};

// False when the hook wants it to end.
bool Pause(ClpgecuDoc& document, Clock::Duration time, const ApplicationStartHooks& hooks) {
  const Clock::TimePoint end = document.DocumentClock().Now() + time;
  while (document.DocumentClock().Now() < end) {
    if (hooks.stop_wanted && hooks.stop_wanted()) return false;
    document.SleepSliced(kStopSlice);
  }
  return true;
}

}  // namespace

bool WaitForApplication(ClpgecuDoc& document, const ApplicationStartHooks& hooks) {
  ModbusSerialPort& link = document.Link();
  bool told = false;
  Clock::Duration pause = kQuietTime;
  while (Pause(document, pause, hooks)) {
    pause = kBetweenQuestions;
    EcuIdentity identity;
    if (!OpenForUpdate(link) || !ReadBasicIdentification(link, identity).Ok() ||
        !ReadModel(link, identity).Ok()) {
      continue;  // the ignition is off, or the ECU starts at this moment
    }
    if (!identity.bootloader) return true;
    // The question itself may have kept it there.
    pause = kQuietTime;
    if (!std::exchange(told, true) && hooks.ignition_needed) hooks.ignition_needed();
  }
  return false;
}

}  // namespace zelorgas
