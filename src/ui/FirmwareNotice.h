// What stands in for the firmware update in a program that cannot replace the ECU's firmware: it
// says so. User-interface thread.
#pragma once

#include "app/EcuConnection.h"
#include "app/MessageBoxes.h"

namespace zelorgas {

class FirmwareNotice final : public FirmwareUpdate {
 public:
  // `boxes` outlives the notice.
  explicit FirmwareNotice(MessageBoxes& boxes) : boxes_(boxes) {}

  void Start(bool in_bootloader) override {
    boxes_.Inform(in_bootloader
                      ? "The ECU is in its bootloader and waits for new firmware.\nThis version of "
                        "ZelorGAS cannot replace the firmware."
                      : "This version of ZelorGAS cannot replace the firmware.",
                  MessageIcon::kInformation);
  }

 private:
  MessageBoxes& boxes_;
};

}  // namespace zelorgas
