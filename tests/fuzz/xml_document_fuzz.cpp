// Any text as a document: walking, reading and editing it is memory-safe, and where the text is
// well-formed an edited document's index is what a fresh parse of its text gives.
#include <cstdint>
#include <cstdlib>

#include "support/XmlDump.h"

namespace {

using zelorgas::XmlDocument;

void Edit(XmlDocument& document, std::uint8_t choice) {
  switch (choice % 7) {
    case 0:
      document.AddElement("e");
      break;
    case 1:
      static_cast<void>(document.AddChildElement("e", "<&]]>"));
      break;
    case 2:
      static_cast<void>(document.SetAttribute("\r\n\tn", choice));
      break;
    case 3:
      static_cast<void>(document.SetChildAttribute("new", "\"'>"));
      break;
    case 4:
      static_cast<void>(document.SetText("]]>", zelorgas::XmlTextForm::kCdata));
      break;
    case 5:
      static_cast<void>(document.EnterElement());
      break;
    default:
      if (!document.FindChildElement("e") && !document.FindElement("e")) document.LeaveElement();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  XmlDocument document;
  document.SetDocumentText(text);
  const bool well_formed =
      document.ErrorText().empty() || document.ErrorText() == "Root element has sibling";
  zelorgas::XmlDump(document);
  // The text's own characters say how it is edited.
  constexpr std::size_t kEdits = 16;
  for (std::size_t i = 0; i < size && i < kEdits; ++i) Edit(document, data[size - 1 - i]);
  const std::string edited = zelorgas::XmlDump(document);
  if (well_formed) {
    XmlDocument fresh;
    fresh.SetDocumentText(document.Text());
    if (zelorgas::XmlDump(fresh) != edited) std::abort();
  }
  return 0;
}
