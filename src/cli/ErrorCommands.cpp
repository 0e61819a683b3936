#include <algorithm>
#include <array>
#include <optional>

#include "cli/CliConnection.h"
#include "cli/Commands.h"
#include "cli/Text.h"
#include "errors/ErrorLog.h"

namespace zelorgas {
namespace {

struct BankName {
  std::string_view name;
  ErrorBank bank;
};
constexpr std::array<BankName, 2> kBanks{
    {{"temporary", ErrorBank::kTemporary}, {"permanent", ErrorBank::kPermanent}}};

// A connection to an ECU that this program knows, for one command.
class ErrorSession {
 public:
  explicit ErrorSession(CliSession& session) : session_(session), connection_(session) {}

  ExitStatus Connect() { return connection_.ConnectToEcu(); }
  ErrorLog& Log() { return log_; }

 private:
  CliSession& session_;
  CliConnection connection_;
  ConsoleBoxes boxes_{session_};
  ErrorLog log_{session_.Document(), boxes_};
};

std::string_view NameOf(ErrorBank bank, std::uint16_t code) {
  return ErrorText(FindErrorDefinition(bank, code)->name);
}

// A bank that could not be read is null.
void PrintJson(CliSession& session, ErrorLog& log) {
  JsonWriter document;
  document.BeginObject();
  for (const auto& [name, bank] : kBanks) {
    document.Key(name);
    if (!log.Known(bank)) {
      document.Null();
      continue;
    }
    document.BeginArray();
    for (const ErrorPage::Entry& entry : log.Sheet().Page(bank).Entries()) {
      document.BeginObject().Key("code").Number(entry.Code());
      document.Key("count").Number(entry.count);
      document.Key("name").String(NameOf(bank, entry.Code())).EndObject();
    }
    document.EndArray();
  }
  session.Print(document.EndObject());
}

void PrintText(CliSession& session, ErrorLog& log) {
  bool none = log.Known(ErrorBank::kTemporary) && log.Known(ErrorBank::kPermanent);
  for (const auto& [name, bank] : kBanks) {
    for (const ErrorPage::Entry& entry : log.Sheet().Page(bank).Entries()) {
      session.Print(std::string(name) + " " + std::to_string(entry.Code()) + " " + entry.text);
      none = false;
    }
  }
  if (none) session.Print("no stored errors");
}

}  // namespace

ExitStatus RunErrors(CliSession& session, std::span<const std::string> arguments) {
  if (!arguments.empty()) return session.UsageError("errors takes no arguments");
  ErrorSession ecu(session);
  if (const ExitStatus status = ecu.Connect(); status != ExitStatus::kDone) return status;
  ErrorLog& log = ecu.Log();
  const ModbusResult result = log.ReadErrors();
  for (const auto& [name, bank] : kBanks) {
    if (!log.Known(bank)) {
      session.Message("the " + std::string(name) + " errors could not be read");
    }
  }
  session.Json() ? PrintJson(session, log) : PrintText(session, log);
  return result == ModbusResult::kOk ? ExitStatus::kDone : ExitStatus::kRefused;
}

ExitStatus RunClearError(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.size() != 2) return session.UsageError("clear-error needs a bank and a code");
  const auto* const bank = std::ranges::find(kBanks, arguments[0], &BankName::name);
  if (bank == kBanks.end()) {
    return session.UsageError("\"" + arguments[0] + "\" is neither temporary nor permanent");
  }
  const auto last = static_cast<std::uint32_t>(ErrorDefinitions(bank->bank).size() - 1);
  std::string problem;
  const auto code = ReadNumber({"a code", 0, last}, arguments[1], problem);
  if (!code) return session.UsageError(problem);
  if (const ExitStatus status = Confirm(session, kDeleteErrorQuestion);
      status != ExitStatus::kDone) {
    return status;
  }
  ErrorSession ecu(session);
  if (const ExitStatus status = ecu.Connect(); status != ExitStatus::kDone) return status;
  if (!ecu.Log().DeleteError(*code, bank->bank)) return ExitStatus::kRefused;
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject().Key("bank").String(bank->name).Key("code").Number(*code);
    session.Print(document.EndObject());
  } else {
    session.Print("cleared: " + std::string(bank->name) + " " + std::to_string(*code));
  }
  return ExitStatus::kDone;
}

ExitStatus RunClearErrors(CliSession& session, std::span<const std::string> arguments) {
  if (!arguments.empty()) return session.UsageError("clear-errors takes no arguments");
  if (const ExitStatus status = Confirm(session, kDeleteAllErrorsQuestion);
      status != ExitStatus::kDone) {
    return status;
  }
  ErrorSession ecu(session);
  if (const ExitStatus status = ecu.Connect(); status != ExitStatus::kDone) return status;
  if (!ecu.Log().DeleteAllErrors()) return ExitStatus::kRefused;
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject().Key("banks").BeginArray();
    for (const BankName& bank : kBanks) document.String(bank.name);
    session.Print(document.EndArray().EndObject());
  } else {
    session.Print("cleared: temporary and permanent");
  }
  return ExitStatus::kDone;
}

}  // namespace zelorgas
