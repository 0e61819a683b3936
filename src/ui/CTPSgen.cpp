#include "ui/CTPSgen.h"

#include <QEvent>
#include <QFormLayout>
#include <QShortcut>

#include "config/Parameters.h"
#include "ui/Text.h"

namespace zelorgas {

CTPSgen::CTPSgen(const TpsAccess& access, QWidget* parent)
    : CCard("tps_end_points_card", tr("Throttle sensor"), parent), access_(access) {
  closed_ = MakeField("TPS0");
  full_ = MakeField("TPSMAX");
  throttle_ = new QLabel(kNoValue, this);
  throttle_->setObjectName("throttle_now");
  throttle_->setAccessibleName(tr("Throttle position at this moment"));
  throttle_->setAlignment(Qt::AlignRight);
  write_ = new QPushButton(tr("&Write end points"), this);
  write_->setObjectName("write_end_points_button");
  write_->setAccessibleName(tr("Write end points"));
  write_->setToolTip(tr("Writes both readings to the ECU (Enter in one of the fields)"));
  connect(write_, &QPushButton::clicked, this, &CTPSgen::Write);

  auto* const form = new QFormLayout;
  form->setHorizontalSpacing(fontMetrics().height());
  form->addRow(tr("Closed throttle"), closed_);
  form->addRow(tr("Full throttle"), full_);
  form->addRow(tr("At this moment"), throttle_);
  form->setFormAlignment(Qt::AlignLeft | Qt::AlignTop);
  Body().addLayout(form);
  Body().addWidget(write_);
  Body().addStretch(1);
}

QLineEdit* CTPSgen::MakeField(std::string_view parameter) {
  const Parameter& described = *FindParameter(parameter);
  auto* const field = new QLineEdit(this);
  const QString name = ToQString(parameter);
  const QString meaning = TranslatedMessage(described.meaning);
  field->setObjectName(name.toLower() + "_end_point");
  field->setAccessibleName(meaning);
  field->setToolTip(tr("%1: %2\nRegister %3").arg(name, meaning).arg(described.Register()));
  field->setAlignment(Qt::AlignRight);
  field->setMinimumWidth(fontMetrics().horizontalAdvance("000000000"));
  connect(field, &QLineEdit::returnPressed, this, &CTPSgen::Write);
  auto* const escape = new QShortcut(Qt::Key_Escape, field);
  escape->setContext(Qt::WidgetShortcut);
  connect(escape, &QShortcut::activated, this, [this, field] {
    field->setModified(false);
    ShowValues();
    field->selectAll();
  });
  return field;
}

void CTPSgen::Write() {
  const std::string closed = closed_->text().toStdString();
  const std::string full = full_->text().toStdString();
  // What is typed stays until both can be written; then the fields show what the ECU has, whatever
  // comes of it.
  if (TpsModel::IsEndPoint(closed) && TpsModel::IsEndPoint(full)) {
    closed_->setModified(false);
    full_->setModified(false);
  }
  access_.Run(this, [closed, full](TpsModel& model) { model.WriteEndPoints(closed, full); });
}

void CTPSgen::changeEvent(QEvent* event) {
  CCard::changeEvent(event);
  if (event->type() != QEvent::EnabledChange || isEnabled()) return;
  // The link has gone. What was typed for this ECU is not for the next one.
  closed_->setModified(false);
  full_->setModified(false);
  ShowValues();
}

void CTPSgen::ShowValues() {
  const auto show = [](QLineEdit* field, const std::string& value) {
    if (!field->isModified() && field->text() != ToQString(value)) field->setText(ToQString(value));
  };
  show(closed_, access_.model.ClosedThrottleText());
  show(full_, access_.model.FullThrottleText());
}

void CTPSgen::ShowLive(const EcuImage& image) {
  const QString text = QString::asprintf("%d %%", image.ThrottlePercent());
  if (text != throttle_->text()) throttle_->setText(text);
}

void CTPSgen::ShowNoLive() { throttle_->setText(kNoValue); }

}  // namespace zelorgas
