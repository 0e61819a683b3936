// Which live values the strip shows, and how each is read from the ECU image and written as text.
// Pure; who asks for a text holds the image or a copy of it.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "app/EcuImage.h"

namespace zelorgas {

struct LiveText {
  QString text;
  bool with_unit = true;  // false for a word in the value's place
};

struct LiveField {
  QString object_name;
  QString caption;
  QString unit;
  QString tooltip;  // what it is, and where the ECU keeps it
  std::function<LiveText(const EcuImage&)> text;
};

// The main strip.
[[nodiscard]] std::vector<LiveField> MainLiveFields();
// Petrol and gas injection times of the six cylinders: the extra channels.
[[nodiscard]] std::vector<LiveField> CylinderLiveFields();

}  // namespace zelorgas
