// Replacing the firmware of the ECU: erase only, and erase and program. The one operation after
// which a car may stand, so nothing is erased before everything that can be checked was checked,
// and success is only what the bootloader has confirmed exchange by exchange.
//
// Runs on one thread, which may be a dialog's own; the message boxes and the hooks are called on
// it. The communication worker must not run meanwhile: who starts an update stops it before. The
// port may be open or closed; it is left open.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "app/ClpgecuDoc.h"
#include "app/Identification.h"
#include "app/MessageBoxes.h"
#include "firmware/FirmwareImages.h"
#include "firmware/FlashProgress.h"
#include "firmware/mbFlasher.h"
#include "platform/Message.h"

namespace zelorgas {

inline constexpr FixedText kNoSupplyMessage = FixedText::Of("Error, no VDD on FLMD0 pin!");
inline constexpr FixedText kEraseFailed = FixedText::Of("Erase failed! Block is not blank!");
inline constexpr FixedText kErased = FixedText::Of("Tha application has been erased successfuly!");
inline constexpr FixedText kWriteFailed = FixedText::Of("Write failed!");
inline constexpr FixedText kFlashModeStays = FixedText::Of(
    "Flash mode could not be switched off!\nPlease switch the power supply of the ECU off and on.");
inline constexpr FixedText kNoCopyQuestion = FixedText::Of(
    "The configuration of the ECU could not be stored!\nDo you want to go on without a copy of "
    "it?");

// What the surroundings add; each may be empty.
struct FirmwareHooks {
  // After every piece of the image.
  std::function<void(const FlashProgress&)> progress = {};
  // Asked between two exchanges; true ends the update there. `erasing`: the firmware is not whole
  // any more, and a stop leaves an ECU without it.
  std::function<bool(bool erasing)> stop_wanted = {};
  // Before `ecu` leaves its application: stores its configuration; false when that failed.
  std::function<bool(const EcuIdentity& ecu)> store_configuration = {};
};

class FirmwareDownload {
 public:
  enum class Outcome : std::uint8_t {
    kDone,      // the flash is blank, or holds the image
    kDeclined,  // the person has said no; nothing was changed
    kStopped,   // by the hook; FlashChanged says whether anything was erased
    kBadImage,  // the person has been told why; nothing was erased
    kFailed,    // the person has been told why; the ECU may be without firmware
  };

  // Both outlive the download.
  FirmwareDownload(ClpgecuDoc& document, MessageBoxes& boxes, FirmwareHooks hooks = {});

  // Erase blocks 2 and 3 after a question that names `ecu`, and in the second case program `image`.
  // When another ECU answers after the question than `ecu`, nothing is done to it.
  Outcome Erase(const EcuIdentity& ecu);
  Outcome Program(const std::filesystem::path& image, const EcuIdentity& ecu);

  // True once the last update has begun to erase: when it has failed then, the ECU may be without
  // firmware.
  [[nodiscard]] bool FlashChanged() const { return flash_changed_; }
  // True once the last update has ordered the ECU out of its application.
  [[nodiscard]] bool ApplicationLeft() const { return application_left_; }
  // The link's result on which the last update failed; kOk when it did not fail, or by what the ECU
  // answered.
  [[nodiscard]] ModbusResult FailureResult() const { return failure_result_; }

 private:
  // How an update ended, and what the person is told when flash mode is off again.
  struct End {
    Outcome outcome = Outcome::kDone;
    FixedText message = {};
    MessageIcon icon = MessageIcon::kNone;
    ModbusResult result = ModbusResult::kOk;
    bool flash_mode_stays = false;

    [[nodiscard]] bool GoOn() const { return outcome == Outcome::kDone; }
  };

  // Asks, makes sure that the ECU is still `ecu`, and has its configuration stored as long as it
  // runs its application.
  [[nodiscard]] End Confirm(const Message& question, const EcuIdentity& ecu);
  // Does `work` in flash mode, which is off again on every way out; nothing when the order to
  // switch it on has failed.
  [[nodiscard]] End InFlashMode(const std::function<End(mbFlasher&)>& work);
  [[nodiscard]] End EraseAll(mbFlasher& flasher);
  [[nodiscard]] End EraseAndWrite(mbFlasher& flasher, const std::filesystem::path& image,
                                  const std::vector<std::uint8_t>& checked);
  [[nodiscard]] End Prepare();
  [[nodiscard]] End WriteImage(mbFlasher& flasher, const std::vector<std::uint8_t>& image,
                               std::uint32_t start);
  [[nodiscard]] static End CheckTarget(ClpgecuDoc& document, const EcuIdentity& ecu);
  // The link failed, or the bootloader said nonsense, before anything was erased.
  [[nodiscard]] static End LinkDown(const mbFlasher& flasher);
  [[nodiscard]] static End CheckSupply(mbFlasher& flasher);
  [[nodiscard]] static End CheckRoom(mbFlasher& flasher, std::size_t size, std::uint32_t& start);
  [[nodiscard]] End EraseBlocks(mbFlasher& flasher, MessageIcon icon);
  Outcome Tell(const End& end);
  [[nodiscard]] bool StopWanted() const {
    return hooks_.stop_wanted && hooks_.stop_wanted(flash_changed_);
  }

  ClpgecuDoc& document_;
  MessageBoxes& boxes_;
  const FirmwareHooks hooks_;
  bool application_left_ = false;
  bool flash_changed_ = false;
  ModbusResult failure_result_ = ModbusResult::kOk;
};

}  // namespace zelorgas
