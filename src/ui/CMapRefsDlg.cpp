#include "ui/CMapRefsDlg.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QVBoxLayout>

#include "config/ConfigurationBlock.h"

namespace zelorgas {

CMapRefsDlg::CMapRefsDlg(const GridAxes& axes, MessageBoxes& boxes, QWidget* parent)
    : QDialog(parent), boxes_(boxes), axes_(axes) {
  setObjectName("map_refs_dialog");
  setWindowTitle(tr("Grid Cell Centers"));
  setAccessibleName(windowTitle());
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* const columns = new QHBoxLayout;
  using namespace block_layout;
  AddColumn(columns,
            {tr("REVS. columns (1/min)"), "centre_speed", "RPM", RegisterOfWord(kGridSpeeds),
             axes.speeds_rpm},
            speeds_);
  AddColumn(columns,
            {tr("Tinj[Petrol] rows (ms)"), "centre_time", "Ton", RegisterOfWord(kGridTimes),
             axes.times_ms},
            times_);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->setObjectName("map_refs_buttons");
  connect(buttons, &QDialogButtonBox::accepted, this, &CMapRefsDlg::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(columns);
  layout->addWidget(buttons);
  speeds_.front()->setFocus();
  speeds_.front()->selectAll();
}

void CMapRefsDlg::AddColumn(QBoxLayout* columns, const Axis& axis, Fields& fields) {
  auto* const group = new QGroupBox(axis.title, this);
  auto* const form = new QFormLayout(group);
  for (std::size_t i = 0; i < kGridSize; ++i) {
    const QString number = QString::number(i + 1);
    auto* const field = new QLineEdit(QString::number(axis.centres[i]), group);
    field->setObjectName(axis.object_name + number);
    field->setAccessibleName(axis.title + ", " + number);
    field->setToolTip(
        tr("%1[%2], register %3").arg(axis.parameter).arg(i).arg(axis.first_register + i));
    field->setAlignment(Qt::AlignRight);
    form->addRow(number + '.', field);
    fields.at(i) = field;
  }
  columns->addWidget(group);
}

CMapRefsDlg::Texts CMapRefsDlg::TextsOf(const Fields& fields) {
  Texts texts;
  for (std::size_t i = 0; i < kGridSize; ++i) {
    texts.at(i) = fields.at(i)->text().toStdString();
  }
  return texts;
}

void CMapRefsDlg::accept() {
  Message message;
  const Texts speeds = TextsOf(speeds_);
  const Texts times = TextsOf(times_);
  if (const auto centres = ParseCentres(speeds, times, message)) {
    axes_ = *centres;
    QDialog::accept();
  } else {
    // The last thing done: the dialog may be deleted while the box is open.
    boxes_.Inform(message, MessageIcon::kExclamation);
  }
}

}  // namespace zelorgas
