// A small table of numbers with a header row and a header column, edited as in a spreadsheet:
// cursor and rectangular selection by keyboard and mouse, typing over a cell, F2 to change it. It
// shows what it is told and never changes a cell by itself: what a person has typed goes out as a
// signal. All of it is painted in one go, and only what has changed. User-interface thread.
#pragma once

#include <QColor>
#include <QWidget>
#include <cstddef>
#include <vector>

#include "ui/CCellEditor.h"
#include "ui/CellSelection.h"

namespace zelorgas {

class CCellTable : public QWidget {
  Q_OBJECT

 public:
  struct Shape {
    int rows;
    int columns;
    QString widest_text;  // as cells usually have it; that sets the size of all
    QString first_keys;   // the characters with which typing over a cell may begin
  };
  CCellTable(const QString& object_name, const QString& accessible_name, const Shape& shape,
             QWidget* parent = nullptr);

  void SetCorner(const QString& text);
  void SetRowHeader(int row, const QString& text);
  void SetColumnHeader(int column, const QString& text);
  // Without a colour the cell has that of a text field. `plain` is what editing starts from, where
  // the text has a unit.
  void SetCell(TableCell cell, const QString& text, const QColor& colour = {},
               const QString& plain = {});
  void SetTip(TableCell cell, const QString& tip) { At(cell).tip = tip; }

  [[nodiscard]] const QString& Text(TableCell cell) const { return At(cell).text; }
  [[nodiscard]] const CellSelection& Selection() const { return selection_; }
  void MoveCursor(TableCell cell, bool extend = false);
  void SelectAll();
  // Where the cell is, in the widget's coordinates.
  [[nodiscard]] QRect CellRect(TableCell cell) const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 signals:
  // The person has typed this over the cell.
  void Entered(TableCell cell, const QString& text);

 protected:
  // Paints above the cells, below the cursor.
  virtual void PaintOver(QPainter& /*painter*/) {}
  // Where row and column `row`, `column` begin; between the cells where they are not whole.
  [[nodiscard]] QPointF PlaceAt(double row, double column) const;
  [[nodiscard]] QRect CellArea() const;  // all cells, without the headers
  [[nodiscard]] int Rows() const { return rows_; }
  [[nodiscard]] int Columns() const { return columns_; }

  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  struct Cell {
    QString text;
    QString plain;
    QColor colour;
    QString tip;
  };

  [[nodiscard]] Cell& At(TableCell cell) { return cells_[IndexOf(cell)]; }
  [[nodiscard]] const Cell& At(TableCell cell) const { return cells_[IndexOf(cell)]; }
  [[nodiscard]] std::size_t IndexOf(TableCell cell) const {
    return static_cast<std::size_t>(cell.row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(cell.column);
  }
  // Row -1 and column -1 are the headers.
  [[nodiscard]] TableCell CellAt(QPoint place) const;
  void SetHeader(QString& header, const QString& text);
  void StartEditing(const QString& text, CCellEditor::Start start);
  void FinishEditing(const QString& text, int row_step, int column_step);
  template <typename Change>
  void ChangeSelection(Change change);
  void SayCursor();
  // Takes the key when it moves the cursor or the selection.
  bool MoveByKey(const QKeyEvent& event);

  void ChooseFont();
  void PaintHeaders(QPainter& painter, const QRegion& region);
  void PaintCells(QPainter& painter, const QRegion& region);
  void PaintSelection(QPainter& painter);
  [[nodiscard]] QColor TextColour(const QColor& usual) const;

  const int rows_;
  const int columns_;
  const QString widest_text_;
  const QString first_keys_;
  QString corner_;
  std::vector<QString> row_headers_;
  std::vector<QString> column_headers_;
  std::vector<Cell> cells_;
  CellSelection selection_;
  TableCell edited_;
  CCellEditor* editor_;
  QFont cell_font_;
  QFont header_font_;
  int header_width_ = 0;
};

}  // namespace zelorgas
