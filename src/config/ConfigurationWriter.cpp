// From the block to the file.
#include <algorithm>
#include <array>
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

// Each attribute of a start tag stands on a line of its own.
constexpr std::string_view kAttributeIndent = "\r\n\t";

// The scalars in the order of the file: that of their words, but for three that stand behind their
// relatives.
constexpr auto kMovedScalars = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"TSPEEDUP", "TOFF_HOLDFREQ_INJ"},
    {"TOFF_HOLDFREQ_INJ", "TONINJ_MIN"},
    {"RPM_RATIO", "RPM_RATIO_MUL"},
});

class ConfigurationWriter {
 public:
  ConfigurationWriter(const ConfigurationBlock& block, std::size_t routing_map)
      : block_(block), routing_map_(routing_map) {
    document_.SetDocumentText("<?xml version=\"1.0\"?>\r\n");
  }

  std::string Write(std::string_view notes) && {
    document_.AddElement(kConfigurationRoot);
    Attribute("Version", kConfigurationVersion);
    Begin("Configuration_data");
    Begin("CommonParams");
    WriteScalars();
    End();
    Begin("GridParams");
    WriteTables("GridParams");
    End();
    Begin("CorrTPS");
    for (const std::string_view element : {"CorrTPSAcc", "CorrTPSDec"}) {
      Begin(element);
      WriteTables(element);
      End();
    }
    End();
    WriteRouting();
    document_.ResetPosition();
    static_cast<void>(document_.FindElement(kConfigurationRoot));
    document_.AddElement("Notes");
    document_.SetAttribute("\r\n\t\tText", ValidUtf8(std::string(notes)));
    return document_.Text();
  }

 private:
  // A child of the element that was begun last.
  void Begin(std::string_view element) {
    document_.AddChildElement(element);
    document_.EnterElement();
  }
  void End() { document_.LeaveElement(); }

  void Attribute(std::string_view name, std::string_view value) {
    name_ = kAttributeIndent;
    name_ += name;
    document_.SetAttribute(name_, value);
  }

  void WriteScalar(const Parameter& parameter) {
    value_.clear();
    AppendInteger(value_, GetParameter(block_, parameter));
    Attribute(parameter.name, value_);
    for (const auto& [leader, follower] : kMovedScalars) {
      if (leader == parameter.name) WriteScalar(*FindParameter(follower));
    }
  }

  void WriteScalars() {
    const auto is_moved = [](std::string_view name) {
      return std::ranges::any_of(kMovedScalars,
                                 [name](const auto& moved) { return moved.second == name; });
    };
    for (const Parameter& parameter : Parameters()) {
      if (!is_moved(parameter.name)) WriteScalar(parameter);
    }
  }

  void AppendWord(CellForm form, std::uint16_t word) {
    if (form == CellForm::kThousandths) {
      AppendFixed(value_, word / 1000.0, 2);
    } else if (form == CellForm::kHundredths) {
      AppendFixed(value_, word / 100.0, 2);
    } else if (form == CellForm::kSigned) {
      AppendInteger(value_, static_cast<std::int16_t>(word));
    } else {
      AppendInteger(value_, word);
    }
  }

  void WriteTables(std::string_view element) {
    for (const TableField& field : TableFields()) {
      if (field.element != element) continue;
      value_.clear();
      for (std::size_t i = 0; i < field.count; ++i) {
        if (i != 0) value_ += ';';
        AppendWord(field.form, block_[field.word + i]);
      }
      Attribute(field.name, value_);
    }
  }

  void WriteBits(std::string_view name, std::size_t byte, std::size_t count) {
    value_.clear();
    AppendBits(value_, BlockByte(block_, byte), count);
    Attribute(name, value_);
  }

  void WriteRouting() {
    Begin("mapPinjs");
    for (std::size_t petrol = 0; petrol < kRoutingInjectors; ++petrol) {
      Begin(kPetrolInjectorNames[petrol]);
      for (std::size_t gas = 0; gas < kRoutingInjectors; ++gas) {
        WriteBits(kGasInjectorNames[gas], RoutingByte(routing_map_, petrol, gas), kRoutingBits);
      }
      End();
    }
    End();
    Begin("mapSwappedInjs");
    for (std::size_t i = 0; i < kRoutingInjectors; ++i) {
      value_.clear();
      AppendInteger(value_, BlockByte(block_, kFirstSwappedByte + i));
      Attribute(std::to_string(i), value_);
    }
    End();
    Begin("mapPinjSet");
    for (std::size_t i = 0; i < kRoutingInjectors; ++i) {
      WriteBits(kPetrolInjectorNames[i], kFirstSetByte + i, kSetBits);
    }
    End();
  }

  const ConfigurationBlock& block_;
  const std::size_t routing_map_;
  XmlDocument document_;
  std::string name_;
  std::string value_;
};

}  // namespace

std::string ConfigurationText(const ConfigurationBlock& block, std::size_t routing_map,
                              std::string_view notes) {
  return ConfigurationWriter(block, routing_map).Write(notes);
}

bool WriteConfigurationFile(const std::filesystem::path& file, const ConfigurationBlock& block,
                            std::size_t routing_map, std::string_view notes, Message& problem) {
  const std::string text = ConfigurationText(block, routing_map, notes);
  if (text.size() > kLargestConfiguration) {
    problem = {FixedText::Of("Cannot write %1: the notes are too long"), PathText(file)};
    return false;
  }
  if (!CreateFolderOf(file, problem)) return false;
  Message reason;
  if (WriteWholeFile(file, text, reason)) return true;
  problem = {FixedText::Of("Cannot write %1: %2"), PathText(file), reason};
  return false;
}

}  // namespace zelorgas
