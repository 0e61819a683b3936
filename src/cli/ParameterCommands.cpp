#include <algorithm>
#include <optional>
#include <vector>

#include "cli/Commands.h"
#include "cli/ParameterTarget.h"
#include "cli/Text.h"

namespace zelorgas {
namespace {

struct TargetValue {
  ParameterTarget target;
  std::uint16_t value = 0;
};

// Nothing when `text` is not NAME=VALUE with a value that the name can hold.
std::optional<TargetValue> ReadAssignment(std::string_view text, std::string& problem) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) {
    problem = "\"" + std::string(text) + "\" is not NAME=VALUE";
    return std::nullopt;
  }
  const auto target = ParameterTarget::Find(text.substr(0, equals), problem);
  if (!target) return std::nullopt;
  const NumberArgument range{target->Text(), 0, target->MaxValue()};
  const auto value = ReadNumber(range, text.substr(equals + 1), problem);
  if (!value) return std::nullopt;
  return TargetValue{*target, *value};
}

void PrintValues(CliSession& session, std::span<const TargetValue> values) {
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject();
    for (const TargetValue& value : values) document.Key(value.target.Text()).Number(value.value);
    session.Print(document.EndObject());
    return;
  }
  for (const TargetValue& value : values) {
    session.Print(value.target.Text() + "=" + std::to_string(value.value));
  }
}

// Writes one value and reads it back; a failure has been explained to the user.
ExitStatus WriteAndVerify(CliSession& session, const TargetValue& assignment) {
  const ParameterTarget& target = assignment.target;
  ModbusResult result = target.Write(session.Ecu(), assignment.value);
  std::uint16_t held = 0;
  if (result == ModbusResult::kOk) result = target.Read(session.Ecu(), held);
  if (result != ModbusResult::kOk) return session.LinkError(target.Text(), result);
  if (held != assignment.value) {
    session.Message(target.Text() + ": " + std::to_string(assignment.value) +
                    " was written, the ECU holds " + std::to_string(held));
    return ExitStatus::kRefused;
  }
  return ExitStatus::kDone;
}

std::string NamesOf(std::span<const TargetValue> values) {
  std::string names;
  for (const TargetValue& value : values) {
    names += (names.empty() ? "" : ", ") + value.target.Text();
  }
  return names.empty() ? "none" : names;
}

}  // namespace

ExitStatus RunGet(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.empty()) return session.UsageError("get needs the name of a parameter");
  std::vector<TargetValue> values;
  for (const std::string& argument : arguments) {
    std::string problem;
    const auto target = ParameterTarget::Find(argument, problem);
    if (!target) return session.UsageError(problem);
    const auto asked_before = [&](const TargetValue& value) {
      return value.target.Text() == argument;
    };
    if (std::ranges::none_of(values, asked_before)) values.push_back({*target});
  }
  if (const ExitStatus status = session.OpenLink(); status != ExitStatus::kDone) return status;
  for (TargetValue& value : values) {
    const ModbusResult result = value.target.Read(session.Ecu(), value.value);
    if (result != ModbusResult::kOk) return session.LinkError(value.target.Text(), result);
  }
  PrintValues(session, values);
  return ExitStatus::kDone;
}

ExitStatus RunSet(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.empty()) return session.UsageError("set needs NAME=VALUE");
  std::vector<TargetValue> assignments;
  for (const std::string& argument : arguments) {
    std::string problem;
    const auto assignment = ReadAssignment(argument, problem);
    if (!assignment) return session.UsageError(problem);
    for (const TargetValue& earlier : assignments) {
      if (earlier.target.Overlaps(assignment->target)) {
        return session.UsageError("\"" + argument + "\" sets what " + earlier.target.Text() +
                                  " has set");
      }
    }
    assignments.push_back(*assignment);
  }
  if (const ExitStatus status = session.OpenLink(); status != ExitStatus::kDone) return status;
  for (std::size_t i = 0; i < assignments.size(); ++i) {
    const ExitStatus status = WriteAndVerify(session, assignments[i]);
    if (status != ExitStatus::kDone) {
      const std::span<const TargetValue> all(assignments);
      session.Message("written: " + NamesOf(all.first(i)) + "; not confirmed: " +
                      all[i].target.Text() + "; not tried: " + NamesOf(all.subspan(i + 1)));
      return status;
    }
  }
  PrintValues(session, assignments);
  return ExitStatus::kDone;
}

}  // namespace zelorgas
