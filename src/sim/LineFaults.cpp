#include "sim/LineFaults.h"

#include <algorithm>
#include <array>

#include "sim/ParseWhole.h"

namespace zelorgas {
namespace {

constexpr auto kNames = std::to_array<FaultName>({
    {"drop", FaultKind::kDropAnswer, 0, "the answer is lost"},
    {"drop-request", FaultKind::kDropRequest, 0, "the request does not reach the ECU"},
    {"delay", FaultKind::kDelay, 300, "the answer comes so many ms later"},
    {"truncate", FaultKind::kTruncate, 5, "only so many characters of the answer come"},
    {"corrupt", FaultKind::kCorrupt, 42, "this bit of the answer is flipped"},
    {"bad-check", FaultKind::kBadCheck, 0, "the answer's LRC or CRC is wrong"},
    {"wrong-unit", FaultKind::kWrongUnit, 0, "the answer names another slave"},
    {"wrong-function", FaultKind::kWrongFunction, 0, "the answer names another function"},
    {"wrong-echo", FaultKind::kWrongEcho, 0, "a field that the answer must repeat differs"},
    {"short", FaultKind::kShortAnswer, 0, "the answer is a byte short, with a good check"},
    {"duplicate", FaultKind::kDuplicate, 0, "the answer comes twice"},
    {"noise-before", FaultKind::kNoiseBefore, 0, "characters before the answer"},
    {"noise-after", FaultKind::kNoiseAfter, 0, "characters after the answer"},
    {"endless-noise", FaultKind::kEndlessNoise, 3000, "noise for so many ms instead of an answer"},
    {"exception", FaultKind::kException, 2, "the ECU answers with this exception code"},
    {"no-echo", FaultKind::kNoEcho, 0, "the echo is lost"},
    {"partial-echo", FaultKind::kPartialEcho, 0, "the echo's first character is lost"},
    {"corrupt-echo", FaultKind::kCorruptEcho, 0, "a character of the echo is wrong"},
    {"silent", FaultKind::kSilent, 5000, "the ECU is silent for so many ms"},
    {"restart", FaultKind::kRestart, 0, "the ECU restarts instead of answering"},
    {"power-loss", FaultKind::kPowerLoss, 0,
     "the ECU loses its supply: before the request, or after so many characters of the answer"},
    {"unplug", FaultKind::kUnplug, 0,
     "the adapter is pulled out after the request and so many characters of the answer"},
});

bool TakePrefix(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

// What a kind's parameter can be: an exception code is a byte, a time is one that a person waits
// for.
unsigned LargestParameter(FaultKind kind) {
  constexpr unsigned kLongestMs = 60'000;
  switch (kind) {
    case FaultKind::kException:
      return 255;
    case FaultKind::kDelay:
    case FaultKind::kSilent:
    case FaultKind::kEndlessNoise:
      return kLongestMs;
    default:
      return 4096;  // characters or bits: more than a frame has
  }
}

}  // namespace

std::span<const FaultName> FaultNames() { return kNames; }

std::string_view NameOfFault(FaultKind kind) {
  return std::ranges::find(kNames, kind, &FaultName::kind)->name;
}

void LineFaults::At(std::uint64_t request, Fault fault) {
  rules_.push_back({.at = request, .fault = fault});
}

void LineFaults::Every(std::uint64_t period, Fault fault) {
  rules_.push_back({.every = period, .fault = fault});
}

void LineFaults::Sometimes(double probability, Fault fault) {
  rules_.push_back({.probability = probability, .fault = fault});
}

bool LineFaults::Add(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return false;
  std::string_view name = text.substr(0, colon);
  std::string_view when = text.substr(colon + 1);
  std::optional<unsigned> parameter;
  if (const std::size_t equals = name.find('='); equals != std::string_view::npos) {
    unsigned value = 0;
    if (!ParseWhole(name.substr(equals + 1), value)) return false;
    parameter = value;
    name = name.substr(0, equals);
  }
  const auto known = std::ranges::find(kNames, name, &FaultName::name);
  if (known == kNames.end()) return false;
  if (parameter.value_or(0) > LargestParameter(known->kind)) return false;
  Rule rule{.fault = {known->kind, parameter.value_or(known->default_parameter)}};
  bool understood = false;
  if (TakePrefix(when, "every")) {
    understood = ParseWhole(when, rule.every) && rule.every > 0;
  } else if (TakePrefix(when, "p")) {
    understood =
        ParseWhole(when, rule.probability) && rule.probability > 0 && rule.probability <= 1;
  } else {
    understood = ParseWhole(when, rule.at) && rule.at > 0;
  }
  if (understood) rules_.push_back(rule);
  return understood;
}

std::optional<Fault> LineFaults::ForRequest(std::uint64_t request) {
  std::optional<Fault> chosen;
  for (const Rule& rule : rules_) {
    // Every rule of chance draws at every request, so that adding another rule changes no draw.
    const bool falls =
        rule.at == request || (rule.every != 0 && request % rule.every == 0) ||
        (rule.probability > 0 && std::generate_canonical<double, 53>(random_) < rule.probability);
    if (falls && !chosen) chosen = rule.fault;
  }
  std::erase_if(rules_, [request](const Rule& rule) { return rule.at != 0 && rule.at <= request; });
  return chosen;
}

}  // namespace zelorgas
