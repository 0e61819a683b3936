// One live value: a small caption, and below it the value in large figures with its unit.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <cstdint>

namespace zelorgas {

class CValueTile final : public QWidget {
  Q_OBJECT

 public:
  enum class Freshness : std::uint8_t { kLive, kStale };

  CValueTile(const QString& object_name, const QString& caption, QString unit,
             QWidget* parent = nullptr);

  // Paints only when something changed. The unit is left out beside `kNoValue` and beside words.
  void Show(const QString& value, bool with_unit, Freshness freshness);
  // The same value, of a link that is down.
  void MarkStale() { Show(value_, with_unit_, Freshness::kStale); }
  [[nodiscard]] const QString& Value() const { return value_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] QPixmap EmptyCard() const;
  void DrawSurrounding();
  [[nodiscard]] QFont CaptionFont() const;
  [[nodiscard]] QFont ValueFont() const;
  [[nodiscard]] int Margin() const;
  [[nodiscard]] QRect Inside() const;

  const QString caption_;
  const QString unit_;
  QString value_;
  QPixmap surrounding_;  // what stays while values come: frame and caption
  bool with_unit_ = false;
  Freshness freshness_ = Freshness::kStale;
};

}  // namespace zelorgas
