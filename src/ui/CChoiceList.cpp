#include "ui/CChoiceList.h"

#include <QAbstractItemView>
#include <QWheelEvent>
#include <utility>

namespace zelorgas {

CChoiceList::CChoiceList(QWidget* parent) : QComboBox(parent) { view()->installEventFilter(this); }

void CChoiceList::ShowEntry(int index, const QString& without) {
  when_closed_.reset();
  if (view()->isVisible()) {
    when_closed_ = Entry{index, without};
    return;
  }
  setPlaceholderText(without);
  setCurrentIndex(index);
}

bool CChoiceList::eventFilter(QObject* watched, QEvent* event) {
  // A choice made in the list comes behind this and takes its place; it is what the list then
  // marks.
  if (watched == view() && event->type() == QEvent::Hide && when_closed_) {
    const Entry entry = *std::exchange(when_closed_, std::nullopt);
    const QModelIndex marked = view()->currentIndex();
    setPlaceholderText(entry.without);
    setCurrentIndex(entry.index);
    view()->setCurrentIndex(marked);
  }
  return QComboBox::eventFilter(watched, event);
}

void CChoiceList::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace zelorgas
