#include "ui/Text.h"

#include <QCoreApplication>

namespace zelorgas {

QString TranslatedMessage(std::string_view text) {
  // The empty text stands for a translation's own header.
  if (text.empty()) return {};
  return QCoreApplication::translate("Messages", std::string(text).c_str());
}

}  // namespace zelorgas
