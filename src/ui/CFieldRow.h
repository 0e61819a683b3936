// A row of a card: what a value means, a quiet name, and the widget that shows or edits it, which
// takes the name's place too where there is none. The columns of all rows stand below each other.
// User-interface thread.
#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QWidget>

namespace zelorgas {

class CFieldRow : public QWidget {
  Q_OBJECT

 public:
  CFieldRow(const QString& text, const QString& name, QWidget* parent);

  // The row takes the widget over. `object_name` is the widget's; a screen reader says the row's
  // text and name.
  void SetEditor(QWidget* editor, const QString& object_name, const QString& tooltip);
  // What the row is found by: its text, its name and what its tip says.
  [[nodiscard]] QString Words() const { return spoken_name_ + ' ' + toolTip(); }
  // A line below the row; none when empty.
  void SetNote(const QString& note);

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  // In a narrow row the name stands below the text.
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] int Width(const char* text) const;

  const QString spoken_name_;
  QHBoxLayout* columns_;
  QBoxLayout* labels_;  // text and name
  QLabel* text_;
  QLabel* note_;
};

}  // namespace zelorgas
