#include "ui/Colours.h"

#include <cmath>

namespace zelorgas {
namespace {

constexpr double kCaptionShare = 0.38;
constexpr double kBorderShare = 0.22;
constexpr double kDarkCardShare = 0.06;
constexpr double kAlertShare = 0.7;
constexpr QColor kAlertRed(225, 20, 20);

// Relative luminance of the sRGB colour, 0 black to 1 white.
double Luminance(const QColor& colour) {
  const auto linear = [](double c) {
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

}  // namespace

QColor Mixed(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
  return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                          mix(from.blueF(), to.blueF()));
}

QColor CaptionColour(const QPalette& palette) {
  return Mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), kCaptionShare);
}

QColor BorderColour(const QPalette& palette) {
  return Mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), kBorderShare);
}

QColor AlertColour(const QPalette& palette) {
  return Mixed(palette.color(QPalette::WindowText), kAlertRed, kAlertShare);
}

QColor CardColour(const QPalette& palette) {
  const QColor window = palette.color(QPalette::Window);
  const bool dark = TextOn(window) == Qt::white;
  // On a dark card of the fields' own colour nobody would see their frames.
  return dark ? Mixed(window, palette.color(QPalette::WindowText), kDarkCardShare)
              : palette.color(QPalette::Base);
}

QColor TextOn(const QColor& background) {
  // Where black and white have the same contrast.
  constexpr double kMiddle = 0.179;
  return Luminance(background) > kMiddle ? Qt::black : Qt::white;
}

}  // namespace zelorgas
