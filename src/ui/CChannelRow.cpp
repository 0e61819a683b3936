#include "ui/CChannelRow.h"

#include <QHBoxLayout>
#include <QPainter>
#include <array>
#include <cmath>

#include "ui/CCaption.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

struct ChannelWords {
  const char* unit;
  const char* meaning;
};

// In the order of the channels; what the graph's number stands for.
constexpr std::array<ChannelWords, kScopeChannels> kWords{{
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "1000/min"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Engine speed")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "10 \302\260C"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Gas temperature")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "10 \302\260C"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Coolant temperature")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "bar"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Gas pressure")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "bar"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Manifold pressure")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "bar"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Gas pressure above the manifold's")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "0.1 V"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Lambda sensor")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "V"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Second lambda sensor")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "V"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Battery voltage")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "ms"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Petrol injection time")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "ms"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Gas injection time")},
    {QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "10 %"),
     QT_TRANSLATE_NOOP("zelorgas::CChannelRow", "Throttle position")},
}};

QPixmap Swatch(const ScopeChannelInfo& info, int size, const QPalette& palette) {
  QPixmap picture(size, size);
  picture.fill(QColor(info.red, info.green, info.blue));
  QPainter painter(&picture);
  painter.setPen(palette.color(QPalette::Mid));
  painter.drawRect(0, 0, size - 1, size - 1);
  return picture;
}

// As wide as kWidest, also where a damaged file holds what no sensor gives.
constexpr const char* kWidest = "-0000.00";

QString ShortNumber(double value) {
  constexpr double kTwoDecimalsBelow = 1e4;
  constexpr double kWholeBelow = 1e7;
  const double size = std::abs(value);
  if (size < kTwoDecimalsBelow) return QString::number(value, 'f', 2);
  return size < kWholeBelow ? QString::number(value, 'f', 0) : QString::number(value, 'g', 1);
}

}  // namespace

CChannelRow::CChannelRow(ScopeChannel channel, QWidget* parent) : QWidget(parent) {
  const auto index = static_cast<std::size_t>(channel);
  const ScopeChannelInfo& info = ScopeChannelTable()[index];
  const QString name = ToQString(info.name);
  const QString id = name.toLower();
  setToolTip(tr(kWords[index].meaning));
  auto* const colour = new QLabel(this);
  colour->setPixmap(Swatch(info, fontMetrics().ascent(), palette()));
  box_ = new QCheckBox(name, this);
  box_->setObjectName("scope_" + id);
  box_->setAccessibleName(tr(kWords[index].meaning));
  value_ = new QLabel(kNoValue, this);
  value_->setObjectName("scope_value_" + id);
  value_->setAccessibleName(tr("%1 at the cursor").arg(name));
  value_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  value_->setMinimumWidth(fontMetrics().horizontalAdvance(kWidest));
  auto* const unit = new CCaption(tr(kWords[index].unit), this);
  unit->setMinimumWidth(fontMetrics().horizontalAdvance("1000/min") + 2);
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(colour);
  layout->addWidget(box_, 1);
  layout->addWidget(value_);
  layout->addWidget(unit);
  connect(box_, &QCheckBox::toggled, this, &CChannelRow::Toggled);
}

void CChannelRow::SetPresent(bool present) { box_->setEnabled(present); }

void CChannelRow::SetValue(std::optional<double> value) {
  value_->setText(value ? ShortNumber(*value) : QString(kNoValue));
}

}  // namespace zelorgas
