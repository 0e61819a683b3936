#include "ui/CTPSIdle.h"

#include <QGridLayout>
#include <QLabel>

#include "config/Parameters.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kColumns = 2;

QString Capitalised(QString text) {
  if (!text.isEmpty()) text[0] = text[0].toUpper();
  return text;
}

}  // namespace

CTPSIdle::CTPSIdle(const TpsAccess& access, QWidget* parent)
    : CCard("tps_idle_card", TranslatedMessage(kTpsIdleTitle), parent), access_(access) {
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(fontMetrics().height());
  const std::size_t rows = (fields_.size() + kColumns - 1) / kColumns;
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    fields_.at(i) = MakeField(i);
    auto* const label = new QLabel(fields_.at(i)->accessibleName(), this);
    label->setBuddy(fields_.at(i));
    const int row = static_cast<int>(i % rows);
    const int column = 2 * static_cast<int>(i / rows);
    grid->addWidget(label, row, column);
    grid->addWidget(fields_.at(i), row, column + 1);
    grid->setColumnStretch(column, 1);
  }
  Body().addLayout(grid);
  Body().addStretch(1);
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
