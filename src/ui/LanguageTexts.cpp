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
  library_.setFileName(ToQString(library));
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): a library has plain functions
  const auto texts = reinterpret_cast<TranslationFunction>(library_.resolve(kTranslationFunction));
  if (texts == nullptr) return false;
  int size = 0;
  const unsigned char* const data = texts(&size);
  return data != nullptr && translator_.load(data, size) &&
         QCoreApplication::installTranslator(&translator_);
}

}  // namespace zelorgas
