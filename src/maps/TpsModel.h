// The throttle corrections as a person changes them: both tables, their switches, the return to
// idle and the throttle's end points. It keeps nothing: what is shown is the image, and every edit
// goes to the ECU at once, register by register. Used by the user-interface thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "app/ClpgecuDoc.h"
#include "app/LinkSession.h"
#include "app/MessageBoxes.h"
#include "maps/TpsRegisters.h"

namespace zelorgas {

class TpsModel {
 public:
  // Shows every control anew from the texts below. It runs after every edit that ended in a write,
  // failed or not, or in a message, so that a control shows what the ECU has.
  using Refresh = std::function<void()>;

  // `document` and `boxes` outlive the model.
  TpsModel(ClpgecuDoc& document, MessageBoxes& boxes, Refresh refresh = {})
      : document_(document), boxes_(boxes), refresh_(std::move(refresh)) {}

  // The image's words as the controls show them. `band` is counted from 0.
  [[nodiscard]] std::string CellText(TpsTable table, TpsQuantity quantity, std::size_t band) const;
  [[nodiscard]] std::string BandText(std::size_t band) const;  // the speed, from the grid's centres
  [[nodiscard]] std::string OutletText(TpsTable table) const;
  [[nodiscard]] bool Enabled(TpsTable table) const;
  [[nodiscard]] std::string IdleText(std::size_t setting) const;  // index into kIdleSettings
  [[nodiscard]] std::string ClosedThrottleText() const;
  [[nodiscard]] std::string FullThrottleText() const;

  // Each writes one register and is true when the ECU has taken it; otherwise a message has said
  // why. A number of the table may be followed by the unit that its row shows. A text that is no
  // number, or one that no register can hold, writes nothing; all else is for the ECU to judge.
  bool EditCell(TpsTable table, TpsQuantity quantity, std::size_t band, std::string_view text);
  bool EditOutlet(TpsTable table, std::string_view text);
  bool SetEnabled(TpsTable table, bool enabled);
  bool EditIdle(std::size_t setting, std::string_view text);
  bool WriteRegister(std::uint16_t reg, std::uint16_t value);

  // Both in one request. While one of them is empty nothing happens, without a word; what is no
  // number is told.
  bool WriteEndPoints(std::string_view closed, std::string_view full);
  [[nodiscard]] static bool IsEndPoint(std::string_view text);

 private:
  enum class Sign : std::uint8_t { kSigned, kUnsigned };

  [[nodiscard]] std::uint16_t Word(std::uint16_t reg) const;
  bool WriteWhole(std::uint16_t reg, std::string_view text, Sign sign, std::string_view unit = {});
  template <typename Write>
  bool WriteInSession(Write write);
  void Reject(std::string_view text, FixedText message);
  void ShowAnew() const {
    if (refresh_) refresh_();
  }

  ClpgecuDoc& document_;
  MessageBoxes& boxes_;
  const Refresh refresh_;
};

}  // namespace zelorgas
