#include "ui/CAboutDlg.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include "app/StartUp.h"
#include "ui/CCaption.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr double kTitleSize = 1.8;

}  // namespace

CAboutDlg::CAboutDlg(const AboutInfo& about, QWidget* parent) : QDialog(parent) {
  const QString name = ToQString(TemplateString(DocumentString::kWindowTitle));
  setObjectName("about_dialog");
  setWindowTitle(tr("About %1").arg(name));
  setAccessibleName(windowTitle());
  auto* const title = new QLabel(name, this);
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * kTitleSize);
  font.setBold(true);
  title->setFont(font);

  auto* const form = new QFormLayout;
  form->setHorizontalSpacing(fontMetrics().height());
  AddRow(*form, "about_product", tr("Product"), about.product);
  AddRow(*form, "about_version", tr("Version"), about.version);
  AddRow(*form, "about_revision", tr("Revision"), about.revision);
  AddRow(*form, "about_build", tr("Build"), about.build);
  AddRow(*form, "about_date", tr("Built"), about.date);

  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* const layout = new QVBoxLayout(this);
  const int space = fontMetrics().height();
  layout->setContentsMargins(space * 3 / 2, space, space * 3 / 2, space);
  layout->setSpacing(space * 3 / 4);
  layout->addWidget(title);
  layout->addLayout(form);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void CAboutDlg::AddRow(QFormLayout& form, const QString& object_name, const QString& caption,
                       const std::string& value) {
  auto* const label = new CCaption(caption, this);
  auto* const field = new QLabel(ToQString(value).trimmed(), this);
  field->setObjectName(object_name);
  field->setAccessibleName(caption + ": " + field->text());
  field->setTextFormat(Qt::PlainText);
  field->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  form.addRow(label, field);
}

}  // namespace zelorgas
