// The firmware update of the window: opens the dialog on the ECU that the connection has found,
// keeps the ECU's configuration before, and offers it for loading when the ECU is connected again,
// in this run of the program or a later one. User-interface thread.
#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/EcuConnection.h"
#include "app/MessageBoxes.h"
#include "firmware/FirmwareImages.h"
#include "platform/SettingsStore.h"

namespace zelorgas {

class CEcuControl;

class CFirmwareUpdate final : public FirmwareUpdate {
 public:
  // Images and backups lie below `working_folder`; `store` keeps which backups are still to be
  // offered. All outlive the update.
  CFirmwareUpdate(ClpgecuDoc& document, MessageBoxes& boxes, SettingsStore& store,
                  std::filesystem::path working_folder);

  // The window that the dialog belongs to; null: none.
  void SetParentWindow(QWidget* window) { window_ = window; }

  End Start(bool in_bootloader) override;

  // The configuration of an ECU has been read. When it is one whose firmware was replaced before,
  // the person is offered to load what it held, until it was loaded or declined. `control` runs the
  // load.
  void FollowConnection(CEcuControl& control);

  // Where the images are.
  [[nodiscard]] std::filesystem::path ImageFolder() const;

 private:
  // The images that may go into the ECU on the open port.
  [[nodiscard]] std::vector<FirmwareImage> FindImages() const;
  // Where the store keeps the backup of `ecu`, which is on the open port; what is kept there, empty
  // when nothing is; and keeps it.
  [[nodiscard]] std::string KeyOf(const EcuIdentity& ecu) const;
  [[nodiscard]] std::string Kept(const std::string& key) const;
  void Keep(const std::string& key, std::string_view value);
  // Whether `ecu`, on the open port, is the one that has a new firmware.
  [[nodiscard]] bool IsUpdated(const EcuIdentity& ecu) const;
  // False when the configuration could not be stored.
  [[nodiscard]] bool Store(const EcuIdentity& ecu);
  // An update has ended: what it has kept is to be offered if it has begun to erase.
  void Settle(bool erased);
  // Offers what Kept gave. True when that is settled: the configuration was loaded, or is not
  // wanted.
  bool Offer(CEcuControl& control, std::string_view backup);

  // What an update that has not ended has kept.
  struct Unsettled {
    std::string key;
    std::string before;
    bool nameless = false;  // of an ECU without a serial number
  };

  // An ECU that has a new firmware.
  struct Updated {
    std::string port;
    std::optional<std::uint32_t> serial;  // as far as it had said it before
    bool runs = false;                    // so that it is connected to at once
  };

  ClpgecuDoc& document_;
  MessageBoxes& boxes_;
  SettingsStore& store_;
  const std::filesystem::path working_folder_;
  QPointer<QWidget> window_;
  std::optional<Updated> updated_;       // and not connected since
  std::optional<std::uint32_t> target_;  // the serial number of whom the update has found last
  std::optional<Unsettled> unsettled_;
  std::string nameless_;  // the key of an erased ECU without a serial number
  std::string asked_;     // what was offered last
};

}  // namespace zelorgas
