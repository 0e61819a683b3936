#include "injectors/ParameterGroups.h"

#include <algorithm>
#include <array>

#include "injectors/Choices.h"
#include "platform/IgnoreCase.h"

namespace zelorgas {
namespace {

constexpr auto kChangeOver = std::to_array<std::string_view>({
    "TEMP_COLD_ENG",
    "DELAY_COLD_ENG",
    "RPM_COLD_ENG",
    "TEMP_HOT_ENG",
    "DELAY_HOT_ENG",
    "RPM_HOT_ENG",
    "DELAY_GAS_VALVE",
    "TIME_GAS_ENABLE",
    "PETGAS_PULSES",
    "SHIFT_CYL_PG",
    "SHIFT_CYL_GP",
    "TONMIN_GAS_ON",
    "TONMAX_GAS_ON",
    "TONMIN_PETROL",
});
constexpr auto kInjection = std::to_array<std::string_view>({
    "INJECTOR_TYPE",
    "NOZZLEDIAM",
    "FREQ_GAS_INJ",
    "DC_GAS_INJ",
    "TOFF_HOLDFREQ_INJ",
    "TONINJ_MIN",
    "TSPEEDUP_DELAY",
    "TSPEEDUP",
    "EXTRA_INJ",
    "TIPIN_ENABLE",
    "TIPOUT_ENABLE",
    "NCYLINDERS",
    "ENGINE_TYPE",
    "ENGINE_SIZE",
    "GAS_TYPE",
});
constexpr auto kSensors = std::to_array<std::string_view>({
    "PRESSURE_SENSOR_TPYE",
    "ONOFF_PRESSURE_SENSOR_TPYE",
    "PGAS0",
    "PGASMAX",
    "PGAS_NOMINAL",
    "TGAS_SENSOR_TYPE",
    "TGAS_SENSOR_INSTALLED",
    "TW_SENSOR_TYPE",
    "MAP_INSTALLED",
    "MAP_SENSORTYPE",
    "MAP0",
    "MAPMAX",
    "TPS0",
    "TPSMAX",
    "GASLEVEL_SENSORTYPE",
    "GASLEVEL_25",
    "GASLEVEL_50",
    "GASLEVEL_75",
    "GASLEVEL_100",
});
constexpr auto kSpeed = std::to_array<std::string_view>({
    "RPM_SOURCE",
    "RPM_SENSORTYPE",
    "RPM_RATIO",
    "RPM_RATIO_MUL",
    "TRPM_A",
    "TRPM_B",
    "TRPM_C",
});
constexpr auto kSafety = std::to_array<std::string_view>({
    "GP_CHANGEOVER_ON_PGAS",
    "EMERGENCY_GAS_PRESSURE",
    "LOWGASPRESSURE_DUR",
    "GP_CHANGEOVER_ON_TWATER",
    "EMERGENCY_TWATER",
    "GP_CHANGEOVER_ON_PULSELACK",
    "PULSES_ABSENT",
    "GP_CHANGEOVER_ON_RPM",
    "RPM_TROUBLE",
});
constexpr auto kIdleAndCutOff = std::to_array<std::string_view>({
    "RETIDLE_GP_RPM",
    "RETIDLE_PG_RPM",
    "RETIDLE_DURATION",
    "CUTOFF_MAXRPM",
    "CUTOFF_DUR_NOINJ",
    "REDRPM_ENRICH",
    "REDRPM_DURATION",
    "REDRPM_DISS",
});
constexpr auto kLambda = std::to_array<std::string_view>({
    "LAMBDA_OXYGENRANGE",
    "LAMBDA_INVERSE",
    "L2_INSTALLED",
});

constexpr std::array<ParameterGroup, 7> kGroups{{
    {FixedText::Of("Change-over"), kChangeOver},
    {FixedText::Of("Injection"), kInjection},
    {FixedText::Of("Sensors"), kSensors},
    {FixedText::Of("Engine speed"), kSpeed},
    {FixedText::Of("Safety"), kSafety},
    {FixedText::Of("Idle and cut-off"), kIdleAndCutOff},
    {FixedText::Of("Lambda"), kLambda},
}};

constexpr auto kFlags = std::to_array<std::string_view>({
    "TGAS_SENSOR_INSTALLED",
    "GP_CHANGEOVER_ON_TWATER",
    "GP_CHANGEOVER_ON_PGAS",
    "GP_CHANGEOVER_ON_PULSELACK",
    "GP_CHANGEOVER_ON_RPM",
    "L2_INSTALLED",
    "MAP_INSTALLED",
    "TIPIN_ENABLE",
    "TIPOUT_ENABLE",
    "LAMBDA_INVERSE",
});

bool Contains(std::string_view text, std::string_view word) {
  const auto same = [](char a, char b) { return ToLower(a) == ToLower(b); };
  return std::search(text.begin(), text.end(), word.begin(), word.end(), same) != text.end();
}

std::vector<std::string_view> Words(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  std::vector<std::string_view> words;
  std::size_t end = 0;
  for (std::size_t begin = text.find_first_not_of(kBlanks); begin < text.size();
       begin = text.find_first_not_of(kBlanks, end)) {
    end = std::min(text.find_first_of(kBlanks, begin), text.size());
    words.push_back(text.substr(begin, end - begin));
  }
  return words;
}

}  // namespace

ParameterKind KindOf(const Parameter& parameter) {
  if (ListOf(parameter)) return ParameterKind::kChoice;
  const bool flag = std::ranges::find(kFlags, parameter.name) != kFlags.end();
  return flag ? ParameterKind::kFlag : ParameterKind::kNumber;
}

std::span<const ParameterGroup> ParameterGroups() { return kGroups; }

std::string EnglishMeaning(const Parameter& parameter) {
  return std::string(parameter.meaning.English());
}

std::vector<const Parameter*> SearchParameters(std::string_view text, const MeaningOf& meaning_of) {
  const std::vector<std::string_view> words = Words(text);
  std::vector<const Parameter*> found;
  for (const ParameterGroup& group : kGroups) {
    for (const std::string_view name : group.names) {
      const Parameter* const parameter = FindParameter(name);
      const std::string meaning = meaning_of(*parameter);
      const auto occurs = [&](std::string_view word) {
        return Contains(parameter->name, word) || Contains(meaning, word);
      };
      if (std::ranges::all_of(words, occurs)) found.push_back(parameter);
    }
  }
  return found;
}

}  // namespace zelorgas
