#include "ui/CParameterRow.h"

#include <QCheckBox>
#include <utility>

#include "injectors/ParameterGroups.h"
#include "ui/CChoiceList.h"
#include "ui/CNumberField.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

bool IsNozzle(const Parameter& parameter) { return parameter.name == "NOZZLEDIAM"; }

class CFlagRow final : public CParameterRow {
 public:
  CFlagRow(const Parameter& parameter, const ParameterAccess& access, QWidget* parent)
      : CParameterRow(parameter, access, parent), box_(new QCheckBox) {
    SetParameterEditor(box_, {});
    connect(box_, &QCheckBox::clicked, this, [this](bool on) { Write(on ? 1 : 0); });
  }

  void ShowValue() override { box_->setChecked(Value() != 0); }

 private:
  QCheckBox* box_;
};

class CNumberRow final : public CParameterRow {
 public:
  CNumberRow(const Parameter& parameter, const ParameterAccess& access, QWidget* parent)
      : CParameterRow(parameter, access, parent), field_(new CNumberField(0)) {
    const QString range = CParameterRow::tr("0 to 65535");
    SetParameterEditor(field_, range);
    connect(field_, &CNumberField::NumberEntered, this, &CNumberRow::Write);
    connect(field_, &CNumberField::Refused, this,
            [this, range](const QString& typed) { Refuse(typed, range); });
  }

  void ShowValue() override { field_->ShowNumber(Value()); }

 private:
  CNumberField* field_;
};

// The diameter of the nozzle in millimetres; an injector with a nozzle of its own has none to
// enter.
class CNozzleRow final : public CParameterRow {
 public:
  CNozzleRow(const Parameter& parameter, const ParameterAccess& access, QWidget* parent)
      : CParameterRow(parameter, access, parent), field_(new CNumberField(1)) {
    const QString range = CParameterRow::tr("0.0 to 6553.5 mm");
    SetParameterEditor(field_, range);
    connect(field_, &CNumberField::NumberEntered, this, &CNozzleRow::Write);
    connect(field_, &CNumberField::Refused, this,
            [this, range](const QString& typed) { Refuse(typed, range); });
  }

  void ShowValue() override {
    const NozzleField& nozzle = Model().Nozzle();
    field_->setEnabled(nozzle.enabled);
    field_->Warn(nozzle.enabled && nozzle.too_small);
    if (nozzle.enabled) {
      field_->ShowNumber(nozzle.tenths_mm);
    } else {
      field_->ShowInstead(ToQString(nozzle.Text()));
    }
  }

 private:
  CNumberField* field_;
};

class CChoiceRow final : public CParameterRow {
 public:
  CChoiceRow(const Parameter& parameter, const ParameterAccess& access, QWidget* parent)
      : CParameterRow(parameter, access, parent),
        choices_(*ListOf(parameter)),
        list_(new CChoiceList) {
    for (const std::string_view name : EntryNames(choices_)) {
      list_->addItem(TranslatedName(name));
    }
    SetParameterEditor(list_, {});
    connect(list_, &CChoiceList::activated, this, [this](int index) {
      RunLater([&model = Model(), choices = choices_, index] { model.Select(choices, index); });
    });
  }

  void ShowValue() override {
    const int shown = Model().Shown(choices_);
    const int applied = Model().Applied(choices_);
    list_->ShowEntry(shown, CParameterRow::tr("Unknown: %1").arg(Value()));
    SetNote(shown == applied
                ? QString()
                : CParameterRow::tr("The ECU has not taken all of it. Applied before: %1")
                      .arg(applied < 0 ? CParameterRow::tr("unknown") : list_->itemText(applied)));
  }

 private:
  const ChoiceList choices_;
  CChoiceList* list_;
};

// The meaning as a row says it: the editor shows by itself that it is a flag or a list.
QString RowText(const Parameter& parameter) {
  QString text = TranslatedMessage(parameter.meaning);
  if (KindOf(parameter) != ParameterKind::kNumber) text = text.section(" (", 0, 0);
  if (IsNozzle(parameter)) text = CParameterRow::tr("%1 in mm").arg(text);
  if (!text.isEmpty()) text[0] = text[0].toUpper();
  return text;
}

}  // namespace

CParameterRow* CParameterRow::Make(const Parameter& parameter, const ParameterAccess& access,
                                   QWidget* parent) {
  if (IsNozzle(parameter)) return new CNozzleRow(parameter, access, parent);
  switch (KindOf(parameter)) {
    case ParameterKind::kFlag:
      return new CFlagRow(parameter, access, parent);
    case ParameterKind::kChoice:
      return new CChoiceRow(parameter, access, parent);
    case ParameterKind::kNumber:
      break;
  }
  return new CNumberRow(parameter, access, parent);
}

CParameterRow::CParameterRow(const Parameter& parameter, const ParameterAccess& access,
                             QWidget* parent)
    : CFieldRow(RowText(parameter), ToQString(parameter.name), parent),
      parameter_(parameter),
      access_(access) {}

void CParameterRow::SetParameterEditor(QWidget* editor, const QString& how) {
  const QString name = ToQString(parameter_.name);
  QString tip = tr("%1: %2\nRegister %3")
                    .arg(name, TranslatedMessage(parameter_.meaning))
                    .arg(parameter_.Register());
  if (!how.isEmpty()) tip += "\n" + how;
  SetEditor(editor, name.toLower(), tip);
}

void CParameterRow::Write(std::uint16_t value) {
  RunLater([&model = access_.model, &parameter = parameter_, value] {
    static_cast<void>(model.WriteParameter(parameter, value));
  });
}

void CParameterRow::RunLater(CEcuControl::Task task) {
  access_.control.RunLaterOnThisEcu(this, std::move(task));
}

void CParameterRow::Refuse(const QString& typed, const QString& range) {
  const QString name = ToQString(parameter_.name);
  access_.boxes.Status(ToMessage(tr("%1 cannot be \"%2\": %3.").arg(name, typed, range)));
}

}  // namespace zelorgas
