#include "app/RestartWriteBack.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>

#include "app/LinkSession.h"
#include "config/BlockTransfer.h"

namespace zelorgas {
namespace {

constexpr std::chrono::milliseconds kRest{25};

}  // namespace

ModbusResult WriteBackAfterRestart(ClpgecuDoc& document) {
  LinkSession session(document, LinkSession::Wait::kGrace);
  const auto rest = [&document](std::size_t, std::span<const std::uint16_t>) {
    document.SleepSliced(kRest);
  };
  return WriteBlock(session.Link(), session.Image().block, rest);
}

}  // namespace zelorgas
