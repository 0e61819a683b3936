// A field whose text counts once it is left or Enter is pressed; Escape brings the old text back.
// User-interface thread.
#pragma once

#include <QLineEdit>

namespace zelorgas {

class CEntryField : public QLineEdit {
  Q_OBJECT

 public:
  explicit CEntryField(QWidget* parent = nullptr);

  // Not over what is being typed.
  void Show(const QString& text);
  // Over whatever stands there.
  void ShowInstead(const QString& text);

 signals:
  // The person has entered this, the text on show perhaps: an earlier entry may still be on its
  // way.
  void Entered(const QString& text);

 protected:
  // Brings back what Show has said.
  void Restore();

  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Commit();

  QString shown_;  // without what the person has typed since
};

}  // namespace zelorgas
