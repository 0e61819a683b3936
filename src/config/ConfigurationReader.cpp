// From the file to the block.
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <utility>

#include "config/BlockCells.h"
#include "config/ConfigurationFile.h"
#include "config/ConfigurationNumbers.h"
#include "config/Parameters.h"
#include "config/Utf8Text.h"
#include "config/XmlDocument.h"
#include "platform/FileSystem.h"

namespace zelorgas {
namespace {

constexpr std::string_view kData = "Configuration_data";
constexpr std::string_view kScalars = "CommonParams";
constexpr std::uint16_t kWholeWord = 0xFFFF;

std::string Excerpt(std::string_view text) {
  // Enough to find it again; the rest of a damaged file would follow.
  constexpr std::size_t kLongest = 40;
  return Shortened(text, kLongest);
}

std::string Quoted(std::string_view text) { return '"' + Excerpt(text) + '"'; }

std::uint16_t LowWord(std::int64_t number) { return static_cast<std::uint16_t>(number & 0xFFFF); }

// A number of a list, as it is loaded and as it is shown.
struct ListNumber {
  std::uint16_t loaded = 0;
  std::uint16_t shown = 0;
  bool fits = true;  // 16 bits
};

ListNumber WholeNumber(std::int64_t number, CellForm form) {
  const std::int64_t lowest = form == CellForm::kSigned ? -0x8000 : 0;
  const std::uint16_t word = LowWord(number);
  return {word, word, number >= lowest && number <= 0xFFFF};
}

std::optional<ListNumber> ScaledNumber(std::string_view token, CellForm form) {
  const auto number = ParseFileDecimal(token);
  if (!number) return std::nullopt;
  // Before it is cut, the product is what double precision makes of it: a little below 2010 for
  // 2.01.
  const double thousandths = *number * 1000.0;
  constexpr double kLimit = 2147483647;
  if (std::abs(thousandths) > kLimit) return std::nullopt;
  const auto cut = static_cast<std::int64_t>(thousandths);
  const bool hundredths = form == CellForm::kHundredths;
  const std::int64_t loaded = hundredths ? cut / 10 : cut;
  const auto shown = static_cast<std::int64_t>(std::round(thousandths / (hundredths ? 10 : 1)));
  const bool fits = loaded >= 0 && loaded <= 0xFFFF;
  // At the ends the rounded number may lie beside the range though the cut one does not.
  return ListNumber{LowWord(loaded),
                    LowWord(fits ? std::clamp<std::int64_t>(shown, 0, 0xFFFF) : shown), fits};
}

std::optional<ListNumber> ParseToken(std::string_view token, CellForm form) {
  if (form == CellForm::kThousandths || form == CellForm::kHundredths) {
    return ScaledNumber(token, form);
  }
  if (form == CellForm::kUnsigned) {
    const auto number = ParseUnsigned(token);
    return number ? std::optional(WholeNumber(*number, form)) : std::nullopt;
  }
  const auto number = ParseSigned(token);
  return number ? std::optional(WholeNumber(*number, form)) : std::nullopt;
}

// With the element of the notes as the main position.
std::string NotesAt(const XmlDocument& document) {
  return ValidUtf8(document.GetAttribute("Text"));
}

class ConfigurationReader {
 public:
  ConfigurationReader(std::string text, const ConfigurationBlock& base, std::size_t routing_map)
      : routing_map_(routing_map) {
    document_.SetDocumentText(std::move(text));
    found_.block = found_.shown = base;
  }

  LoadedConfiguration Read() && {
    TakeFindings();
    if (ReadHead()) {
      ReadScalars();
      ReadTables();
      ReadRouting();
    }
    document_.ResetPosition();
    if (document_.FindElement("Notes")) found_.notes = NotesAt(document_);
    return std::move(found_);
  }

 private:
  void TakeFindings() {
    // As many as a question that quotes them has room for.
    constexpr std::size_t kMostFindings = 20;
    std::size_t count = 0;
    for (const Message& finding : document_.Findings()) {
      // The notes are one.
      if (finding == kSecondRootFinding) continue;
      if (++count <= kMostFindings) found_.damage.Append("\n", finding);
    }
    if (count > kMostFindings) {
      found_.damage.Append("\n", {FixedText::Of("and %1 more"), count - kMostFindings});
    }
  }

  template <typename... Values>
  void Fault(FixedText text, const Values&... values) {
    found_.faults.emplace_back(text, values...);
  }
  template <typename... Values>
  void Remark(FixedText text, const Values&... values) {
    found_.remarks.emplace_back(text, values...);
  }
  void MissingList(std::string_view label) {
    Remark(FixedText::Of("%1 is missing and keeps its values"), label);
  }

