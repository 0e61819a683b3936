// One of the two tables of throttle corrections: its switch, sixteen speed bands of four
// quantities, and the outlet. Every edit goes to the ECU at once. User-interface thread.
#pragma once

#include <QCheckBox>

#include "maps/TpsModel.h"
#include "ui/CCard.h"
#include "ui/CCellTable.h"
#include "ui/CEcuControl.h"
#include "ui/CEntryField.h"

namespace zelorgas {

// What the parts of the page talk to; all of it outlives them.
struct TpsAccess {
  TpsModel& model;
  CEcuControl& control;

  // Runs `edit` of the part `asker` on the model as a later turn of the control, unless the ECU has
  // gone meanwhile.
  template <typename Edit>
  void Run(QObject* asker, Edit edit) const {
    control.RunLaterOnThisEcu(asker, [access = *this, edit] { edit(access.model); });
  }
};

class CTpsTableCard : public CCard {
  Q_OBJECT

 public:
  // What the model holds now.
  void ShowValues();

 protected:
  // `name` begins the object names.
  CTpsTableCard(TpsTable which, const QString& name, const TpsAccess& access, QWidget* parent);

 private:
  void MakeTable(const QString& name);
  QWidget* MakeControls(const QString& name);

  const TpsTable which_;
  const TpsAccess access_;
  QCheckBox* enabled_ = nullptr;
  CCellTable* table_ = nullptr;
  CEntryField* outlet_ = nullptr;
};

// For a throttle that opens fast.
class CTPSAcceleration final : public CTpsTableCard {
  Q_OBJECT

 public:
  CTPSAcceleration(const TpsAccess& access, QWidget* parent)
      : CTpsTableCard(TpsTable::kAcceleration, "tps_acceleration", access, parent) {}
};

// For a throttle that closes fast.
class CTPSDeceleration final : public CTpsTableCard {
  Q_OBJECT

 public:
  CTPSDeceleration(const TpsAccess& access, QWidget* parent)
      : CTpsTableCard(TpsTable::kDeceleration, "tps_deceleration", access, parent) {}
};

}  // namespace zelorgas
