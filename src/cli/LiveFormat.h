// A moment's live values as a line of a table, as a line of comma-separated values and as JSON. The
// columns are the same in all three. Pure functions; no locale.
#pragma once

#include <string>

#include "app/EcuImage.h"
#include "cli/JsonWriter.h"

namespace zelorgas {

struct LiveSample {
  double seconds = 0;  // since the first
  EcuImage image;
};

// Names and units above the columns of LiveLine: two lines.
[[nodiscard]] std::string LiveHeader();
// "-" stands for the value of a sensor that is not fitted.
[[nodiscard]] std::string LiveLine(const LiveSample& sample);

// "time_s,engine_speed_rpm,...". No column needs quotes.
[[nodiscard]] std::string LiveCsvHeader();
// With a decimal point; the value of a sensor that is not fitted is empty.
[[nodiscard]] std::string LiveCsvLine(const LiveSample& sample);

// An object with the columns' names of the CSV as keys; null for a sensor that is not fitted.
[[nodiscard]] JsonWriter LiveJson(const LiveSample& sample);

}  // namespace zelorgas
