// A scalar parameter of the configuration in a row: its meaning, its name, and what it is edited
// with: a check box, a list of a catalogue, or a number. Each edit goes to the ECU at once, as a
// turn of the window's control. User-interface thread.
#pragma once

#include <cstdint>

#include "injectors/ConfigurationModel.h"
#include "ui/CEcuControl.h"
#include "ui/CFieldRow.h"

namespace zelorgas {

// What the rows talk to; all of it outlives them.
struct ParameterAccess {
  ConfigurationModel& model;
  CEcuControl& control;
  MessageBoxes& boxes;
};

class CParameterRow : public CFieldRow {
  Q_OBJECT

 public:
  // The row for `parameter`. Its editor has the parameter's name in lower case for object name.
  static CParameterRow* Make(const Parameter& parameter, const ParameterAccess& access,
                             QWidget* parent);

  // Shows what the model holds.
  virtual void ShowValue() = 0;

 protected:
  CParameterRow(const Parameter& parameter, const ParameterAccess& access, QWidget* parent);

  void SetParameterEditor(QWidget* editor, const QString& how);
  void Write(std::uint16_t value);
  // Runs `task` on the ECU once the click or the change of focus that wants it has been handled.
  void RunLater(CEcuControl::Task task);
  [[nodiscard]] std::uint16_t Value() const { return access_.model.Value(parameter_); }
  [[nodiscard]] ConfigurationModel& Model() const { return access_.model; }
  // Says in the status line why what the person typed was not taken.
  void Refuse(const QString& typed, const QString& range);

 private:
  const Parameter& parameter_;
  const ParameterAccess access_;
};

}  // namespace zelorgas
