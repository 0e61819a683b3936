#include <algorithm>
#include <optional>
#include <vector>

#include "app/Identification.h"
#include "cli/Commands.h"
#include "cli/ParameterTarget.h"
#include "cli/Text.h"
#include "injectors/Catalogues.h"

namespace zelorgas {
namespace {

struct TargetValue {
  ParameterTarget target;
  std::uint16_t value = 0;
};

// An entry of the list whose choice the target keeps.
struct Choice {
  ChoiceList list;
  std::size_t entry;
};

struct Assignment {
  TargetValue plain;  // without a choice
  std::optional<Choice> choice;
};

// In an ECU with a pressure sensor or one with an on/off switch.
bool CanBeChosen(ChoiceList list, std::size_t entry) {
  return !WritesOf(list, entry, {}).empty() ||
         !WritesOf(list, entry, {.switch_mode = true}).empty();
}

// The entry that `name` stands for; nothing, with the reason in `problem`, when it cannot be
// chosen.
std::optional<Choice> ReadChoice(const ParameterTarget& target, ChoiceList list,
                                 std::string_view name, std::string& problem) {
  const auto entry = EntryNamed(list, name);
  if (entry && CanBeChosen(list, *entry)) return Choice{list, *entry};
  if (entry) {
    problem = "\"" + std::string(name) + "\" cannot be chosen";
    return std::nullopt;
  }
  problem = target.Text() + " takes a number from 0 to " + std::to_string(target.MaxValue());
  for (const std::string_view known : EntryNames(list)) {
    if (CanBeChosen(list, *EntryNamed(list, known))) problem += ", " + std::string(known);
  }
  problem += "; not \"" + std::string(name) + "\"";
  return std::nullopt;
}

// Nothing when `text` is not NAME=VALUE with a value that the name can hold.
std::optional<Assignment> ReadAssignment(std::string_view text, std::string& problem) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) {
    problem = "\"" + std::string(text) + "\" is not NAME=VALUE";
    return std::nullopt;
  }
  const auto target = ParameterTarget::Find(text.substr(0, equals), problem);
  if (!target) return std::nullopt;
  const std::string_view value_text = text.substr(equals + 1);
  if (const auto list = target->Choices(); list && !ParseNumber(value_text)) {
    const auto choice = ReadChoice(*target, *list, value_text, problem);
    if (!choice) return std::nullopt;
    return Assignment{{*target}, choice};
  }
  const NumberArgument range{target->Text(), 0, target->MaxValue()};
  const auto value = ReadNumber(range, value_text, problem);
  if (!value) return std::nullopt;
  return Assignment{{*target, *value}, std::nullopt};
}

// What the assignment writes to such an ECU, in the order of the writes; nothing for a choice that
// cannot be made there.
std::vector<TargetValue> WritesOf(const Assignment& assignment, const ChoiceContext& context) {
  if (!assignment.choice) return {assignment.plain};
  const auto writes = WritesOf(assignment.choice->list, assignment.choice->entry, context);
  // A range leaves the other bits of its register alone, so it is written as the parameter.
  if (assignment.choice->list == ChoiceList::kLambdaRange) {
    return {{assignment.plain.target, writes.front().value}};
  }
  std::vector<TargetValue> values;
  for (const RegisterWrite& write : writes) {
    const auto parameter = std::ranges::find(Parameters(), write.reg, &Parameter::Register);
    values.push_back({ParameterTarget::OfParameter(*parameter), write.value});
  }
  return values;
}

// What it may write, whatever the ECU.
std::vector<TargetValue> AllWritesOf(const Assignment& assignment) {
  std::vector<TargetValue> values;
  for (const ChoiceContext& context :
       {ChoiceContext{'$'}, ChoiceContext{'\''}, ChoiceContext{.switch_mode = true}}) {
    const std::vector<TargetValue> more = WritesOf(assignment, context);
    values.insert(values.end(), more.begin(), more.end());
  }
  return values;
}

// Finds out what the writes depend on in the ECU on the line. A failure has been explained to the
// user.
ExitStatus ReadContext(CliSession& session, std::span<const Assignment> assignments,
                       ChoiceContext& context) {
  const auto has = [assignments](ChoiceList list) {
    return std::ranges::any_of(assignments, [list](const Assignment& assignment) {
      return assignment.choice && assignment.choice->list == list;
    });
  };
  if (has(ChoiceList::kInjectorType)) {
    std::vector<std::uint16_t> words;
    const ModbusResult result =
        session.Ecu().ReadInputRegisters(ECU_SLAVE_ADDRESS, kSoftwareVersionRegister, 1, words);
    if (result != ModbusResult::kOk) return session.LinkError("software version", result);
    context.firmware_identification = static_cast<char>(words.front() & 0xFFU);
  }
  if (has(ChoiceList::kGasPressureSensor)) {
    const auto target = ParameterTarget::OfParameter(ParameterOf(ChoiceList::kGasPressureSensor));
    std::uint16_t type = 0;
    const ModbusResult result = target.Read(session.Ecu(), type);
    if (result != ModbusResult::kOk) return session.LinkError(target.Text(), result);
    context.switch_mode = type == kSwitchSensorType;
    if (context.switch_mode) {
      session.Message("the ECU has an on/off pressure switch (" + target.Text() +
                      " is 0): the entry is written as a switch's");
    }
  }
  return ExitStatus::kDone;
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
  std::vector<Assignment> assignments;
  std::vector<TargetValue> taken;  // by the assignments so far
  for (const std::string& argument : arguments) {
    std::string problem;
    const auto assignment = ReadAssignment(argument, problem);
    if (!assignment) return session.UsageError(problem);
    const std::vector<TargetValue> writes = AllWritesOf(*assignment);
    for (const TargetValue& earlier : taken) {
      const auto overlaps = [&earlier](const TargetValue& write) {
        return earlier.target.Overlaps(write.target);
      };
      if (std::ranges::any_of(writes, overlaps)) {
        return session.UsageError("\"" + argument + "\" sets what " + earlier.target.Text() +
                                  " has set");
      }
    }
    taken.insert(taken.end(), writes.begin(), writes.end());
    assignments.push_back(*assignment);
  }
  if (const ExitStatus status = session.OpenLink(); status != ExitStatus::kDone) return status;
  ChoiceContext context;
  if (const ExitStatus status = ReadContext(session, assignments, context);
      status != ExitStatus::kDone) {
    return status;
  }
  std::vector<TargetValue> writes;
  for (const Assignment& assignment : assignments) {
    const std::vector<TargetValue> more = WritesOf(assignment, context);
    if (more.empty()) {
      return session.UsageError("for " + assignment.plain.target.Text() + " \"" +
                                std::string(kNoSensor) +
                                "\" can only be chosen where the ECU has an on/off switch");
    }
    writes.insert(writes.end(), more.begin(), more.end());
  }
  for (std::size_t i = 0; i < writes.size(); ++i) {
    const ExitStatus status = WriteAndVerify(session, writes[i]);
    if (status != ExitStatus::kDone) {
      const std::span<const TargetValue> all(writes);
      session.Message("written: " + NamesOf(all.first(i)) + "; not confirmed: " +
                      all[i].target.Text() + "; not tried: " + NamesOf(all.subspan(i + 1)));
      return status;
    }
  }
  PrintValues(session, writes);
  return ExitStatus::kDone;
}

}  // namespace zelorgas
