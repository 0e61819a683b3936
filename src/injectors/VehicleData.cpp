#include "injectors/VehicleData.h"

#include <algorithm>
#include <charconv>

namespace zelorgas {
namespace {

constexpr std::string_view kMake = "Vehicle make: ";
constexpr std::string_view kModel = "Vehicle model: ";
constexpr std::string_view kEngineCode = "Engine code: ";
constexpr std::string_view kEngineSize = "Engine size (cc): ";
constexpr std::string_view kLineBreaks = "\r\n";

// Calls `use` with each line, its line break taken off.
template <typename Use>
void ForEachLine(std::string_view text, Use use) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    use(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

// Takes what the line says of the vehicle; false when it is the fitter's own.
bool TakeLine(std::string_view line, VehicleData& vehicle) {
  const auto take_text = [line](std::string_view label, std::string& field) {
    if (!line.starts_with(label)) return false;
    field = line.substr(label.size());
    return true;
  };
  if (take_text(kMake, vehicle.make) || take_text(kModel, vehicle.model) ||
      take_text(kEngineCode, vehicle.engine_code)) {
    return true;
  }
  if (!line.starts_with(kEngineSize)) return false;
  const std::string_view digits = line.substr(kEngineSize.size());
  unsigned size_cc = 0;
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, size_cc);
  if (read.ec != std::errc{} || read.ptr != end) return false;
  vehicle.engine_size_cc = size_cc;
  return true;
}

void AppendLine(std::string& notes, std::string_view label, std::string_view field) {
  if (field.empty()) return;
  if (!notes.empty()) notes += '\n';
  notes += label;
  for (const char c : field) notes += kLineBreaks.find(c) == std::string_view::npos ? c : ' ';
}

}  // namespace

std::string NotesWithVehicle(std::string_view notes, const VehicleData& vehicle) {
  std::string text = NotesWithoutVehicle(notes);
  AppendLine(text, kMake, vehicle.make);
  AppendLine(text, kModel, vehicle.model);
  AppendLine(text, kEngineCode, vehicle.engine_code);
  if (vehicle.engine_size_cc != 0) {
    AppendLine(text, kEngineSize, std::to_string(vehicle.engine_size_cc));
  }
  return text;
}

VehicleData VehicleOfNotes(std::string_view notes) {
  VehicleData vehicle;
  ForEachLine(notes, [&](std::string_view line) { TakeLine(line, vehicle); });
  return vehicle;
}

std::string NotesWithoutVehicle(std::string_view notes) {
  std::string text;
  bool first = true;
  ForEachLine(notes, [&](std::string_view line) {
    VehicleData ignored;
    if (TakeLine(line, ignored)) return;
    if (!first) text += '\n';
    text += line;
    first = false;
  });
  return text;
}

}  // namespace zelorgas
