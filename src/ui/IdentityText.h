// How what identification found is written. Pure.
#pragma once

#include <QString>

#include "app/Identification.h"

namespace zelorgas {

// "00.39"
[[nodiscard]] QString VersionText(Version version);
// "ECU123456"; dashes when the ECU has none.
[[nodiscard]] QString SerialText(const EcuIdentity& identity);
// Three hexadecimal words; dashes when the ECU has none.
[[nodiscard]] QString BoardText(const EcuIdentity& identity);

}  // namespace zelorgas
