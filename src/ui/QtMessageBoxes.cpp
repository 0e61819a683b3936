#include "ui/QtMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>

#include "app/StartUp.h"
#include "config/Utf8Text.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

QMessageBox::Icon QtIcon(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kInformation:
      return QMessageBox::Information;
    case MessageIcon::kExclamation:
      return QMessageBox::Warning;
    case MessageIcon::kError:
      return QMessageBox::Critical;
    case MessageIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

// Modal until answered; gives the button, or none when the box has gone with its dialog.
// A dialog that holds the window has its boxes in front of itself.
int Show(QWidget* window, QMessageBox::Icon icon, const Message& text,
         QMessageBox::StandardButtons buttons) {
  // A box with a long list in front of its question; a taller one leaves the screen.
  constexpr std::size_t kLongest = 4000;
  constexpr std::size_t kMostLines = 40;
  QWidget* const dialog = QApplication::activeModalWidget();
  // A dialog that asks about an ECU is deleted with the connection, and its boxes with it.
  const QPointer<QMessageBox> box = new QMessageBox(
      icon, ToQString(TemplateString(DocumentString::kWindowTitle)),
      ToQString(Shortened(TranslatedMessage(text).toStdString(), kLongest, kMostLines)), buttons,
      dialog != nullptr ? dialog : window);
  box->setObjectName("message_box");
  box->setAccessibleName(box->text());
  // The texts are plain; "<=>" in one must not be taken for a tag.
  box->setTextFormat(Qt::PlainText);
  box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  const int button = box->exec();
  delete box;
  return button;
}

}  // namespace

void QtMessageBoxes::Inform(const Message& text, MessageIcon icon) {
  Show(window_, QtIcon(icon), text, QMessageBox::Ok);
}

bool QtMessageBoxes::Ask(const Message& text) {
  return Show(window_, QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No) ==
         QMessageBox::Yes;
}

void QtMessageBoxes::Status(const Message& text) {
  constexpr std::size_t kLongest = 400;
  emit StatusText(ToQString(Shortened(WordsOf(text), kLongest, /*most_lines=*/1)));
}

std::string QtMessageBoxes::WordsOf(const Message& text) const {
  return TranslatedMessage(text).toStdString();
}

}  // namespace zelorgas
