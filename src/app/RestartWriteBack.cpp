#include "app/RestartWriteBack.h"

#include <cstddef>
#include <cstdint>
#include <span>

#include "app/LinkSession.h"
#include "config/BlockTransfer.h"

namespace zelorgas {

ModbusResult WriteBackAfterRestart(ClpgecuDoc& document, bool& same) {
  LinkSession session(document, LinkSession::Wait::kGrace);
  // The restart can have been minutes ago, while a person was asked something.
  ModbusResult result = session.CheckEcu(same);
  if (result == ModbusResult::kOk && same) {
    const auto rest = [&document](std::size_t, std::span<const std::uint16_t>) {
      document.SleepSliced(kRestAfterChunk);
    };
    result = WriteBlock(session.Link(), session.Image().block, rest);
  }
  document.EndWriteBack();
  // What the ECU holds is not what the image says, or it is another one, which the worker finds.
  if (result != ModbusResult::kOk || !same) document.RequestRefresh();
  return result;
}

}  // namespace zelorgas