  // Makes the element at the end of `path`, which begins below Configuration_data, the main
  // position. Each search begins anew: the order of the elements has no meaning.
  bool Find(std::initializer_list<std::string_view> path) {
    document_.ResetPosition();
    if (!document_.FindElement(kConfigurationRoot) || !document_.FindChildElement(kData)) {
      return false;
    }
    document_.EnterElement();
    for (const std::string_view name : path) {
      if (!document_.FindChildElement(name)) return false;
      document_.EnterElement();
    }
    return true;
  }

  // The parts without which it is no configuration.
  bool ReadHead() {
    document_.ResetPosition();
    if (!document_.FindElement(kConfigurationRoot)) {
      Fault(FixedText::Of("There is no element %1"), kConfigurationRoot);
      return false;
    }
    if (const std::string version = document_.GetAttribute("Version");
        version != kConfigurationVersion) {
      Fault(FixedText::Of("The version is %1 and not %2"), Quoted(version),
            Quoted(kConfigurationVersion));
      return false;
    }
    const bool has_data = Find({});
    if (has_data && Find({kScalars})) return true;
    Fault(FixedText::Of("There is no element %1"), has_data ? kScalars : kData);
    return false;
  }

  void Put(std::size_t word, std::uint16_t mask, std::uint16_t loaded, std::uint16_t shown) {
    const auto put = [word, mask](ConfigurationBlock& block, std::uint16_t value) {
      block[word] = static_cast<std::uint16_t>((block[word] & ~mask) | (value & mask));
    };
    put(found_.block, loaded);
    put(found_.shown, shown);
    put(found_.given, kWholeWord);
  }
  void PutByte(std::size_t byte, std::uint8_t value) {
    const auto word = static_cast<std::uint16_t>(value | value << 8);
    Put(byte / 2, byte % 2 == 0 ? 0x00FF : 0xFF00, word, word);
  }

  // The parameter's number, when the file has one.
  std::optional<std::int32_t> Scalar(const Parameter& parameter) {
    const std::string text = document_.GetAttribute(parameter.name);
    if (text.empty()) {
      Remark(FixedText::Of("%1 is missing and keeps its value"), parameter.name);
      return std::nullopt;
    }
    const auto number = ParseSigned(text);
    if (!number) {
      Remark(FixedText::Of("%1 is %2, no whole number, and keeps its value"), parameter.name,
             Quoted(text));
    } else if (*number < 0 || *number > parameter.MaxValue()) {
      Remark(LowWord(*number) == *number
                 ? FixedText::Of("%1 is %2, which does not fit")
                 : FixedText::Of("%1 is %2, which does not fit, and is cut to 16 bits"),
             parameter.name, Excerpt(text));
    }
    return number;
  }

  void ReadScalars() {
    for (const Parameter& parameter : Parameters()) {
      if (parameter.bits != 16) continue;
      const auto number = Scalar(parameter);
      if (!number) continue;
      Put(parameter.word, kWholeWord, LowWord(*number), LowWord(*number));
    }
    ReadLambdaWord();
  }

  // Two parameters in one word: the flag's bit is moved up, the range laid over it, and neither is
  // cut to its bits before.
  void ReadLambdaWord() {
    const Parameter& inverse = *FindParameter("LAMBDA_INVERSE");
    const Parameter& range = *FindParameter("LAMBDA_OXYGENRANGE");
    const auto inverse_number = Scalar(inverse);
    const auto range_number = Scalar(range);
    const std::int64_t flag = inverse_number.value_or(GetParameter(found_.block, inverse));
    const std::int64_t low = range_number.value_or(GetParameter(found_.block, range));
    const std::uint16_t word = LowWord(flag * 0x8000 | low);
    found_.block[inverse.word] = found_.shown[inverse.word] = word;
    std::uint16_t& given = found_.given[inverse.word];
    if (inverse_number) given = inverse.PutInto(given, inverse.MaxValue());
    if (range_number) given = range.PutInto(given, range.MaxValue());
    if ((low & 0x8000) != 0) given = kWholeWord;
  }

