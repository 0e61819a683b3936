// recording_work WORK FILE TIMES [SAMPLES]: writes or reads a recording of 12 channels of SAMPLES
// (6,400) samples TIMES times, nothing else. bench/run counts the instructions; two counts with
// different TIMES give the cost of one file.
//   save, load            with this program
//   save-peer, load-peer  with pugixml and the numbers of the C++ library
// recording_work time FILE: the times of both, by turns.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <map>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "Table.h"
#include "diag/RecordingFile.h"
#include "platform/FileSystem.h"

namespace {

using zelorgas::ScopeTraces;

constexpr std::size_t kSamples = 6400;

ScopeTraces MakeTraces(std::size_t samples) {
  ScopeTraces traces;
  unsigned chance = 1;
  for (auto& channel : traces.channels) {
    for (std::size_t i = 0; i < samples; ++i) {
      chance = chance * 1664525U + 1013904223U;
      channel.push_back(static_cast<double>(chance >> 18U) / 1000.0);
    }
  }
  traces.notes = "idle, warm";
  return traces;
}

void Require(bool done) {
  if (!done) std::exit(1);
}

std::size_t SaveRecording(const ScopeTraces& traces, const std::string& file) {
  zelorgas::Message reason;
  Require(zelorgas::WriteRecording(traces, file, reason));
  return 1;
}

std::size_t SaveRecordingPeer(const ScopeTraces& traces, const std::string& file) {
  pugi::xml_document document;
  pugi::xml_node root = document.append_child("GASECUOscilloscope");
  root.append_attribute("Version").set_value("1.00");
  pugi::xml_node data = root.append_child("Osc_data");
  std::array<char, 32> number{};
  for (std::size_t i = 0; i < zelorgas::kScopeChannels; ++i) {
    std::string list;
    list.reserve(traces.channels[i].size() * 6);
    for (const double sample : traces.channels[i]) {
      if (!list.empty()) list += ';';
      const long hundredths = std::lround(sample * 100);
      auto end = std::to_chars(number.data(), number.data() + number.size(), hundredths / 100).ptr;
      *end++ = '.';
      *end++ = static_cast<char>('0' + hundredths / 10 % 10);
      *end++ = static_cast<char>('0' + hundredths % 10);
      list.append(number.data(), end);
    }
    const std::string name(zelorgas::ScopeChannelTable()[i].name);
    data.append_attribute(name.c_str()).set_value(list.c_str());
  }
  root.append_child("Notes").append_attribute("Text").set_value(traces.notes.c_str());
  // Both files are written so that they are there after a power failure.
  struct StringWriter final : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override {
      text.append(static_cast<const char*>(data), size);
    }
  } writer;
  document.save(writer, "\t", pugi::format_indent_attributes);
  zelorgas::Message reason;
  Require(zelorgas::WriteWholeFile(file, writer.text, reason));
  return writer.text.size();
}

std::size_t LoadRecording(const std::string& file) {
  const zelorgas::RecordingContents contents = zelorgas::LoadRecordingFile(file);
  Require(contents.fault == zelorgas::RecordingFault::kNone);
  return contents.traces.Length();
}

std::size_t LoadRecordingPeer(const std::string& file) {
  pugi::xml_document document;
  Require(document.load_file(file.c_str()));
  const pugi::xml_node data = document.child("GASECUOscilloscope").child("Osc_data");
  std::array<std::vector<double>, zelorgas::kScopeChannels> channels;
  for (std::size_t i = 0; i < zelorgas::kScopeChannels; ++i) {
    const std::string name(zelorgas::ScopeChannelTable()[i].name);
    const std::string_view list = data.attribute(name.c_str()).value();
    const char* at = list.data();
    const char* const end = at + list.size();
    while (at < end) {
      double value = 0;
      const auto [stop, error] = std::from_chars(at, end, value);
      Require(error == std::errc());
      channels[i].push_back(value);
      at = stop + 1;
    }
  }
  return channels[0].size();
}

using Works = std::map<std::string, std::function<std::size_t()>, std::less<>>;

// Of the processor: how long the disk takes is the same for both, and different every time.
double Milliseconds(const std::function<std::size_t()>& work) {
  const std::clock_t start = std::clock();
  Require(work() != 0);
  return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// The best of many runs by turns: what else the machine does makes a run longer, never shorter.
bool CompareTimes(const Works& works) {
  constexpr int kRuns = 60;
  constexpr double kGoal = 1.5;
  bool reached = true;
  for (const std::string work : {"load", "save"}) {
    double ours = 1e9;
    double peers = 1e9;
    for (int run = 0; run < kRuns; ++run) {
      ours = std::min(ours, Milliseconds(works.at(work)));
      peers = std::min(peers, Milliseconds(works.at(work + "-peer")));
    }
    reached &= zelorgas::PrintRow(work + " a recording, time", zelorgas::Quantity(ours, "ms", 2),
                                  zelorgas::Quantity(peers, "ms pugixml", 2), ours / peers, kGoal);
  }
  return reached;
}

}  // namespace

int main(int argc, char** argv) {
  constexpr int kWithSamples = 5;
  if (argc < 3 || argc > kWithSamples) return 2;
  const std::string work = argv[1];
  const std::string file = argv[2];
  const ScopeTraces traces =
      MakeTraces(argc == kWithSamples ? std::strtoul(argv[4], nullptr, 10) : kSamples);
  const Works works{
      {"save", [&] { return SaveRecording(traces, file); }},
      {"save-peer", [&] { return SaveRecordingPeer(traces, file); }},
      {"load", [&] { return LoadRecording(file); }},
      {"load-peer", [&] { return LoadRecordingPeer(file); }},
  };
  if (work == "time") {
    SaveRecording(traces, file);
    return CompareTimes(works) ? 0 : 1;
  }
  const auto found = works.find(work);
  if (found == works.end() || argc < 4) return 2;
  const long times = std::strtol(argv[3], nullptr, 10);
  std::size_t total = 0;
  for (long i = 0; i < times; ++i) total += found->second();
  std::printf("%zu\n", total);
  return 0;
}
