// The errors that the ECU has stored: reads both banks into the two pages, and deletes one error or
// all of them in the ECU. Each procedure holds the polling for its time; afterwards the polling
// goes on, whatever happened. User-interface thread, or the command line's only one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>

#include "app/ClpgecuDoc.h"
#include "app/LinkSession.h"
#include "app/MessageBoxes.h"
#include "errors/ErrorPage.h"

namespace zelorgas {

class ErrorLog final : public ErrorOwner {
 public:
  // Both outlive the log, which owns the sheet and is its pages' owner.
  ErrorLog(ClpgecuDoc& document, MessageBoxes& boxes) : document_(document), boxes_(boxes) {
    sheet_.SetOwner(this);
  }
  ErrorLog(const ErrorLog&) = delete;
  ErrorLog& operator=(const ErrorLog&) = delete;

  [[nodiscard]] ErrorSheet& Sheet() { return sheet_; }

  // Clears the sheet and reads both banks, the second also when the first could not be read: once
  // the ECU is identified, before the polling begins, and whenever the person asks for it. The page
  // of a bank that could not be read stays empty; one message gives the link's text of the first
  // failure, which is the result.
  ModbusResult ReadErrors();
  // The bank's page holds what was read, not just nothing.
  [[nodiscard]] bool Known(ErrorBank bank) const { return known_[static_cast<std::size_t>(bank)]; }
  // Nothing is known of the ECU that comes next.
  void Forget();

  // Sets the count of one error to 0 in the ECU and takes its entry away. On a failure, and for a
  // code that the bank does not have, the person is told and the entry stays; likewise when another
  // ECU answers than the one that was connected to, from which nothing is deleted.
  bool DeleteError(std::uint16_t code, ErrorBank bank) override;
  // Has the ECU erase both banks and clears both pages; the coil that does it depends on the
  // firmware. For firmware that has none, and on a failure, the person is told and the entries
  // stay.
  bool DeleteAllErrors() override;

 private:
  ModbusResult ReadBank(LinkSession& session, ErrorBank bank);
  // Runs `work` on the link when the ECU is still the one whose errors are shown. What it returns;
  // false, the person being told, on a failure.
  bool RunOnSameEcu(const std::function<ModbusResult(LinkSession&)>& work);
  bool FailRequest();

  ClpgecuDoc& document_;
  MessageBoxes& boxes_;
  ErrorSheet sheet_;
  std::array<bool, 2> known_{};  // by bank
};

}  // namespace zelorgas
