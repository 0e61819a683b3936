// Fixed texts of the program's start: why it cannot, what its documents are called, its title.
// Pure, safe from any thread, but for UseLocaleOfUser.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Message.h"
#include "platform/SystemStart.h"

namespace zelorgas {

// What to show before the program ends; empty for kNone.
[[nodiscard]] FixedText StartFailureText(StartFailure failure);

// Makes the user's own locale that of the process. Once, before other threads run.
void UseLocaleOfUser();

// The parts of the document template's string, in their order.
enum class DocumentString : std::uint8_t {
  kWindowTitle,   // "ZelorGAS"
  kDocumentName,  // empty: a new document has no name of its own
  kNewName,       // "ZelorGAS"
  kFilterName,    // "ZelorGAS Files (*.fob)"
  kExtension,     // ".fob"
  kFileTypeId,    // "zelorgas.Document"
  kFileTypeName,  // "zelorgas.Document"
};
[[nodiscard]] std::string_view TemplateString(DocumentString part);

// The main window's title for the document of that name.
[[nodiscard]] std::string WindowTitle(std::string_view document);

}  // namespace zelorgas
