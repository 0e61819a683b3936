#include "injectors/ConfigurationModel.h"

#include "app/LinkSession.h"

namespace zelorgas {
namespace {

constexpr std::uint16_t kTenthsOfOneMillimetre = 10;
constexpr unsigned kSmallestEngineCc = 500;  // what counts as entered lies above

std::uint16_t ValueOf(const EcuImage& image, std::string_view name) {
  return GetParameter(image.block, *FindParameter(name));
}

}  // namespace

std::string NozzleField::Text() const {
  if (!enabled) return "---";
  return std::to_string(tenths_mm / 10) + "." + std::to_string(tenths_mm % 10);
}

void ConfigurationModel::TakeFromImage() {
  const EcuImage image = document_.Snapshot();
  for (const ChoiceList list : kChoiceLists) {
    const auto entry = EntryOfValue(list, GetParameter(image.block, ParameterOf(list)));
    const int index = entry ? static_cast<int>(*entry) : kNothingSelected;
    State(list) = {index, index};
  }
  const bool has_switch = ValueOf(image, "PRESSURE_SENSOR_TPYE") == kSwitchSensorType;
  if (ecu_has_switch_ != has_switch) switch_mode_ = has_switch;
  ecu_has_switch_ = has_switch;
  if (has_switch) {
    const std::uint16_t index = ValueOf(image, "ONOFF_PRESSURE_SENSOR_TPYE");
    if (index < GasPressureSensors().count()) {
      State(ChoiceList::kGasPressureSensor) = {index, index};
    }
  }
  pressure_indicator_end_ = PressureIndicatorMaximum(ValueOf(image, "PGASMAX"));
  ShowLambdaAxis(Shown(ChoiceList::kLambdaRange));
  ShowNozzleOfEcu();
}

ConfigurationModel::Outcome ConfigurationModel::Select(ChoiceList list, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= EntryNames(list).size()) {
    return Outcome::kNothing;
  }
  const auto entry = static_cast<std::size_t>(index);
  const EcuImage image = document_.Snapshot();
  const ChoiceContext context{image.FirmwareIdentification(), switch_mode_,
                              ValueOf(image, "LAMBDA_INVERSE") != 0};
  const std::vector<RegisterWrite> writes = WritesOf(list, entry, context);
  if (writes.empty()) {
    State(list).shown = Applied(list);
    return Outcome::kPutBack;
  }
  const bool written = Write(writes);
  // A full read that came during the writes has shown what the ECU held before. List and axis show
  // the new choice whether or not the ECU took it.
  State(list).shown = index;
  if (list == ChoiceList::kLambdaRange) ShowLambdaAxis(index);
  if (!written) return Outcome::kFailed;
  State(list).applied = index;
  AfterWriting(list, entry, context.switch_mode);
  return Outcome::kWritten;
}

void ConfigurationModel::AfterWriting(ChoiceList list, std::size_t entry, bool switch_mode) {
  if (list == ChoiceList::kInjectorType) refreshNozzleDiameter(kFromRegisterCopy);
  if (list != ChoiceList::kGasPressureSensor) return;
  // What the ECU has of it now is this choice's own, no change of the ECU's.
  ecu_has_switch_ = switch_mode;
  if (!switch_mode) {
    pressure_indicator_end_ = PressureIndicatorMaximum(GasPressureSensors().at(entry)->full_scale);
  }
}

bool ConfigurationModel::Write(const std::vector<RegisterWrite>& writes) {
  const auto write_all = [&] {
    LinkSession session(document_, LinkSession::Wait::kGrace);
    for (const RegisterWrite& write : writes) {
      if (session.WriteRegister(write.reg, write.value) != ModbusResult::kOk) return false;
    }
    return true;
  };
  if (write_all()) return true;
  // The ECU may have taken it and only its answers were lost.
  document_.RequestRefresh();
  boxes_.Inform(kParameterNotLoaded, MessageIcon::kError);
  return false;
}

bool ConfigurationModel::WriteParameter(const Parameter& parameter, std::uint16_t value) {
  const std::uint16_t word = document_.Snapshot().RegisterCopy(parameter.Register());
  if (!Write({{parameter.Register(), parameter.PutInto(word, value)}})) return false;
  if (parameter.name == "NOZZLEDIAM") ShowNozzleOfEcu();
  return true;
}

std::uint16_t ConfigurationModel::Value(const Parameter& parameter) const {
  return GetParameter(document_.Snapshot().block, parameter);
}

const InjectorTypeRecord* ConfigurationModel::AppliedInjector() const {
  return InjectorTypes().at(static_cast<std::size_t>(Applied(ChoiceList::kInjectorType)));
}

const InjectorTypeRecord* ConfigurationModel::ShownInjector() const {
  return InjectorTypes().at(static_cast<std::size_t>(Shown(ChoiceList::kInjectorType)));
}

std::string_view ConfigurationModel::ShownName(ChoiceList list) const {
  if (Shown(list) == kNothingSelected) return {};
  return EntryNames(list)[static_cast<std::size_t>(Shown(list))];
}

void ConfigurationModel::refreshNozzleDiameter(std::uint16_t value) {
  const InjectorTypeRecord* const injector = ShownInjector();
  if (injector == nullptr) return;
  if (injector->fixed_nozzle != 0) {
    nozzle_ = {};
    return;
  }
  ShowDiameter(value == kFromRegisterCopy ? Value(*FindParameter("NOZZLEDIAM")) : value);
}

void ConfigurationModel::ShowNozzleOfEcu() {
  if (ShownInjector() != nullptr) return refreshNozzleDiameter(kFromRegisterCopy);
  ShowDiameter(Value(*FindParameter("NOZZLEDIAM")));
}

void ConfigurationModel::ShowDiameter(std::uint16_t tenths_mm) {
  nozzle_ = {true, tenths_mm <= kTenthsOfOneMillimetre, tenths_mm};
}

void ConfigurationModel::ShowLambdaAxis(int index) {
  const LambdaRangeRecord* const range = LambdaRanges().at(static_cast<std::size_t>(index));
  if (range != nullptr) lambda_axis_volts_ = range->axis_maximum_volts;
}

std::vector<FixedText> ConfigurationModel::MissingParts(const VehicleData& vehicle) const {
  std::vector<FixedText> missing;
  const auto need = [&missing](bool given, FixedText part) {
    if (!given) missing.push_back(part);
  };
  const bool engine_size_given = vehicle.engine_size_cc > kSmallestEngineCc;
  constexpr FixedText kEngineSize = FixedText::Of("engine size (more than 500 cc)");
  const InjectorTypeRecord* const injector = ShownInjector();
  if (injector == nullptr) {
    need(engine_size_given, kEngineSize);
    return missing;
  }
  need(!vehicle.make.empty(), FixedText::Of("vehicle make"));
  need(!vehicle.model.empty(), FixedText::Of("vehicle model"));
  need(!vehicle.engine_code.empty(), FixedText::Of("engine code"));
  need(engine_size_given, kEngineSize);
  need(injector->name != kEmptyInjector, FixedText::Of("gas injector type"));
  need(injector->fixed_nozzle != 0 || nozzle_.tenths_mm > kTenthsOfOneMillimetre,
       FixedText::Of("nozzle diameter (more than 1.0 mm)"));
  need(ShownName(ChoiceList::kGasPressureSensor) != kNoSensor,
       FixedText::Of("gas pressure sensor"));
  need(ShownName(ChoiceList::kWaterTemperatureSensor) != kNoSensor,
       FixedText::Of("coolant temperature sensor"));
  return missing;
}

}  // namespace zelorgas
