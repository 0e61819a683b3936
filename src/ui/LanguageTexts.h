// The texts of another language from a library that hands over a compiled Qt translation through
// the exported function
//
//   extern "C" const unsigned char* ZelorGasTranslation(int* size);
//
// User-interface thread.
#pragma once

#include <QLibrary>
#include <QTranslator>
#include <string_view>

namespace zelorgas {

class LanguageTexts {
 public:
  LanguageTexts() = default;
  LanguageTexts(const LanguageTexts&) = delete;
  LanguageTexts& operator=(const LanguageTexts&) = delete;
  ~LanguageTexts();

  // Finds the library by its base name, beside the program first and last where the system looks
  // for libraries, and takes all texts from it from now on. False, and nothing changed, when there
  // is none or it has no texts.
  bool Load(std::string_view library);

 private:
  // The translation lies in the library's memory, so the library stays loaded.
  QLibrary library_;
  QTranslator translator_;
};

}  // namespace zelorgas
