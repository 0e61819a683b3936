#include "ui/CTpsTableCard.h"

#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

#include "config/BlockCells.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kRows = static_cast<int>(kTpsQuantities.size());
constexpr int kColumns = static_cast<int>(kTpsBands);

TpsQuantity QuantityOf(TableCell cell) {
  return kTpsQuantities.at(static_cast<std::size_t>(cell.row));
}

std::size_t BandOf(TableCell cell) { return static_cast<std::size_t>(cell.column); }

// As configuration files have it.
QString NameOfRegister(std::uint16_t reg) {
  const auto cell = std::ranges::find(
      BlockCells(), reg, [](const BlockCell& of_block) { return RegisterOfWord(of_block.word); });
  return ToQString(cell->Label());
}

// The number alone, for editing.
QString WithoutUnit(QString text, TpsQuantity quantity) {
  text.chop(static_cast<qsizetype>(UnitOf(quantity).size()));
  return text.trimmed();
}

}  // namespace

CTpsTableCard::CTpsTableCard(TpsTable which, const QString& name, const TpsAccess& access,
                             QWidget* parent)
    : CCard(name + "_card", TranslatedMessage(TitleOf(which)), parent),
      which_(which),
      access_(access) {
  MakeTable(name);
  Body().addWidget(table_, 1);
  AddBesideTitle(MakeControls(name));
}

void CTpsTableCard::MakeTable(const QString& name) {
  table_ = new CCellTable(name + "_table", accessibleName(),
                          {kRows, kColumns, "100 %/s", "-0123456789"}, this);
  table_->SetCorner(TranslatedMessage(kTpsBandHeading));
  for (int row = 0; row < kRows; ++row) {
    table_->SetRowHeader(row, TranslatedMessage(RowLabel(QuantityOf({row, 0}))));
  }
  connect(table_, &CCellTable::Entered, this, [this](TableCell cell, const QString& text) {
    access_.Run(this, [which = which_, cell, typed = text.toStdString()](TpsModel& model) {
      model.EditCell(which, QuantityOf(cell), BandOf(cell), typed);
    });
  });
}

QWidget* CTpsTableCard::MakeControls(const QString& name) {
  auto* const controls = new QWidget(this);
  const bool opening = which_ == TpsTable::kAcceleration;
  enabled_ = new QCheckBox(opening ? tr("Correct when the throttle opens fast")
                                   : tr("Correct when the throttle closes fast"),
                           controls);
  enabled_->setObjectName(name + "_enable");
  enabled_->setAccessibleName(enabled_->text());
  enabled_->setToolTip(tr("%1\nRegister %2")
                           .arg(opening ? "TIPIN_ENABLE" : "TIPOUT_ENABLE")
                           .arg(EnableRegister(which_)));
  connect(enabled_, &QCheckBox::clicked, this, [this](bool on) {
    access_.Run(this, [which = which_, on](TpsModel& model) { model.SetEnabled(which, on); });
  });
  auto* const label = new QLabel(tr("Outlet"), controls);
  outlet_ = new CEntryField(controls);
  outlet_->setObjectName(name + "_outlet");
  outlet_->setAccessibleName(accessibleName() + ", " + label->text());
  outlet_->setToolTip(tr("%1\nRegister %2").arg(label->text()).arg(OutletRegister(which_)));
  outlet_->setFixedWidth(fontMetrics().horizontalAdvance("000000000"));
  label->setBuddy(outlet_);
  connect(outlet_, &CEntryField::Entered, this, [this](const QString& text) {
    access_.Run(this, [which = which_, typed = text.toStdString()](TpsModel& model) {
      model.EditOutlet(which, typed);
    });
  });
  auto* const row = new QHBoxLayout(controls);
  row->setContentsMargins({});
  row->setSpacing(fontMetrics().height() / 2);
  row->addWidget(enabled_);
  row->addSpacing(fontMetrics().height());
  row->addWidget(label);
  row->addWidget(outlet_);
  return controls;
}

void CTpsTableCard::ShowValues() {
  const TpsModel& model = access_.model;
  for (int column = 0; column < kColumns; ++column) {
    const QString band = ToQString(model.BandText(BandOf({0, column})));
    table_->SetColumnHeader(column, band);
    for (int row = 0; row < kRows; ++row) {
      const TableCell cell{row, column};
      const QString text = ToQString(model.CellText(which_, QuantityOf(cell), BandOf(cell)));
      table_->SetCell(cell, text, {}, WithoutUnit(text, QuantityOf(cell)));
      const std::uint16_t reg = CellRegister(which_, QuantityOf(cell), BandOf(cell));
      table_->SetTip(
          cell, tr("%1, %2 1/min\n%3, register %4")
                    .arg(TranslatedMessage(RowLabel(QuantityOf(cell))), band, NameOfRegister(reg))
                    .arg(reg));
    }
  }
  enabled_->setChecked(model.Enabled(which_));
  outlet_->Show(ToQString(model.OutletText(which_)));
}

}  // namespace zelorgas
