// What a fitter writes down about the vehicle. The ECU has no place for it: it is kept at the end
// of the notes of the stored file, one line a field in the order of the fields. A line of the same
// look elsewhere in the notes is the fitter's own. Pure functions.
#pragma once

#include <string>
#include <string_view>

namespace zelorgas {

struct VehicleData {
  std::string make;
  std::string model;
  std::string engine_code;
  unsigned engine_size_cc = 0;  // 0: not entered

  friend bool operator==(const VehicleData&, const VehicleData&) = default;
};

// The notes with the vehicle's lines behind the text, unless they stand there already; nothing is
// taken away. A field that is empty gets no line, and a line break inside a field becomes a blank.
// An empty line keeps apart what would be taken for lines of this vehicle.
[[nodiscard]] std::string NotesWithVehicle(std::string_view notes, const VehicleData& vehicle);

// The vehicle that the notes name; empty fields where they do not.
[[nodiscard]] VehicleData VehicleOfNotes(std::string_view notes);

// The notes without the vehicle's lines.
[[nodiscard]] std::string NotesWithoutVehicle(std::string_view notes);

}  // namespace zelorgas
