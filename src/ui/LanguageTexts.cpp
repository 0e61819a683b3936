#include "ui/LanguageTexts.h"

#include <QCoreApplication>

#include "ui/Text.h"

namespace zelorgas {
namespace {

using TranslationFunction = const unsigned char* (*)(int*);
constexpr const char* kTranslationFunction = "ZelorGasTranslation";

}  // namespace

LanguageTexts::~LanguageTexts() { QCoreApplication::removeTranslator(&translator_); }

bool LanguageTexts::Load(std::string_view library) {
  const QString own_folder = QCoreApplication::applicationDirPath();
  // Beside the program; where a package puts it; where the system looks.
  for (const QString& folder : {own_folder + '/', own_folder + "/../lib/zelorgas/", QString()}) {
    library_.setFileName(folder + ToQString(library));
    if (library_.load()) break;
  }
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): a library has plain functions
  const auto texts = reinterpret_cast<TranslationFunction>(library_.resolve(kTranslationFunction));
  if (texts == nullptr) return false;
  int size = 0;
  const unsigned char* const data = texts(&size);
  return data != nullptr && translator_.load(data, size) &&
         QCoreApplication::installTranslator(&translator_);
}

}  // namespace zelorgas
