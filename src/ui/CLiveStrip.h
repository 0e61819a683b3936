// A strip of live values that stays visible on every page. New data only marks it dirty; it
// repaints at most 25 times a second, and not at all while it is hidden.
#pragma once

#include <QTimer>
#include <QWidget>
#include <vector>

#include "app/ClpgecuDoc.h"
#include "ui/CValueTile.h"
#include "ui/LiveFields.h"

namespace zelorgas {

class CLiveStrip final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kRefreshMs = 40;

  // `document` outlives the strip. `columns`: how many tiles may stand in a row, most first; the
  // first number that fits the width is taken.
  CLiveStrip(const QString& object_name, const QString& title, ClpgecuDoc& document,
             std::vector<LiveField> fields, std::vector<int> columns, QWidget* parent = nullptr);

  // There is something new in the image.
  void MarkDirty();
  // The values on show are those of a link that is down.
  void MarkStale();
  // Shows no values: there is no connection.
  void Clear();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Refresh();
  void Arrange();
  void MeasureTiles();

  ClpgecuDoc& document_;
  const std::vector<LiveField> fields_;
  const std::vector<int> columns_;
  std::vector<CValueTile*> tiles_;
  QSize tile_size_;  // what the tile with the most to say needs
  QTimer timer_;
  bool dirty_ = false;
};

}  // namespace zelorgas
