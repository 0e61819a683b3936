#include "ui/CValueTile.h"

#include <QPainter>
#include <QPixmapCache>

#include "ui/Colours.h"
#include "ui/Fonts.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr double kCaptionSize = 0.85;
constexpr double kValueSize = 2.0;
constexpr double kSmallestValueSize = 1.0;
constexpr double kUnitSize = 1.0;
constexpr double kHinting = 0.96;  // letters do not shrink quite in proportion
constexpr double kCornerRadius = 5;

}  // namespace

CValueTile::CValueTile(const QString& object_name, const QString& caption, QString unit,
                       QWidget* parent)
    : QWidget(parent), caption_(caption), unit_(std::move(unit)), value_(kNoValue) {
  setObjectName(object_name);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName(caption);
  setAccessibleDescription(value_);
}

void CValueTile::Show(const QString& value, bool with_unit, Freshness freshness) {
  if (value == value_ && with_unit == with_unit_ && freshness == freshness_) return;
  value_ = value;
  with_unit_ = with_unit && !unit_.isEmpty();
  freshness_ = freshness;
  setAccessibleDescription(with_unit_ ? value_ + ' ' + unit_ : value_);
  update();
}

QFont CValueTile::CaptionFont() const { return Scaled(font(), kCaptionSize); }

QFont CValueTile::ValueFont() const {
  QFont large = Scaled(font(), kValueSize);
  large.setWeight(QFont::DemiBold);
  return large;
}

int CValueTile::Margin() const { return fontMetrics().height() * 2 / 5; }

QSize CValueTile::sizeHint() const {
  const QFontMetrics caption(CaptionFont());
  const QFontMetrics value(ValueFont());
  // Four figures, with a point in between or with the unit behind them.
  const int unit = QFontMetrics(Scaled(font(), kUnitSize)).horizontalAdvance(' ' + unit_);
  const int width = qMax(caption.horizontalAdvance(caption_),
                         qMax(value.horizontalAdvance(QStringLiteral("00.00")),
                              value.horizontalAdvance(QStringLiteral("0000")) + unit));
  return {width + 2 * Margin(), caption.height() + value.height() + Margin()};
}

void CValueTile::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  surrounding_ = {};
}

void CValueTile::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  surrounding_ = {};
}

QRect CValueTile::Inside() const {
  return rect().adjusted(Margin(), Margin() / 2, -Margin(), -Margin() / 2);
}

// The card without its texts, the same for all tiles of a strip.
QPixmap CValueTile::EmptyCard() const {
  const QString key = QStringLiteral("value_tile %1 %2 %3 %4")
                          .arg(width())
                          .arg(height())
                          .arg(devicePixelRatioF())
                          .arg(palette().cacheKey());
  QPixmap card;
  if (QPixmapCache::find(key, &card)) return card;
  card = QPixmap((QSizeF(size()) * devicePixelRatioF()).toSize());
  card.setDevicePixelRatio(devicePixelRatioF());
  card.fill(palette().color(QPalette::Window));
  QPainter painter(&card);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(BorderColour(palette()));
  painter.setBrush(CardColour(palette()));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius,
                          kCornerRadius);
  painter.end();
  QPixmapCache::insert(key, card);
  return card;
}

void CValueTile::DrawSurrounding() {
  surrounding_ = EmptyCard();
  QPainter painter(&surrounding_);
  painter.setPen(CaptionColour(palette()));
  painter.setFont(CaptionFont());
  painter.drawText(Inside(), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, caption_);
}

void CValueTile::paintEvent(QPaintEvent*) {
  if (surrounding_.isNull() || surrounding_.devicePixelRatio() != devicePixelRatioF()) {
    DrawSurrounding();
  }
  QPainter painter(this);
  painter.drawPixmap(0, 0, surrounding_);

  const QRect inside = Inside();
  const QColor quiet = CaptionColour(palette());
  const QFont unit_font = Scaled(font(), kUnitSize);
  const QString unit = with_unit_ ? ' ' + unit_ : QString();
  const int room = inside.width() - QFontMetrics(unit_font).horizontalAdvance(unit);
  // A word ("Economical"), or a number with a long unit, may need smaller letters.
  QFont value_font = ValueFont();
  const int wanted = QFontMetrics(value_font).horizontalAdvance(value_);
  if (wanted > room) {
    value_font =
        Scaled(value_font, qMax(kHinting * room / wanted, kSmallestValueSize / kValueSize));
  }
  const int baseline = inside.bottom() - QFontMetrics(ValueFont()).descent();
  const bool live = freshness_ == Freshness::kLive && isEnabled();
  painter.setFont(value_font);
  painter.setPen(live ? palette().color(QPalette::Active, QPalette::Text) : quiet);
  painter.drawText(inside.left(), baseline, value_);
  painter.setFont(unit_font);
  painter.setPen(quiet);
  painter.drawText(inside.left() + QFontMetrics(value_font).horizontalAdvance(value_), baseline,
                   unit);
}

}  // namespace zelorgas
