// A plot of curves over one horizontal axis: the only place that knows the plotting library. It
// follows the palette, draws nothing while hidden, and can be zoomed and moved by mouse and
// keyboard where that is switched on. User-interface thread.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>
#include <QVector>
#include <QWidget>
#include <cstddef>
#include <optional>
#include <vector>

class QCustomPlot;
class QCPGraph;
class QCPItemStraightLine;

namespace zelorgas {

class CPlot final : public QWidget {
  Q_OBJECT

 public:
  CPlot(const QString& object_name, const QString& accessible_name, QWidget* parent = nullptr);

  void SetAxisTitles(const QString& horizontal, const QString& vertical);
  // What the axes show when nobody has zoomed.
  void SetRange(double left, double right, double bottom, double top);
  // How far apart the horizontal axis has its marks, and the smaller ones between them, while
  // nobody has zoomed.
  void SetDivisions(double major, double minor);
  // The names of the curves that there are in a line above the plot.
  void ShowLegend();

  // Gives the number of the curve. `dashed` is for curves of the past.
  std::size_t AddCurve(const QString& name, const QColor& colour, bool dashed = false);
  // Points from left to right; drawn with the next Redraw.
  void SetPoints(std::size_t curve, const QVector<double>& x, const QVector<double>& y);
  void ShowCurve(std::size_t curve, bool show);

  // A vertical line at `x`; without a value there is none.
  void SetCursor(std::optional<double> x);
  // How far an arrow key points from the cursor; with Shift ten times as far.
  void SetCursorStep(double step) { cursor_step_ = step; }

  // Wheel and drag, and the keys plus, minus, Home and the arrows, with Control where they have a
  // cursor to move. What is shown stays within the range. Switching it off returns to the range.
  void SetInteractive(bool on);

  // The curves and the cursor. Soon, and once however often it is called; not while the plot is
  // hidden.
  void Redraw();

  // What is shown as the bytes of a file: "pdf", or a picture format. Empty where there is no such
  // format.
  [[nodiscard]] QByteArray Picture(const QString& format);

 signals:
  // The person points at this place of the horizontal axis, by mouse or keyboard.
  void PointedAt(double x);

 protected:
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  // The axes show that the keys work here.
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void FollowPalette();
  void FitMarks();
  void FitLegend();
  void DrawCurves();
  void RedrawAll();
  void ShowDivisions();
  void ResetRange();
  void Zoom(double factor);
  void Move(double share_of_range);
  void MoveCursor(double distance);
  [[nodiscard]] bool Zoomed() const;
  void KeepWithinRange();

  QCustomPlot* plot_;
  QCPItemStraightLine* cursor_;
  std::vector<QCPGraph*> curves_;
  double left_ = 0;
  double right_ = 1;
  double bottom_ = 0;
  double top_ = 1;
  double major_ = 0;  // 0: as it suits the range
  double minor_ = 0;
  bool divided_ = false;    // into those divisions at this moment
  double cursor_step_ = 0;  // 0: the arrow keys move the plot
  bool interactive_ = false;
  bool dirty_ = true;  // drawn when it is shown
  bool curves_due_ = false;
};

}  // namespace zelorgas
