// Connecting to the ECU and disconnecting from it: opens the port, identifies the ECU, decides by
// its firmware version whether this program can work with it, and starts the worker. Speaks to the
// person through MessageBoxes. Runs on the user-interface thread, or the command line's only one.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/ClpgecuDoc.h"
#include "app/Identification.h"
#include "app/MessageBoxes.h"
#include "platform/Message.h"
#include "platform/SettingsStore.h"

namespace zelorgas {

// On: the bootloader does not start the application by itself after a while.
inline constexpr std::uint16_t kStayInBootloaderCoil = 2;

inline constexpr FixedText kPortBusy = FixedText::Of("Sorry! The specified COM port is busy!");

// What takes over when the ECU sits in its bootloader or the person wants newer firmware in it.
class FirmwareUpdate {
 public:
  enum class End : std::uint8_t {
    kUpdated,     // the ECU runs its new firmware
    kUntouched,   // the ECU was left alone
    kNotRunning,  // there is no application to connect to
  };

  virtual ~FirmwareUpdate() = default;
  // `in_bootloader`: the ECU already runs its bootloader and has been told to stay there (coil 2).
  // Returns when the update has ended, well or not. The port is open; who updates may close it.
  virtual End Start(bool in_bootloader) = 0;
};

class EcuConnection {
 public:
  enum class Outcome : std::uint8_t {
    kConnected,       // the worker runs
    kFailed,          // the person has been told why; the port is closed
    kDeclined,        // firmware too old and no update wanted; the port is closed
    kFirmwareUpdate,  // the firmware update has ended without an ECU to connect to
  };

  EcuConnection(ClpgecuDoc& document, MessageBoxes& boxes, SettingsStore& settings,
                FirmwareUpdate& update);

  // Opens the port that the link is set to and runs the whole procedure. With `start_worker` false
  // the port stays open and no polling begins (the command line asks and leaves).
  Outcome Connect(bool start_worker = true);

  // What the program wants from an ECU that has just been identified, such as its errors: runs once
  // a connection, while the port is open and before the worker starts.
  void SetIdentifiedHook(std::function<void()> hook) { identified_hook_ = std::move(hook); }

  // Stops the worker and closes the port.
  void Disconnect();

  // What the last Connect found out, also when it failed after the ECU had said its versions; empty
  // texts before that and after Disconnect.
  [[nodiscard]] const EcuIdentity& Identity() const { return identity_; }

  // The link's result on which the last Connect failed; kOk when it did not fail, or by what the
  // ECU answered.
  [[nodiscard]] ModbusResult FailureResult() const { return failure_result_; }

 private:
  Outcome Fail(FixedText message);
  Outcome Fail(const IdentifyOutcome& step);
  Outcome StartUpdate(bool in_bootloader);
  void StorePort();
  // Opens the port if it is not open and asks the ECU who it is, up to where a worker can start.
  Outcome Identify(bool offer_update);
  struct Gate {
    Outcome outcome = Outcome::kConnected;  // kConnected: go on
    bool identify_again = false;
  };
  // The firmware versions that this program works with.
  Gate CheckVersion(bool offer_update);
  Outcome EnterBootloader();
  // What the last car's ECU held is not shown as this one's until that is read. Without a serial
  // number nobody knows whose it was.
  void ForgetAnotherEcu();
  // Lets the document's image know whom it is connected to.
  void KeepIdentity();

  ClpgecuDoc& document_;
  MessageBoxes& boxes_;
  SettingsStore& settings_;
  FirmwareUpdate& update_;
  std::function<void()> identified_hook_;
  EcuIdentity identity_;
  std::optional<std::uint32_t> serial_;  // of the ECU whose words the document's image holds
  ModbusResult failure_result_ = ModbusResult::kOk;
};

}  // namespace zelorgas
