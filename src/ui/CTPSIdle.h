// The settings of the return to idle and of the fuel cut-off. Every edit goes to the ECU at once.
// User-interface thread.
#pragma once

#include <array>

#include "ui/CTpsTableCard.h"

class QGridLayout;
class QLabel;

namespace zelorgas {

class CTPSIdle final : public CCard {
  Q_OBJECT

 public:
  CTPSIdle(const TpsAccess& access, QWidget* parent);

  // So many settings stand in a row.
  void Arrange(std::size_t columns);
  // What the model holds now.
  void ShowValues();

 private:
  CEntryField* MakeField(std::size_t setting);

  const TpsAccess access_;
  std::array<QLabel*, kIdleSettings.size()> labels_{};
  std::array<CEntryField*, kIdleSettings.size()> fields_{};
  QGridLayout* grid_;
};

}  // namespace zelorgas
