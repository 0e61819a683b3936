#include "ui/Text.h"

#include <QCoreApplication>

namespace zelorgas {

QString Capitalised(QString text) {
  if (!text.isEmpty()) text[0] = text[0].toUpper();
  return text;
}

QString TranslatedMessage(FixedText text) { return TranslatedName(text.English()); }

QString TranslatedMessage(const Message& message) {
  return ToQString(
      message.In([](FixedText text) { return TranslatedMessage(text).toStdString(); }));
}

QString TranslatedName(std::string_view name) {
  // The empty text stands for a translation's own header.
  if (name.empty()) return {};
  const std::string english(name);
  // lupdate names the class now with its namespace and now without.
  QString words = QCoreApplication::translate("zelorgas::FixedText", english.c_str());
  if (words == ToQString(name)) words = QCoreApplication::translate("FixedText", english.c_str());
  return words;
}

}  // namespace zelorgas
