#include "errors/ErrorTexts.h"

#include <array>
#include <cstddef>

namespace zelorgas {
namespace {

constexpr std::uint16_t kTemporaryNames = 1448;
constexpr std::uint16_t kTemporaryDescriptions = 1480;
constexpr std::uint16_t kPermanentNames = 1512;
constexpr std::uint16_t kPermanentDescriptions = 1544;
constexpr std::size_t kTextsOfBank = 16;  // more than there are codes: the rest is reserved

constexpr std::size_t kTemporaryCodes = 10;
constexpr std::size_t kPermanentCodes = 5;

using BankTexts = std::array<FixedText, kTextsOfBank>;

constexpr BankTexts kTemporaryTexts{
    FixedText::Of("Low GAS Pressure"), FixedText::Of("Coolant Temperature too low"),
    FixedText::Of("Very low RPM "),    FixedText::Of("ECU lack of pulses"),
    FixedText::Of("Temporary DTC 04"), FixedText::Of("Temporary DTC 05"),
    FixedText::Of("Temporary DTC 06"), FixedText::Of("Temporary DTC 07"),
    FixedText::Of("Start on GAS"),     FixedText::Of("Temporary DTC 09"),
    FixedText::Of("Temporary DTC 10"), FixedText::Of("Temporary DTC 11"),
    FixedText::Of("Temporary DTC 12"), FixedText::Of("Temporary DTC 13"),
    FixedText::Of("Temporary DTC 14"), FixedText::Of("Temporary DTC 15"),
};
constexpr BankTexts kPermanentTexts{
    FixedText::Of("Permanent DTC 00"), FixedText::Of("Permanent DTC 01"),
    FixedText::Of("Permanent DTC 02"), FixedText::Of("Permanent DTC 03"),
    FixedText::Of("Permanent DTC 04"), FixedText::Of("Permanent DTC 05"),
    FixedText::Of("Permanent DTC 06"), FixedText::Of("Permanent DTC 07"),
    FixedText::Of("Permanent DTC 08"), FixedText::Of("Permanent DTC 09"),
    FixedText::Of("Permanent DTC 10"), FixedText::Of("Permanent DTC 11"),
    FixedText::Of("Permanent DTC 12"), FixedText::Of("Permanent DTC 13"),
    FixedText::Of("Permanent DTC 14"), FixedText::Of("Permanent DTC 15"),
};

// A code is described by its name but for two, of which the second has the text of its neighbour.
constexpr BankTexts DescribeTemporary() {
  BankTexts texts = kTemporaryTexts;
  texts[8] = FixedText::Of("The vehicle has been started on GAS");
  texts[15] = texts[14];
  return texts;
}
constexpr BankTexts kTemporaryDescriptionTexts = DescribeTemporary();

struct TextRun {
  std::uint16_t first;
  std::span<const FixedText> texts;
};
constexpr std::array<FixedText, 1> kRequestFailed{
    FixedText::Of("Error while loading installation information!\nPlease try again!")};
constexpr std::array<FixedText, 2> kTitles{FixedText::Of("Temporary"), FixedText::Of("Permanent")};
constexpr std::array<TextRun, 5> kRuns{{
    {kErrorRequestFailedText, kRequestFailed},
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

FixedText BankTitle(ErrorBank bank) { return kTitles[static_cast<std::size_t>(bank)]; }

FixedText ErrorText(std::uint16_t number) {
  for (const TextRun& run : kRuns) {
    if (number >= run.first && number < run.first + run.texts.size()) {
      return run.texts[static_cast<std::size_t>(number) - run.first];
    }
  }
  return {};
}

}  // namespace zelorgas
