#include "ui/CellSelection.h"

#include <algorithm>

namespace zelorgas {

TableCell CellSelection::First() const {
  return {std::min(begin_.row, cursor_.row), std::min(begin_.column, cursor_.column)};
}

TableCell CellSelection::Last() const {
  return {std::max(begin_.row, cursor_.row), std::max(begin_.column, cursor_.column)};
}

bool CellSelection::Contains(TableCell cell) const {
  const TableCell first = First();
  const TableCell last = Last();
  return cell.row >= first.row && cell.row <= last.row && cell.column >= first.column &&
         cell.column <= last.column;
}

std::vector<TableCell> CellSelection::Cells() const {
  const TableCell first = First();
  const TableCell last = Last();
  std::vector<TableCell> cells;
  for (int row = first.row; row <= last.row; ++row) {
    for (int column = first.column; column <= last.column; ++column) cells.push_back({row, column});
  }
  return cells;
}

void CellSelection::MoveTo(TableCell cell, bool extend) {
  cursor_ = {std::clamp(cell.row, 0, rows_ - 1), std::clamp(cell.column, 0, columns_ - 1)};
  if (!extend) begin_ = cursor_;
}

void CellSelection::MoveBy(int rows, int columns, bool extend) {
  MoveTo({cursor_.row + rows, cursor_.column + columns}, extend);
}

void CellSelection::SelectRow(int row) {
  begin_ = {row, columns_ - 1};
  cursor_ = {row, 0};
}

void CellSelection::SelectColumn(int column) {
  begin_ = {rows_ - 1, column};
  cursor_ = {0, column};
}

void CellSelection::SelectAll() {
  begin_ = {rows_ - 1, columns_ - 1};
  cursor_ = {0, 0};
}

}  // namespace zelorgas
