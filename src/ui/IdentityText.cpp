#include "ui/IdentityText.h"

#include "ui/Text.h"

namespace zelorgas {

QString VersionText(Version version) { return ToQString(FormatVersion(version)); }

QString SerialText(const EcuIdentity& identity) {
  return identity.serial ? ToQString(FormatSerialNumber(*identity.serial)) : QString(kNoValue);
}

QString BoardText(const EcuIdentity& identity) {
  if (!identity.board) return kNoValue;
  const auto& words = *identity.board;
  return QString::asprintf("0x%04X 0x%04X 0x%04X", words[0], words[1], words[2]);
}

}  // namespace zelorgas
