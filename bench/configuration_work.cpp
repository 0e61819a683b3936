// configuration_work WORK FILE TIMES: writes or reads the configuration file FILE TIMES times,
// nothing else, as this program does or (WORK with "-peer" behind it) with pugixml, which turns
// every number of the block into text and back as well. bench/run counts the instructions; two
// counts with different TIMES give the cost of one file.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "config/BlockCells.h"
#include "config/ConfigurationFile.h"
#include "config/Parameters.h"
#include "platform/FileSystem.h"

namespace {

using zelorgas::CellForm;
using zelorgas::ConfigurationBlock;

void Require(bool done) {
  if (!done) std::abort();
}

// Long numbers, and notes that make it 13 KB.
ConfigurationBlock MakeBlock() {
  ConfigurationBlock block{};
  for (std::size_t i = 0; i < block.size(); ++i) {
    block[i] = static_cast<std::uint16_t>(10007 + 91 * i);
  }
  return block;
}
const std::string& Notes() {
  static const std::string kNotes(5500, 'n');
  return kNotes;
}

const char* Name(std::string_view name) { return name.data(); }  // all of them are literals

// pugixml takes neither names of digits alone nor brackets in them.
constexpr std::array<const char*, zelorgas::kRoutingInjectors> kDigitNames = {"_0", "_1", "_2",
                                                                              "_3", "_4", "_5"};

const std::vector<std::string>& TableNames() {
  static const std::vector<std::string> kNames = [] {
    std::vector<std::string> made;
    for (const zelorgas::TableField& field : zelorgas::TableFields()) {
      std::string& name = made.emplace_back(field.name);
      std::ranges::replace(name, '[', '_');
      std::ranges::replace(name, ']', '_');
    }
    return made;
  }();
  return kNames;
}

struct PeerWriter {
  pugi::xml_node node;
  std::string list{};

