#include <gtest/gtest.h>

#include "injectors/VehicleData.h"

namespace zelorgas {
namespace {

TEST(VehicleData, LivesInTheNotes) {
  const VehicleData vehicle{"Tarn", "Combi 1.9", "AXB", 1896};
  const std::string notes = NotesWithVehicle("first line\n\nVehicle is red", vehicle);
  EXPECT_EQ(notes,
            "first line\n\nVehicle is red\nVehicle make: Tarn\nVehicle model: Combi 1.9\n"
            "Engine code: AXB\nEngine size (cc): 1896");
  EXPECT_EQ(VehicleOfNotes(notes), vehicle);
  EXPECT_EQ(NotesWithoutVehicle(notes), "first line\n\nVehicle is red");
  // Stored once more the vehicle is there once, however the lines end.
  std::string other_line_ends;
  for (const char c : notes) other_line_ends += c == '\n' ? std::string("\r\n") : std::string(1, c);
  EXPECT_EQ(NotesWithVehicle(other_line_ends, vehicle), notes);
}

TEST(VehicleData, LeavesTheFittersOwnLinesAlone) {
  const VehicleData vehicle{"", "Combi", "", 1896};
  const std::string lines = "Vehicle model: Combi\nEngine size (cc): 1896";
  // The notes, and what stands between them and the vehicle's lines.
  const std::pair<const char*, const char*> cases[] = {
      {"Engine code: AXB\nas the plate says", "\n"},
      {"Vehicle make: Tarn", "\n\n"},
      {"Engine code: AXB\nVehicle make: Tarn", "\n\n"},
  };
  for (const auto& [own, between] : cases) {
    const std::string notes = NotesWithVehicle(own, vehicle);
    EXPECT_EQ(notes, own + (between + lines));
    EXPECT_EQ(VehicleOfNotes(notes), vehicle) << own;
    EXPECT_EQ(NotesWithVehicle(NotesWithoutVehicle(notes), vehicle), notes);
  }
}

TEST(VehicleData, WhatIsNotThereStaysEmpty) {
  EXPECT_EQ(VehicleOfNotes(""), VehicleData{});
  EXPECT_EQ(NotesWithVehicle("", {}), "");
  EXPECT_EQ(NotesWithVehicle("", {"a\nEngine size (cc): 9", "", "", 0}),
            "Vehicle make: a Engine size (cc): 9");
  for (const char* const size : {"", "many", "12 cc", "-5", "99999999999"}) {
    const std::string line = "Engine size (cc): " + std::string(size);
    EXPECT_EQ(VehicleOfNotes(line), VehicleData{}) << size;
    EXPECT_EQ(NotesWithoutVehicle(line), line) << "the fitter's own words stay";
  }
}

}  // namespace
}  // namespace zelorgas
