#include "ui/CNumberField.h"

#include <cmath>
#include <limits>

#include "ui/Colours.h"

namespace zelorgas {
namespace {

constexpr QRgb kLightRed = qRgb(255, 128, 128);

}  // namespace

CNumberField::CNumberField(int decimals, QWidget* parent)
    : CEntryField(parent), decimals_(decimals) {
  connect(this, &CEntryField::Entered, this, [this](const QString& typed) {
    if (const auto value = NumberOf(typed)) {
      emit NumberEntered(*value);
    } else {
      Restore();
      emit Refused(typed);
    }
  });
}

void CNumberField::ShowNumber(std::uint16_t value) {
  Show(QString::number(value / std::pow(10, decimals_), 'f', decimals_));
}

void CNumberField::Warn(bool warn) {
  if (warn == warned_) return;
  warned_ = warn;
  QPalette colours;
  if (warn) {
    colours.setColor(QPalette::Base, QColor(kLightRed));
    colours.setColor(QPalette::Text, TextOn(QColor(kLightRed)));
  }
  setPalette(colours);
}

std::optional<std::uint16_t> CNumberField::NumberOf(const QString& text) const {
  bool is_number = false;
  const double number = text.trimmed().replace(',', '.').toDouble(&is_number);
  const double word = number * std::pow(10, decimals_);
  const bool in_range = word >= 0 && word <= std::numeric_limits<std::uint16_t>::max();
  constexpr double kRounding = 1e-6;
  if (!is_number || !in_range || std::abs(word - std::round(word)) > kRounding) return {};
  return static_cast<std::uint16_t>(std::lround(word));
}

}  // namespace zelorgas