  void Number(double value, int decimals) {
    std::array<char, 32> digits{};
    char* const end = digits.data() + digits.size();
    const auto written = decimals == 0 ? std::to_chars(digits.data(), end, static_cast<int>(value))
                                       : std::to_chars(digits.data(), end, value,
                                                       std::chars_format::fixed, decimals);
    if (!list.empty()) list += ';';
    list.append(digits.data(), written.ptr);
  }
  void Word(CellForm form, std::uint16_t word) {
    if (form == CellForm::kThousandths) return Number(word / 1000.0, 2);
    if (form == CellForm::kHundredths) return Number(word / 100.0, 2);
    Number(form == CellForm::kSigned ? static_cast<std::int16_t>(word) : word, 0);
  }
  void Attribute(const char* name) {
    node.append_attribute(name).set_value(list.c_str());
    list.clear();
  }
  void Bits(const char* name, unsigned bits, std::size_t count) {
    for (std::size_t bit = 0; bit < count; ++bit) Number((bits >> bit) & 1U, 0);
    Attribute(name);
  }
};

void SavePeer(const ConfigurationBlock& block, const std::string& file) {
  pugi::xml_document document;
  pugi::xml_node root = document.append_child("GASECUConfiguration");
  root.append_attribute("Version").set_value("1.00");
  pugi::xml_node data = root.append_child("Configuration_data");
  PeerWriter writer{data.append_child("CommonParams")};
  for (const zelorgas::Parameter& parameter : zelorgas::Parameters()) {
    writer.Word(CellForm::kUnsigned, zelorgas::GetParameter(block, parameter));
    writer.Attribute(Name(parameter.name));
  }
  pugi::xml_node throttle = data.append_child("CorrTPS");
  const auto fields = zelorgas::TableFields();
  for (std::size_t number = 0; number < fields.size(); ++number) {
    const zelorgas::TableField& field = fields[number];
    pugi::xml_node parent = field.element == "GridParams" ? data : throttle;
    writer.node = parent.child(Name(field.element));
    if (!writer.node) writer.node = parent.append_child(Name(field.element));
    for (std::size_t i = 0; i < field.count; ++i) writer.Word(field.form, block[field.word + i]);
    writer.Attribute(TableNames()[number].c_str());
  }
  pugi::xml_node maps = data.append_child("mapPinjs");
  for (std::size_t petrol = 0; petrol < zelorgas::kRoutingInjectors; ++petrol) {
    writer.node = maps.append_child(Name(zelorgas::kPetrolInjectorNames[petrol]));
    for (std::size_t gas = 0; gas < zelorgas::kRoutingInjectors; ++gas) {
      writer.Bits(Name(zelorgas::kGasInjectorNames[gas]),
                  zelorgas::BlockByte(block, zelorgas::RoutingByte(0, petrol, gas)), 8);
    }
  }
  pugi::xml_node swapped = data.append_child("mapSwappedInjs");
  pugi::xml_node sets = data.append_child("mapPinjSet");
  for (std::size_t i = 0; i < zelorgas::kRoutingInjectors; ++i) {
    writer.node = swapped;
    writer.Number(zelorgas::BlockByte(block, zelorgas::kFirstSwappedByte + i), 0);
    writer.Attribute(kDigitNames[i]);
    writer.node = sets;
    writer.Bits(Name(zelorgas::kPetrolInjectorNames[i]),
                zelorgas::BlockByte(block, zelorgas::kFirstSetByte + i), 6);
  }
  document.append_child("Notes").append_attribute("Text").set_value(Notes().c_str());
  Require(document.save_file(file.c_str(), "\t", pugi::format_indent_attributes));
}

// Calls `take(index, token)` for each value of the list.
template <typename Take>
void ForEachToken(const char* list, Take take) {
  std::size_t index = 0;
  for (char* end = nullptr; *list != '\0'; list = *end == ';' ? end + 1 : end) {
    end = take(index++, list);
    Require(end != list);
  }
}

void LoadPeer(ConfigurationBlock& block, const std::string& file) {
  pugi::xml_document document;
  Require(document.load_file(file.c_str()));
  const pugi::xml_node data = document.child("GASECUConfiguration").child("Configuration_data");
  const pugi::xml_node common = data.child("CommonParams");
  for (const zelorgas::Parameter& parameter : zelorgas::Parameters()) {
    char* end = nullptr;
    const long value = std::strtol(common.attribute(Name(parameter.name)).value(), &end, 10);
    zelorgas::SetParameter(block, parameter, static_cast<std::uint16_t>(value));
  }
  const auto fields = zelorgas::TableFields();
  for (std::size_t number = 0; number < fields.size(); ++number) {
    const zelorgas::TableField& field = fields[number];
    const pugi::xml_node parent = field.element == "GridParams" ? data : data.child("CorrTPS");
    const char* const list =
        parent.child(Name(field.element)).attribute(TableNames()[number].c_str()).value();
    ForEachToken(list, [&](std::size_t index, const char* token) {
      char* end = nullptr;
      const bool decimal =
          field.form == CellForm::kThousandths || field.form == CellForm::kHundredths;
      const long value = decimal ? static_cast<long>(std::strtod(token, &end) * 1000.0)
                                 : std::strtol(token, &end, 10);
      block[field.word + index] =
          static_cast<std::uint16_t>(field.form == CellForm::kHundredths ? value / 10 : value);
      return end;
    });
  }
  const auto take_byte = [&](const char* list, std::size_t byte) {
    unsigned bits = 0;
    ForEachToken(list, [&](std::size_t index, const char* token) {
      char* end = nullptr;
      if (std::strtol(token, &end, 10) != 0) bits |= 1U << index;
      return end;
    });
    zelorgas::SetBlockByte(block, byte, static_cast<std::uint8_t>(bits));
  };
  for (std::size_t petrol = 0; petrol < zelorgas::kRoutingInjectors; ++petrol) {
    const char* const name = Name(zelorgas::kPetrolInjectorNames[petrol]);
    const pugi::xml_node map = data.child("mapPinjs").child(name);
    for (std::size_t gas = 0; gas < zelorgas::kRoutingInjectors; ++gas) {
      take_byte(map.attribute(Name(zelorgas::kGasInjectorNames[gas])).value(),
                zelorgas::RoutingByte(0, petrol, gas));
    }
    take_byte(data.child("mapPinjSet").attribute(name).value(), zelorgas::kFirstSetByte + petrol);
    const pugi::xml_attribute swapped = data.child("mapSwappedInjs").attribute(kDigitNames[petrol]);
    const long value = std::strtol(swapped.value(), nullptr, 10);
    zelorgas::SetBlockByte(block, zelorgas::kFirstSwappedByte + petrol,
                           static_cast<std::uint8_t>(value));
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const std::string_view work = argv[1];
  const std::string file = argv[2];
  ConfigurationBlock block = MakeBlock();
  zelorgas::Message problem;
  for (long times = std::strtol(argv[3], nullptr, 10); times > 0; --times) {
    if (work == "store") {
      Require(zelorgas::WriteConfigurationFile(zelorgas::PathFromText(file), block, 0, Notes(),
                                               problem));
    } else if (work == "store-peer") {
      SavePeer(block, file);
    } else if (work == "load") {
      const auto loaded = zelorgas::ReadConfigurationFile(zelorgas::PathFromText(file), block, 0);
      Require(loaded.Usable() && loaded.remarks.empty());
      block = loaded.shown;
    } else if (work == "load-peer") {
      LoadPeer(block, file);
    } else {
      return 2;
    }
  }
  std::printf("%u\n", static_cast<unsigned>(block[114]));
  return 0;
}
