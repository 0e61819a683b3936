// Any text as what a person edits or pastes and what an ECU says of itself: settings keep every
// line and hold what is set, a pasted block is in the grid and reads back, a revision has its
// numbers.
#include <cstdint>
#include <cstdlib>

#include "app/Identification.h"
#include "maps/GridClipboard.h"
#include "platform/IniText.h"

namespace {

using zelorgas::IniText;

void Check(bool holds) {
  if (!holds) std::abort();
}

void Settings(const std::string& text) {
  std::optional<IniText> ini = IniText::Parse(text);
  if (!ini) return;
  const std::string line = text.substr(0, text.find('\n'));
  if (!ini->SetValue(line, "key", text)) Check(ini->SetValue("section", "key", line));
  const std::optional<IniText> again = IniText::Parse(ini->Text());
  Check(again && again->Text() == ini->Text());
  Check(again->Value(line, "key") == text || again->Value("section", "key") == line);
}

void Pasted(const std::string& text) {
  zelorgas::Message message;
  const zelorgas::GridCell cell{.row = 3, .column = 5};
  const std::optional<zelorgas::CItemStepList> block = PlaceBlock(text, {&cell, 1}, message);
  Check(block || !message.empty());
  if (!block) return;
  zelorgas::GridMatrix matrix = zelorgas::DefaultCoefficients();
  std::vector<zelorgas::GridCell> cells;
  for (const zelorgas::C3Dpoint& point : *block) {
    Check(point.Cell().InGrid());
    matrix[point.row][point.column] = point.value;
    cells.push_back(point.Cell());
  }
  const std::string copied = CopyBlock(matrix, cells);
  const auto pasted = PlaceBlock(copied, {&cell, 1}, message);
  Check(pasted && pasted->size() == block->size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  Settings(text);
  Pasted(text);
  static_cast<void>(zelorgas::ParseRevision(text));
  return 0;
}
