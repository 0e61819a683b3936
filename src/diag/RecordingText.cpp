#include "diag/RecordingText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <utility>

#include "config/Utf8Text.h"
#include "diag/ScopeNumbers.h"

namespace zelorgas {
namespace {

constexpr std::string_view kRoot = "GASECUOscilloscope";
constexpr std::string_view kConfigurationRoot = "GASECUConfiguration";
constexpr std::string_view kData = "Osc_data";
constexpr std::string_view kNotes = "Notes";
constexpr std::string_view kVersion = "1.00";

// Gives the first piece that is no number.
std::optional<std::string_view> SplitSamples(std::string_view list, std::deque<double>& samples) {
  std::optional<std::string_view> wrong;
  while (!list.empty()) {
    const std::string_view piece = list.substr(0, list.find(';'));
    list.remove_prefix(std::min(piece.size() + 1, list.size()));
    if (const std::optional<double> sample = ReadDecimal(piece)) {
      samples.push_back(*sample);
    } else if (!wrong) {
      wrong = piece;
    }
  }
  return wrong;
}

FixedText WhyNoRecording(XmlDocument& document) {
  document.ResetPosition();
  if (document.FindElement(kConfigurationRoot)) {
    return FixedText::Of("The file is a configuration, not a recording");
  }
  return FixedText::Of("The file is not a recording");
}

void AddDetail(Message& detail, Message text) { detail.Append("; ", std::move(text)); }

void ReadChannels(const XmlDocument& document, RecordingContents& contents) {
  std::string missing;
  for (std::size_t i = 0; i < kScopeChannels; ++i) {
    const std::string name(ScopeChannelTable()[i].name);
    if (!document.HasChildAttribute(name)) {
      if (!missing.empty()) missing += ", ";
      missing += name;
      continue;
    }
    const std::string list = document.GetChildAttribute(name);
    if (const auto wrong = SplitSamples(list, contents.traces.channels[i])) {
      constexpr std::size_t kShownBytes = 20;
      contents.fault = RecordingFault::kIncomplete;
      AddDetail(contents.detail, {FixedText::Of("Channel %1: \"%2\" is no number"), name,
                                  Shortened(ValidUtf8(std::string(*wrong)), kShownBytes)});
    }
  }
  if (missing.empty()) return;
  contents.fault = RecordingFault::kIncomplete;
  AddDetail(contents.detail, {FixedText::Of("Missing: %1"), missing});
}

}  // namespace

XmlDocument RecordingDocument(const ScopeTraces& traces) {
  XmlDocument document;
  document.SetDocumentText("<?xml version=\"1.0\"?>\r\n");
  document.AddElement(kRoot);
  document.SetAttribute("\r\n\tVersion", kVersion);
  document.AddChildElement(kData);
  for (std::size_t i = 0; i < kScopeChannels; ++i) {
    document.SetChildAttribute("\r\n\t" + std::string(ScopeChannelTable()[i].name),
                               JoinHundredths(traces.channels[i]));
  }
  document.AddChildElement(kNotes);
  document.SetChildAttribute("\r\n\t\tText", ValidUtf8(traces.notes));
  return document;
}

RecordingContents ReadRecording(XmlDocument& document) {
  RecordingContents contents;
  document.ResetPosition();
  if (!document.FindElement(kRoot)) {
    contents.detail = WhyNoRecording(document);
  } else if (const std::string version = document.GetAttribute("Version"); version != kVersion) {
    contents.detail = {FixedText::Of("The recording's version is \"%1\", not \"1.00\""), version};
  } else if (!document.FindChildElement(kData)) {
    contents.detail = FixedText::Of("The recording has no data");
  }
  contents.fault = contents.detail.empty() ? RecordingFault::kNone : RecordingFault::kNoRecording;
  if (contents.fault == RecordingFault::kNone) {
    ReadChannels(document, contents);
    document.ResetPosition();
    if (document.FindElement(kRoot) && document.FindChildElement(kNotes)) {
      contents.traces.notes = ValidUtf8(document.GetChildAttribute("Text"));
    } else {
      contents.fault = RecordingFault::kIncomplete;
      AddDetail(contents.detail, {FixedText::Of("Missing: %1"), std::string(kNotes)});
    }
  }
  if (!document.Findings().empty()) {
    if (contents.fault == RecordingFault::kNone) contents.fault = RecordingFault::kIncomplete;
    AddDetail(contents.detail, document.Findings().front());
  }
  return contents;
}

std::string RecordingCsv(const ScopeTraces& traces) {
  std::string csv = "seconds_ago";
  for (const ScopeChannelInfo& channel : ScopeChannelTable()) {
    csv.append(",").append(channel.name);
  }
  csv += '\n';
  constexpr std::size_t kNumberCharacters = 32;
  std::array<char, kNumberCharacters> number{};
  for (std::size_t moment = 0; moment < traces.Length(); ++moment) {
    // The period is a tenth: counting tenths keeps the times free of binary fractions.
    csv += std::to_string(moment / 10) + '.' + std::to_string(moment % 10);
    for (const std::optional<double> value : ScopeReadOut(traces, moment)) {
      csv += ',';
      if (!value) continue;
      const auto written = std::to_chars(number.data(), number.data() + number.size(), *value);
      csv.append(number.data(), written.ptr);
    }
    csv += '\n';
  }
  return csv;
}

}  // namespace zelorgas
