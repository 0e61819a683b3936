#include "maps/GridClipboard.h"

#include <vector>

#include "maps/DecimalNumber.h"
#include "maps/GridEdits.h"

namespace zelorgas {
namespace {

using Row = std::vector<double>;
using Block = std::vector<Row>;

// The text up to the next `separator`; `rest` becomes what is behind it, and `more` whether there
// was one.
std::string_view NextPart(std::string_view& rest, char separator, bool& more) {
  const std::size_t end = rest.find(separator);
  more = end != std::string_view::npos;
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(more ? end + 1 : rest.size());
  return part;
}

Message Quantity(std::size_t count, FixedText one, FixedText more) {
  return count == 1 ? one : Message(more, count);
}
Message Cells(std::size_t count) {
  return Quantity(count, FixedText::Of("1 cell"), FixedText::Of("%1 cells"));
}
Message Rows(std::size_t count) {
  return Quantity(count, FixedText::Of("1 row"), FixedText::Of("%1 rows"));
}
Message Columns(std::size_t count) {
  return Quantity(count, FixedText::Of("1 column"), FixedText::Of("%1 columns"));
}

std::optional<Block> ParseBlock(std::string_view text, Message& message) {
  // Spreadsheets end the last line too.
  text = text.substr(0, text.find_last_not_of("\r\n") + 1);
  constexpr std::size_t kLongest = 64 * std::size_t{1024};
  if (text.size() > kLongest) {
    message = FixedText::Of("The pasted text is too long for the grid!");
    return std::nullopt;
  }
  if (Trimmed(text).empty()) {
    message = FixedText::Of("There is nothing to paste!");
    return std::nullopt;
  }
  Block block;
  bool more_lines = true;
  while (more_lines) {
    std::string_view line = NextPart(text, '\n', more_lines);
    Row& row = block.emplace_back();
    bool more_fields = true;
    while (more_fields) {
      const std::string_view field = NextPart(line, '\t', more_fields);
      const std::optional<double> value = ParseDecimal(Trimmed(field));
      if (!value) {
        message = {FixedText::Of("Row %1, column %2 of the pasted text: \"%3\" is not a number!"),
                   block.size(), row.size() + 1, Trimmed(field)};
        return std::nullopt;
      }
      row.push_back(*value);
    }
    if (row.size() != block.front().size()) {
      message = {FixedText::Of("The rows of the pasted text differ in length: row 1 has %1, row %2 "
                               "has %3!"),
                 Cells(block.front().size()), block.size(), row.size()};
      return std::nullopt;
    }
  }
  return block;
}

}  // namespace

std::string CopyBlock(const GridMatrix& matrix, std::span<const GridCell> cells) {
  if (cells.empty()) return {};
  const auto [first, last] = RectangleAround(cells);
  std::string text;
  for (std::size_t row = first.row; row <= last.row; ++row) {
    for (std::size_t column = first.column; column <= last.column; ++column) {
      text += CoefficientText(matrix[row][column]);
      text += column == last.column ? '\n' : '\t';
    }
  }
  return text;
}

std::optional<CItemStepList> PlaceBlock(std::string_view text, std::span<const GridCell> cells,
                                        Message& message) {
  if (cells.empty()) {
    message = FixedText::Of("Select the cell at which the pasted block begins!");
    return std::nullopt;
  }
  const std::optional<Block> block = ParseBlock(text, message);
  if (!block) return std::nullopt;
  CItemStepList points;
  if (block->size() == 1 && block->front().size() == 1) {
    for (const GridCell cell : cells) {
      points.push_back({cell.row, cell.column, block->front().front()});
    }
    return points;
  }
  const GridCell first = RectangleAround(cells).first;
  const std::size_t columns = block->front().size();
  if (first.row + block->size() > kGridSize || first.column + columns > kGridSize) {
    message = {FixedText::Of("The pasted block has %1 and %2; from the selected cell on there is "
                             "room for %3 and %4!"),
               Rows(block->size()), Columns(columns), kGridSize - first.row,
               kGridSize - first.column};
    return std::nullopt;
  }
  for (std::size_t row = 0; row < block->size(); ++row) {
    for (std::size_t column = 0; column < columns; ++column) {
      points.push_back({static_cast<std::uint16_t>(first.row + row),
                        static_cast<std::uint16_t>(first.column + column), (*block)[row][column]});
    }
  }
  return points;
}

}  // namespace zelorgas
