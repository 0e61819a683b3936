#include "errors/ErrorTexts.h"

#include <array>
#include <cstddef>

namespace zelorgas {
namespace {

constexpr std::uint16_t kFirstTitle = 1432;
constexpr std::uint16_t kTemporaryNames = 1448;
constexpr std::uint16_t kTemporaryDescriptions = 1480;
constexpr std::uint16_t kPermanentNames = 1512;
constexpr std::uint16_t kPermanentDescriptions = 1544;
constexpr std::size_t kTextsOfBank = 16;  // more than there are codes: the rest is reserved

constexpr std::size_t kTemporaryCodes = 10;
constexpr std::size_t kPermanentCodes = 5;

using BankTexts = std::array<std::string_view, kTextsOfBank>;

constexpr BankTexts kTemporaryTexts{
    "Low GAS Pressure", "Coolant Temperature too low",
    "Very low RPM ",    "ECU lack of pulses",
    "Temporary DTC 04", "Temporary DTC 05",
    "Temporary DTC 06", "Temporary DTC 07",
    "Start on GAS",     "Temporary DTC 09",
    "Temporary DTC 10", "Temporary DTC 11",
    "Temporary DTC 12", "Temporary DTC 13",
    "Temporary DTC 14", "Temporary DTC 15",
};
constexpr BankTexts kPermanentTexts{
    "Permanent DTC 00", "Permanent DTC 01", "Permanent DTC 02", "Permanent DTC 03",
    "Permanent DTC 04", "Permanent DTC 05", "Permanent DTC 06", "Permanent DTC 07",
    "Permanent DTC 08", "Permanent DTC 09", "Permanent DTC 10", "Permanent DTC 11",
    "Permanent DTC 12", "Permanent DTC 13", "Permanent DTC 14", "Permanent DTC 15",
};

// A code is described by its name but for two, of which the second has the text of its neighbour.
constexpr BankTexts DescribeTemporary() {
  BankTexts texts = kTemporaryTexts;
  texts[8] = "The vehicle has been started on GAS";
  texts[15] = texts[14];
  return texts;
}
constexpr BankTexts kTemporaryDescriptionTexts = DescribeTemporary();

struct TextRun {
  std::uint16_t first;
  std::span<const std::string_view> texts;
};
constexpr std::array<std::string_view, 1> kRequestFailed{
    "Error while loading installation information!\nPlease try again!"};
constexpr std::array<std::string_view, 2> kTitles{"Temporary", "Permanent"};
constexpr std::array<TextRun, 6> kRuns{{
    {kErrorRequestFailedText, kRequestFailed},
    {kFirstTitle, kTitles},
    {kTemporaryNames, kTemporaryTexts},
    {kTemporaryDescriptions, kTemporaryDescriptionTexts},
    {kPermanentNames, kPermanentTexts},
    {kPermanentDescriptions, kPermanentTexts},
}};

template <std::size_t kCodes>
constexpr std::array<ERRREC, kCodes> Definitions(std::uint16_t names, std::uint16_t descriptions) {
  std::array<ERRREC, kCodes> records{};
  for (std::size_t i = 0; i < kCodes; ++i) {
    const auto code = static_cast<std::uint16_t>(i);
    records[i] = {code, static_cast<std::uint16_t>(names + code),
                  static_cast<std::uint16_t>(descriptions + code)};
  }
  return records;
}

constexpr auto kTemporaryErrors =
    Definitions<kTemporaryCodes>(kTemporaryNames, kTemporaryDescriptions);
constexpr auto kPermanentErrors =
    Definitions<kPermanentCodes>(kPermanentNames, kPermanentDescriptions);

}  // namespace

std::span<const ERRREC> ErrorDefinitions(ErrorBank bank) {
  if (bank == ErrorBank::kTemporary) return kTemporaryErrors;
  return kPermanentErrors;
}

const ERRREC* FindErrorDefinition(ErrorBank bank, std::uint16_t code) {
  const std::span<const ERRREC> definitions = ErrorDefinitions(bank);
  return code < definitions.size() ? &definitions[code] : nullptr;
}

std::uint16_t FirstErrorRegister(ErrorBank bank) {
  return bank == ErrorBank::kTemporary ? kTemporaryErrorRegister : kPermanentErrorRegister;
}

std::string_view BankTitle(ErrorBank bank) { return kTitles[static_cast<std::size_t>(bank)]; }

std::string_view ErrorText(std::uint16_t number) {
  for (const TextRun& run : kRuns) {
    if (number >= run.first && number < run.first + run.texts.size()) {
      return run.texts[static_cast<std::size_t>(number) - run.first];
    }
  }
  return {};
}

}  // namespace zelorgas
