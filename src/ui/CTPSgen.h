// The throttle sensor's end points, written together, and what the sensor says now. User-interface
// thread.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "app/EcuImage.h"
#include "ui/CTpsTableCard.h"

namespace zelorgas {

class CTPSgen final : public CCard {
  Q_OBJECT

 public:
  CTPSgen(const TpsAccess& access, QWidget* parent);

  // What the model holds now, where the person has not typed something else meanwhile: Escape, and
  // the end of the link, bring the ECU's reading back.
  void ShowValues();
  void ShowLive(const EcuImage& image);
  // There is no ECU whose throttle it could be.
  void ShowNoLive();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QLineEdit* MakeField(std::string_view parameter);
  void Write();

  const TpsAccess access_;
  QLineEdit* closed_;
  QLineEdit* full_;
  QLabel* throttle_;
  QPushButton* write_;
};

}  // namespace zelorgas