  // Takes the list in the attribute `name` of the main element apart: `take(index, token)` for each
  // of at most `count` tokens. False when there is no such attribute.
  template <typename Take>
  bool ReadList(std::string_view label, std::string_view name, std::size_t count, Take take) {
    if (!document_.HasAttribute(name)) {
      MissingList(label);
      return false;
    }
    const std::string value = document_.GetAttribute(name);
    std::string_view rest = value;
    std::size_t index = 0;
    bool more = !rest.empty();
    for (; more && index < count; ++index) {
      // A single number is no list, whatever is in it.
      const std::size_t end = count == 1 ? rest.size() : std::min(rest.find(';'), rest.size());
      take(index, rest.substr(0, end));
      more = end < rest.size();
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (index < count && count == 1) {
      Remark(FixedText::Of("%1 has fewer than 1 value"), label);
    } else if (index < count || more) {
      Remark(more ? FixedText::Of("%1 has more than %2 values")
                  : FixedText::Of("%1 has fewer than %2 values"),
             label, count);
    }
    return true;
  }

  void BadToken(std::string_view label, std::size_t index, std::string_view token) {
    Fault(FixedText::Of("%1, value %2: %3 is no number that can be loaded"), label, index + 1,
          Quoted(token));
  }

  void ReadTables() {
    std::string_view element;
    bool present = false;
    for (const TableField& field : TableFields()) {
      const bool throttle = field.element != "GridParams";
      if (element != field.element) {
        element = field.element;
        present = throttle ? Find({"CorrTPS", element}) : Find({element});
        if (!present) MissingList(element);
      }
      if (!present) continue;
      const std::string label =
          (throttle ? std::string(element) + "." : "") + std::string(field.name);
      ReadList(label, field.name, field.count, [&](std::size_t index, std::string_view token) {
        const auto number = ParseToken(token, field.form);
        if (!number) {
          BadToken(label, index, token);
          return;
        }
        if (!number->fits) {
          Remark(FixedText::Of("%1, value %2: %3 is cut to 16 bits"), label, index + 1,
                 Excerpt(token));
        }
        Put(field.word + index, kWholeWord, number->loaded, number->shown);
      });
    }
  }

  // A byte of the routing: bits whose token is 0 or missing are cleared.
  void ReadBits(std::string_view label, std::string_view name, std::size_t byte,
                std::size_t count) {
    unsigned bits = 0;
    const bool present =
        ReadList(label, name, count, [&](std::size_t index, std::string_view token) {
          const auto number = ParseSigned(token);
          if (!number) BadToken(label, index, token);
          if (number.value_or(0) != 0) bits |= 1U << index;
        });
    if (present) PutByte(byte, static_cast<std::uint8_t>(bits));
  }

  void ReadRouting() {
    for (std::size_t petrol = 0; petrol < kRoutingInjectors; ++petrol) {
      const std::string label = "mapPinjs." + std::string(kPetrolInjectorNames[petrol]);
      if (!Find({"mapPinjs", kPetrolInjectorNames[petrol]})) {
        MissingList(label);
        continue;
      }
      for (std::size_t gas = 0; gas < kRoutingInjectors; ++gas) {
        const std::string_view name = kGasInjectorNames[gas];
        ReadBits(label + "." + std::string(name), name, RoutingByte(routing_map_, petrol, gas),
                 kRoutingBits);
      }
    }
    ReadSwappedInjectors();
    if (!Find({"mapPinjSet"})) {
      MissingList("mapPinjSet");
      return;
    }
    for (std::size_t i = 0; i < kRoutingInjectors; ++i) {
      const std::string_view name = kPetrolInjectorNames[i];
      ReadBits("mapPinjSet." + std::string(name), name, kFirstSetByte + i, kSetBits);
    }
  }

  void ReadSwappedInjectors() {
    if (!Find({"mapSwappedInjs"})) {
      MissingList("mapSwappedInjs");
      return;
    }
    for (std::size_t i = 0; i < kRoutingInjectors; ++i) {
      const std::string name = std::to_string(i);
      const std::string label = "mapSwappedInjs[" + name + "]";
      ReadList(label, name, 1, [&](std::size_t, std::string_view token) {
        const auto number = ParseSigned(token);
        if (!number) {
          BadToken(label, 0, token);
          return;
        }
        if (*number < 0 || *number > 0xFF) Remark(FixedText::Of("%1 is cut to 8 bits"), label);
        PutByte(kFirstSwappedByte + i, static_cast<std::uint8_t>(*number & 0xFF));
      });
    }
  }

  XmlDocument document_;
  const std::size_t routing_map_;
  LoadedConfiguration found_;
};

}  // namespace

ConfigurationBlock LoadedConfiguration::Over(const ConfigurationBlock& base) const {
  ConfigurationBlock result = base;
  for (std::size_t i = 0; i < kBlockWords; ++i) {
    result[i] = static_cast<std::uint16_t>((base[i] & ~given[i]) | (block[i] & given[i]));
  }
  return result;
}

LoadedConfiguration ReadConfigurationText(std::string text, const ConfigurationBlock& base,
                                          std::size_t routing_map) {
  return ConfigurationReader(std::move(text), base, routing_map).Read();
}

LoadedConfiguration ReadConfigurationFile(const std::filesystem::path& file,
                                          const ConfigurationBlock& base, std::size_t routing_map) {
  std::string text;
  Message reason;
  if (!ReadWholeFile(file, text, reason, kLargestConfiguration)) {
    LoadedConfiguration nothing;
    nothing.block = nothing.shown = base;
    nothing.faults.emplace_back(FixedText::Of("Cannot read %1: %2"), PathText(file), reason);
    return nothing;
  }
  return ReadConfigurationText(std::move(text), base, routing_map);
}

std::string ReadNotes(const std::filesystem::path& file) {
  XmlDocument document;
  if (!document.Load(file, kLargestConfiguration) || !document.FindElement("Notes")) return {};
  return NotesAt(document);
}

}  // namespace zelorgas
