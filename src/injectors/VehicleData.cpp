#include "injectors/VehicleData.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <iterator>
#include <optional>
#include <span>
#include <vector>

namespace zelorgas {
namespace {

constexpr std::string_view kMake = "Vehicle make: ";
constexpr std::string_view kModel = "Vehicle model: ";
constexpr std::string_view kEngineCode = "Engine code: ";
constexpr std::string_view kEngineSize = "Engine size (cc): ";
constexpr std::string_view kLineBreaks = "\r\n";

constexpr std::array<std::string_view, 4> kLabels{kMake, kModel, kEngineCode, kEngineSize};

// Without the line breaks.
std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::optional<unsigned> ReadSize(std::string_view digits) {
  unsigned size_cc = 0;
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, size_cc);
  if (read.ec != std::errc{} || read.ptr != end) return std::nullopt;
  return size_cc;
}

// The place among kLabels of the field that the line gives; the number of labels for the fitter's
// own lines.
std::size_t FieldOf(std::string_view line) {
  const auto label = std::ranges::find_if(
      kLabels, [line](std::string_view name) { return line.starts_with(name); });
  const bool size = label != kLabels.end() && *label == kEngineSize;
  if (size && !ReadSize(line.substr(kEngineSize.size()))) return kLabels.size();
  return static_cast<std::size_t>(std::distance(kLabels.begin(), label));
}

struct SplitNotes {
  std::vector<std::string_view> own;
  std::vector<std::string_view> vehicle;
};

SplitNotes Split(std::string_view notes) {
  SplitNotes split;
  split.own = LinesOf(notes);
  std::size_t next = kLabels.size();
  while (!split.own.empty()) {
    const std::size_t field = FieldOf(split.own.back());
    if (field >= next) break;
    next = field;
    split.vehicle.insert(split.vehicle.begin(), split.own.back());
    split.own.pop_back();
  }
  return split;
}

std::string Join(std::span<const std::string_view> lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) text += '\n';
    text += lines[i];
  }
  return text;
}

void AppendLine(std::string& notes, std::string_view label, std::string_view field) {
  if (field.empty()) return;
  if (!notes.empty()) notes += '\n';
  notes += label;
  for (const char c : field) notes += kLineBreaks.find(c) == std::string_view::npos ? c : ' ';
}

std::string LinesOfVehicle(const VehicleData& vehicle) {
  std::string lines;
  AppendLine(lines, kMake, vehicle.make);
  AppendLine(lines, kModel, vehicle.model);
  AppendLine(lines, kEngineCode, vehicle.engine_code);
  if (vehicle.engine_size_cc != 0) {
    AppendLine(lines, kEngineSize, std::to_string(vehicle.engine_size_cc));
  }
  return lines;
}

}  // namespace

std::string NotesWithVehicle(std::string_view notes, const VehicleData& vehicle) {
  const SplitNotes split = Split(notes);
  const std::string lines = LinesOfVehicle(vehicle);
  std::string text = Join(LinesOf(notes));
  if (lines.empty() || lines == Join(split.vehicle)) return text;
  if (!text.empty()) text += split.vehicle.empty() ? "\n" : "\n\n";
  return text + lines;
}

VehicleData VehicleOfNotes(std::string_view notes) {
  VehicleData vehicle;
  for (const std::string_view line : Split(notes).vehicle) {
    const std::size_t field = FieldOf(line);
    const std::string_view value = line.substr(kLabels.at(field).size());
    if (field == 0) vehicle.make = value;
    if (field == 1) vehicle.model = value;
    if (field == 2) vehicle.engine_code = value;
    if (field == 3) vehicle.engine_size_cc = ReadSize(value).value_or(0);
  }
  return vehicle;
}

std::string NotesWithoutVehicle(std::string_view notes) { return Join(Split(notes).own); }

}  // namespace zelorgas
