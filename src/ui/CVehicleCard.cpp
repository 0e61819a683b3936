#include "ui/CVehicleCard.h"

#include <QIntValidator>
#include <QLocale>

#include "ui/CCaption.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kLargestEngineCc = 99999;

// A text that says the same is left alone, with its blanks and its cursor.
void ShowIn(QLineEdit* field, const QString& text) {
  if (field->text().trimmed() != text) field->setText(text);
}

}  // namespace

CVehicleCard::CVehicleCard(VehicleData& vehicle, ConfigurationModel& model, QWidget* parent)
    : CCard("vehicle_card", tr("Vehicle"), parent), vehicle_(vehicle), model_(model) {
  auto* const hint = new CCaption(
      tr("Make, model and engine are kept with the notes of a stored configuration."), this);
  hint->setWordWrap(true);
  Body().addWidget(hint);
  make_ = AddText("vehicle_make", tr("Vehicle make"), vehicle_.make);
  model_name_ = AddText("vehicle_model", tr("Vehicle model"), vehicle_.model);
  engine_code_ = AddText("engine_code", tr("Engine code"), vehicle_.engine_code);
  AddEngineSize();
  AddRoutingMap();
}

QLineEdit* CVehicleCard::AddField(const QString& object_name, const QString& text,
                                  const QString& tooltip) {
  auto* const field = new QLineEdit;
  AddRow(text)->SetEditor(field, object_name, tooltip);
  return field;
}

CFieldRow* CVehicleCard::AddRow(const QString& text) {
  rows_.push_back(new CFieldRow(text, {}, this));
  Body().addWidget(rows_.back());
  return rows_.back();
}

QLineEdit* CVehicleCard::AddText(const QString& object_name, const QString& text,
                                 std::string& field) {
  QLineEdit* const edit = AddField(object_name, text, tr("A complete configuration names it."));
  connect(edit, &QLineEdit::textEdited, this, [this, &field](const QString& typed) {
    field = typed.trimmed().toStdString();
    emit Edited();
  });
  return edit;
}

void CVehicleCard::AddEngineSize() {
  engine_size_ =
      AddField("engine_size_cc", tr("Engine size in cubic centimetres"),
               tr("A complete configuration names it: more than 500 cubic centimetres."));
  engine_size_->setAlignment(Qt::AlignRight);
  auto* const digits = new QIntValidator(0, kLargestEngineCc, engine_size_);
  QLocale plain = QLocale::c();
  plain.setNumberOptions(QLocale::RejectGroupSeparator);
  digits->setLocale(plain);
  engine_size_->setValidator(digits);
  connect(engine_size_, &QLineEdit::textEdited, this, [this](const QString& typed) {
    vehicle_.engine_size_cc = typed.toUInt();
    emit Edited();
  });
}

void CVehicleCard::AddRoutingMap() {
  routing_map_ = new CChoiceList;
  for (unsigned map = 0; map < ConfigurationModel::kRoutingMapCount; ++map) {
    routing_map_->addItem(tr("Map %1").arg(map + 1));
  }
  AddRow(tr("Injector routing map"))
      ->SetEditor(routing_map_, "routing_map",
                  tr("Which of the ECU's two injector routing maps a stored file carries, and a "
                     "loaded file replaces"));
  connect(routing_map_, &CChoiceList::activated, this,
          [this](int index) { model_.SelectRoutingMap(static_cast<unsigned>(index)); });
}

void CVehicleCard::ShowVehicle() {
  ShowIn(make_, ToQString(vehicle_.make));
  ShowIn(model_name_, ToQString(vehicle_.model));
  ShowIn(engine_code_, ToQString(vehicle_.engine_code));
  const unsigned size_cc = vehicle_.engine_size_cc;
  if (engine_size_->text().toUInt() != size_cc) {
    engine_size_->setText(size_cc == 0 ? QString() : QString::number(size_cc));
  }
  routing_map_->ShowEntry(static_cast<int>(model_.RoutingMap()), {});
}

}  // namespace zelorgas
