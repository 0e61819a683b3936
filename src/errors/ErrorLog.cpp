#include "errors/ErrorLog.h"

#include <optional>
#include <vector>

namespace zelorgas {
namespace {

// The coil that erases both banks, by the firmware identification byte.
std::optional<std::uint16_t> EraseCoil(char identification) {
  switch (identification) {
    case '$':
    case '&':
      return 61;
    case '\'':
      return 66;
    default:
      return std::nullopt;
  }
}

}  // namespace

void ErrorLog::Forget() {
  sheet_.clear();
  known_ = {};
}

ModbusResult ErrorLog::ReadErrors() {
  Forget();
  ModbusResult failure = ModbusResult::kOk;
  {
    LinkSession session(document_, LinkSession::Wait::kGrace);
    for (const ErrorBank bank : {ErrorBank::kTemporary, ErrorBank::kPermanent}) {
      const ModbusResult result = ReadBank(session, bank);
      if (failure == ModbusResult::kOk) failure = result;
    }
  }
  if (failure != ModbusResult::kOk) {
    boxes_.Inform(document_.Link().ErrorText(failure), MessageIcon::kError);
  }
  return failure;
}

ModbusResult ErrorLog::ReadBank(LinkSession& session, ErrorBank bank) {
  const auto codes = static_cast<std::uint16_t>(ErrorDefinitions(bank).size());
  std::vector<std::uint16_t> counts;
  const ModbusResult result = session.Link().ReadHoldingRegisters(
      ECU_SLAVE_ADDRESS, FirstErrorRegister(bank), codes, counts);
  if (result != ModbusResult::kOk) return result;
  known_[static_cast<std::size_t>(bank)] = true;
  for (std::uint16_t code = 0; code < codes; ++code) {
    if (counts[code] != 0) sheet_.Page(bank).addError(code, counts[code]);
  }
  return result;
}

bool ErrorLog::DeleteError(std::uint16_t code, ErrorBank bank) {
  // Past the end of a bank lie registers of something else.
  if (FindErrorDefinition(bank, code) == nullptr) return FailRequest();
  const auto reg = static_cast<std::uint16_t>(FirstErrorRegister(bank) + code);
  if (!RunOnSameEcu([reg](LinkSession& session) { return session.WriteRegister(reg, 0); })) {
    return false;
  }
  sheet_.Page(bank).removeError(code);
  return true;
}

bool ErrorLog::DeleteAllErrors() {
  const auto coil = EraseCoil(document_.Snapshot().FirmwareIdentification());
  if (!coil) return FailRequest();
  const auto erase = [&coil](LinkSession& session) {
    // The ECU erases when the coil goes on; that it was off before is not worth a failure.
    static_cast<void>(session.Link().WriteSingleCoil(ECU_SLAVE_ADDRESS, *coil, 0));
    return session.Link().WriteSingleCoil(ECU_SLAVE_ADDRESS, *coil, 1);
  };
  if (!RunOnSameEcu(erase)) return false;
  sheet_.clear();
  known_.fill(true);
  return true;
}

bool ErrorLog::RunOnSameEcu(const std::function<ModbusResult(LinkSession&)>& work) {
  bool same = true;
  ModbusResult result = ModbusResult::kOk;
  {
    LinkSession session(document_, LinkSession::Wait::kGrace);
    result = session.CheckEcu(same);
    if (result == ModbusResult::kOk && same) result = work(session);
  }
  if (!same) {
    // The worker finds out as well, and says so to who connects.
    document_.RequestRefresh();
    boxes_.Inform(kAnotherEcuAnswers, MessageIcon::kExclamation);
    return false;
  }
  return result == ModbusResult::kOk || FailRequest();
}

bool ErrorLog::FailRequest() {
  boxes_.Inform(ErrorText(kErrorRequestFailedText), MessageIcon::kError);
  return false;
}

}  // namespace zelorgas
