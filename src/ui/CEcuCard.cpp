#include "ui/CEcuCard.h"

#include "ui/CCaption.h"
#include "ui/Fonts.h"
#include "ui/IdentityText.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr const char* kCaptionProperty = "caption";

}  // namespace

CEcuCard::CEcuCard(QWidget* parent) : CCard("ecu_card", tr("ECU"), parent) {
  rows_ = new QGridLayout;
  rows_->setHorizontalSpacing(fontMetrics().height());
  rows_->setVerticalSpacing(fontMetrics().height() / 2);
  rows_->setColumnStretch(1, 1);
  Body().addLayout(rows_);
  Body().addStretch(1);
  serial_ = AddRow("ecu_serial", tr("Serial number"), tr("Input registers 35 and 36"));
  software_ = AddRow("ecu_software", tr("Firmware version"), tr("Input register 33"));
  hardware_ = AddRow("ecu_hardware", tr("Hardware version"), tr("Input register 32"));
  vendor_ = AddRow("ecu_vendor", tr("Vendor"), tr("Device identification, object 0"));
  product_ = AddRow("ecu_product", tr("Product"), tr("Device identification, object 1"));
  revision_ = AddRow("ecu_revision", tr("Revision"), tr("Device identification, object 2"));
  board_ = AddRow("ecu_board", tr("Board information"), tr("Holding registers 16384 to 16386"));
  for (QLabel* const number : {serial_, software_, hardware_}) {
    number->setFont(Emphasized(number->font()));
  }
  for (QLabel* const words : {vendor_, product_, revision_, board_}) words->setWordWrap(true);
  Clear();
}

QLabel* CEcuCard::AddRow(const QString& object_name, const QString& caption,
                         const QString& tooltip) {
  const int row = rows_->rowCount();
  auto* const label = new CCaption(caption, this);
  auto* const value = new QLabel(this);
  value->setObjectName(object_name);
  value->setProperty(kCaptionProperty, caption);
  value->setTextFormat(Qt::PlainText);
  value->setToolTip(tooltip);
  rows_->addWidget(label, row, 0, Qt::AlignLeft | Qt::AlignBaseline);
  rows_->addWidget(value, row, 1, Qt::AlignBaseline);
  return value;
}

void CEcuCard::SetValue(QLabel* field, const QString& text) {
  field->setText(text);
  field->setTextInteractionFlags(text == kNoValue
                                     ? Qt::NoTextInteraction
                                     : Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  field->setAccessibleName(field->property(kCaptionProperty).toString() + ": " + text);
}

void CEcuCard::Show(const EcuIdentity& identity) {
  SetValue(serial_, SerialText(identity));
  SetValue(software_, VersionText(identity.software));
  SetValue(hardware_, VersionText(identity.hardware));
  SetValue(vendor_, ToQString(identity.vendor));
  SetValue(product_, ToQString(identity.product));
  SetValue(revision_, ToQString(identity.revision));
  SetValue(board_, BoardText(identity));
}

void CEcuCard::Clear() {
  for (QLabel* const field :
       {serial_, software_, hardware_, vendor_, product_, revision_, board_}) {
    SetValue(field, kNoValue);
  }
}

}  // namespace zelorgas
