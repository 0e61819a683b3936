// What stands behind the configuration page: which entry each list shows and which one the ECU has
// taken, the nozzle field, the scales that follow a sensor, and the writes. Each choice and each
// parameter is written at once, in one turn on the link; afterwards the polling goes on, whatever
// happened. User-interface thread.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/ClpgecuDoc.h"
#include "app/MessageBoxes.h"
#include "injectors/Catalogues.h"
#include "injectors/Choices.h"
#include "injectors/VehicleData.h"
#include "platform/Message.h"

namespace zelorgas {

// The field of the nozzle diameter.
struct NozzleField {
  bool enabled = false;    // disabled: the injector's nozzle is fixed
  bool too_small = false;  // painted light red, RGB 255, 128, 128
  std::uint16_t tenths_mm = 0;

  [[nodiscard]] std::string Text() const;  // "1.1", or "---" while it is disabled
};

class ConfigurationModel {
 public:
  static constexpr std::uint16_t kFromRegisterCopy = 65535;
  static constexpr int kNothingSelected = -1;
  static constexpr unsigned kRoutingMapCount = 2;

  enum class Outcome : std::uint8_t {
    kNothing,  // nothing was selected, or the list has no such entry
    kPutBack,  // a placeholder: the list shows the previous choice again, nothing was written
    kWritten,  // the ECU has taken all of it
    kFailed,   // the person has been told; what the ECU had taken before is in it and in the image
  };

  // Both outlive the model.
  ConfigurationModel(ClpgecuDoc& document, MessageBoxes& boxes)
      : document_(document), boxes_(boxes) {}

  // Shows what the image holds: after the configuration has been read, or loaded from a file.
  void TakeFromImage();

  // The person has chosen `index` in the list. After kFailed the list goes on showing the new
  // choice, while the applied one is still the old.
  Outcome Select(ChoiceList list, int index);
  // The entry that the list shows, and the last one that the ECU has taken or was found with;
  // kNothingSelected when the ECU's value is none of the catalogue's.
  [[nodiscard]] int Shown(ChoiceList list) const { return State(list).shown; }
  [[nodiscard]] int Applied(ChoiceList list) const { return State(list).applied; }
  // Whose values the ECU has; null when that is unknown.
  [[nodiscard]] const InjectorTypeRecord* AppliedInjector() const;

  // The gas pressure comes from an on/off switch: what its list writes then. TakeFromImage finds
  // out whether the ECU has a switch, by the sensor type 0, which no sensor has, and follows when
  // that has changed; until then the person's decision stands.
  void SetSwitchMode(bool on) { switch_mode_ = on; }
  [[nodiscard]] bool SwitchMode() const { return switch_mode_; }
  // Another ECU comes: what was decided for the old one ends with the next TakeFromImage.
  void ForgetEcu() { ecu_has_switch_.reset(); }

  // Writes one parameter; those that share its register keep their bits. `value` is cut to the
  // parameter's bits. False when the ECU has not taken it: the person has been told, and Value
  // gives what the ECU still has.
  bool WriteParameter(const Parameter& parameter, std::uint16_t value);
  [[nodiscard]] std::uint16_t Value(const Parameter& parameter) const;

  // Shows `value`, tenths of a millimetre, in the nozzle field, or what NOZZLEDIAM holds. Nothing
  // happens while no injector is selected. With an injector in the ECU that the catalogue does not
  // know, TakeFromImage and WriteParameter show what NOZZLEDIAM holds.
  void refreshNozzleDiameter(std::uint16_t value);
  [[nodiscard]] const NozzleField& Nozzle() const { return nozzle_; }

  // Upper ends of the live gas pressure indicator (in the unit of PGASMAX) and of the lambda axes.
  [[nodiscard]] unsigned PressureIndicatorEnd() const { return pressure_indicator_end_; }
  [[nodiscard]] double LambdaAxisVolts() const { return lambda_axis_volts_; }

  // What the configuration lacks, each as a person would name it. With no injector selected only
  // the engine size counts.
  [[nodiscard]] std::vector<FixedText> MissingParts(const VehicleData& vehicle) const;
  [[nodiscard]] bool isConfigurationComplete(const VehicleData& vehicle) const {
    return MissingParts(vehicle).empty();
  }

  // Which of the two routing maps a stored file carries, and a loaded file replaces. An index past
  // them is ignored.
  void SelectRoutingMap(unsigned index) {
    if (index < kRoutingMapCount) document_.SelectRoutingMap(index);
  }
  [[nodiscard]] unsigned RoutingMap() const {
    return static_cast<unsigned>(document_.RoutingMap());
  }

 private:
  struct ListState {
    int shown = kNothingSelected;
    int applied = kNothingSelected;
  };

  [[nodiscard]] ListState& State(ChoiceList list) { return lists_[static_cast<std::size_t>(list)]; }
  [[nodiscard]] const ListState& State(ChoiceList list) const {
    return lists_[static_cast<std::size_t>(list)];
  }
  // The name that the list shows; empty when nothing is selected.
  [[nodiscard]] std::string_view ShownName(ChoiceList list) const;
  [[nodiscard]] const InjectorTypeRecord* ShownInjector() const;
  [[nodiscard]] bool Write(const std::vector<RegisterWrite>& writes);
  void AfterWriting(ChoiceList list, std::size_t entry, bool switch_mode);
  void ShowLambdaAxis(int index);
  void ShowNozzleOfEcu();
  void ShowDiameter(std::uint16_t tenths_mm);

  ClpgecuDoc& document_;
  MessageBoxes& boxes_;
  std::array<ListState, kChoiceLists.size()> lists_;
  bool switch_mode_ = false;
  std::optional<bool> ecu_has_switch_;  // once it has been read
  NozzleField nozzle_;
  unsigned pressure_indicator_end_ = PressureIndicatorMaximum(0);
  double lambda_axis_volts_ = 1;
};

}  // namespace zelorgas
