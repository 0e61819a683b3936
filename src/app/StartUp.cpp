#include "app/StartUp.h"

#include <clocale>

namespace zelorgas {
namespace {

constexpr std::string_view kDocumentTemplate =
    "ZelorGAS\n\nZelorGAS\nZelorGAS Files (*.fob)\n.fob\nzelorgas.Document\nzelorgas.Document";

}  // namespace

FixedText StartFailureText(StartFailure failure) {
  switch (failure) {
    case StartFailure::kSockets:
      return FixedText::Of("Windows sockets initialization failed.");
    case StartFailure::kOle:
      return FixedText::Of(
          "OLE initialization failed.  Make sure that the OLE libraries are the correct version.");
    case StartFailure::kNone:
      break;
  }
  return {};
}

void UseLocaleOfUser() {
  // A locale that is not installed leaves the one there is.
  static_cast<void>(std::setlocale(LC_ALL, ""));  // NOLINT(concurrency-mt-unsafe): no threads yet
}

std::string_view TemplateString(DocumentString part) {
  std::string_view rest = kDocumentTemplate;
  for (auto i = static_cast<std::uint8_t>(part); i > 0; --i) {
    rest.remove_prefix(rest.find('\n') + 1);
  }
  return rest.substr(0, rest.find('\n'));
}

std::string WindowTitle(std::string_view document) {
  return "ZELOR GASECU - [" + std::string(document) + "]";
}

}  // namespace zelorgas
