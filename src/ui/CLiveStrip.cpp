#include "ui/CLiveStrip.h"

#include <QEvent>
#include <utility>

#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kGap = 6;

}  // namespace

CLiveStrip::CLiveStrip(const QString& object_name, const QString& title, ClpgecuDoc& document,
                       std::vector<LiveField> fields, std::vector<int> columns, QWidget* parent)
    : QWidget(parent),
      document_(document),
      fields_(std::move(fields)),
      columns_(std::move(columns)) {
  setObjectName(object_name);
  setAccessibleName(title);
  for (const LiveField& field : fields_) {
    auto* const tile = new CValueTile(field.object_name, field.caption, field.unit, this);
    tile->setToolTip(field.tooltip);
    tiles_.push_back(tile);
  }
  MeasureTiles();
  timer_.setSingleShot(true);
  timer_.setInterval(kRefreshMs);
  connect(&timer_, &QTimer::timeout, this, &CLiveStrip::Refresh);
}

void CLiveStrip::MarkDirty() {
  dirty_ = true;
  if (isVisible() && !timer_.isActive()) timer_.start();
}

void CLiveStrip::MarkStale() {
  Refresh();
  for (CValueTile* const tile : tiles_) tile->MarkStale();
}

void CLiveStrip::Clear() {
  dirty_ = false;
  timer_.stop();
  for (CValueTile* const tile : tiles_) {
    tile->Show(kNoValue, false, CValueTile::Freshness::kStale);
  }
}

void CLiveStrip::Refresh() {
  if (!dirty_ || !isVisible()) return;
  dirty_ = false;
  const EcuImage image = document_.Snapshot();
  for (std::size_t i = 0; i < tiles_.size(); ++i) {
    const LiveText value = fields_[i].text(image);
    tiles_[i]->Show(value.text, value.with_unit, CValueTile::Freshness::kLive);
  }
}

void CLiveStrip::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Arrange();
  Refresh();
}

void CLiveStrip::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange();
}

void CLiveStrip::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::FontChange) return;
  MeasureTiles();
  Arrange();
}

void CLiveStrip::MeasureTiles() {
  tile_size_ = {};
  for (const CValueTile* const tile : tiles_) tile_size_ = tile_size_.expandedTo(tile->sizeHint());
  setMinimumWidth(columns_.back() * (tile_size_.width() + kGap) - kGap);
}

void CLiveStrip::Arrange() {
  const QSize least = tile_size_;
  int columns = columns_.back();
  for (const int wanted : columns_) {
    if (wanted * (least.width() + kGap) - kGap > width()) continue;
    columns = wanted;
    break;
  }
  const int count = static_cast<int>(tiles_.size());
  const int rows = (count + columns - 1) / columns;
  for (int i = 0; i < count; ++i) {
    // The edges are computed, not the widths, so that no pixel is left over at the end of a row.
    const int left = (i % columns) * (width() + kGap) / columns;
    const int right = (i % columns + 1) * (width() + kGap) / columns - kGap;
    tiles_[static_cast<std::size_t>(i)]->setGeometry(left, (i / columns) * (least.height() + kGap),
                                                     right - left, least.height());
  }
  setFixedHeight(rows * (least.height() + kGap) - kGap);
}

}  // namespace zelorgas
