#include "ui/CTPSIdle.h"

#include <QGridLayout>
#include <QLabel>

#include "config/Parameters.h"
#include "ui/Text.h"

namespace zelorgas {

CTPSIdle::CTPSIdle(const TpsAccess& access, QWidget* parent)
    : CCard("tps_idle_card", TranslatedMessage(kTpsIdleTitle), parent), access_(access) {
  grid_ = new QGridLayout;
  grid_->setHorizontalSpacing(fontMetrics().height());
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    fields_.at(i) = MakeField(i);
    labels_.at(i) = new QLabel(fields_.at(i)->accessibleName(), this);
    labels_.at(i)->setBuddy(fields_.at(i));
  }
  Arrange(2);
  Body().addLayout(grid_);
  Body().addStretch(1);
}

void CTPSIdle::Arrange(std::size_t columns) {
  const std::size_t rows = (fields_.size() + columns - 1) / columns;
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const int row = static_cast<int>(i % rows);
    const int column = 2 * static_cast<int>(i / rows);
    grid_->addWidget(labels_.at(i), row, column);
    grid_->addWidget(fields_.at(i), row, column + 1);
  }
  grid_->setColumnStretch(0, 1);
  grid_->setColumnStretch(2, columns > 1 ? 1 : 0);
}

CEntryField* CTPSIdle::MakeField(std::size_t setting) {
  const IdleSetting& idle = kIdleSettings.at(setting);
  auto* const field = new CEntryField(this);
  field->setObjectName(ToQString(idle.name).toLower());
  const QString meaning = TranslatedMessage(FindParameter(idle.name)->meaning);
  field->setAccessibleName(Capitalised(meaning));
  field->setToolTip(tr("%1: %2\nRegister %3").arg(ToQString(idle.name), meaning).arg(idle.reg));
  field->setFixedWidth(fontMetrics().horizontalAdvance("000000000"));
  connect(field, &CEntryField::Entered, this, [this, setting](const QString& text) {
    access_.Run(this, [setting, typed = text.toStdString()](TpsModel& model) {
      model.EditIdle(setting, typed);
    });
  });
  return field;
}

void CTPSIdle::ShowValues() {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    fields_.at(i)->Show(ToQString(access_.model.IdleText(i)));
  }
}

}  // namespace zelorgas
