// Which cells of a table are selected: a rectangle between the cell where the selection began and
// the cursor. Plain data; user-interface thread.
#pragma once

#include <vector>

namespace zelorgas {

// Counted from 0, without the headers.
struct TableCell {
  int row = 0;
  int column = 0;

  friend bool operator==(const TableCell&, const TableCell&) = default;
};

class CellSelection {
 public:
  // Of a table with at least one cell; the first one is selected.
  CellSelection(int rows, int columns) : rows_(rows), columns_(columns) {}

  [[nodiscard]] TableCell Cursor() const { return cursor_; }
  [[nodiscard]] TableCell First() const;  // the corner with the lowest row and column
  [[nodiscard]] TableCell Last() const;
  [[nodiscard]] bool Contains(TableCell cell) const;
  // Row by row.
  [[nodiscard]] std::vector<TableCell> Cells() const;

  // The cursor goes to `cell`, or as near as the table allows; with `extend` the selection follows
  // it, else it is that cell alone.
  void MoveTo(TableCell cell, bool extend);
  void MoveBy(int rows, int columns, bool extend);
  void SelectRow(int row);
  void SelectColumn(int column);
  void SelectAll();

 private:
  int rows_;
  int columns_;
  TableCell begin_;
  TableCell cursor_;
};

}  // namespace zelorgas
