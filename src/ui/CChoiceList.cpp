#include "ui/CChoiceList.h"

#include <QAbstractItemView>
#include <QWheelEvent>

namespace zelorgas {

void CChoiceList::ShowEntry(int index, const QString& without) {
  if (view()->isVisible()) return;
  setPlaceholderText(without);
  setCurrentIndex(index);
}

void CChoiceList::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace zelorgas
