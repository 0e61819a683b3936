// The firmware update of the window: opens the dialog on the ECU that the connection has found,
// keeps the ECU's configuration before, and offers it for loading when the ECU is connected again.
// User-interface thread.
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

namespace zelorgas {

class CEcuControl;

class CFirmwareUpdate final : public FirmwareUpdate {
 public:
  // Images and backups lie below `working_folder`. Document and boxes outlive the update.
  CFirmwareUpdate(ClpgecuDoc& document, MessageBoxes& boxes, std::filesystem::path working_folder);

  // The window that the dialog belongs to; null: none.
  void SetParentWindow(QWidget* window) { window_ = window; }

  End Start(bool in_bootloader) override;

  // The configuration of an ECU has been read. When it is the one that was updated before, the
  // person is told, and offered to load what it held. `control` runs the load.
  void FollowConnection(CEcuControl& control);

  // Where the images are.
  [[nodiscard]] std::filesystem::path ImageFolder() const;

 private:
  // What was stored, and of which ECU.
  struct Stored {
    std::filesystem::path file;
    std::optional<std::uint32_t> serial;
  };

  // The images that may go into the ECU on the open port.
  [[nodiscard]] std::vector<FirmwareImage> FindImages() const;
  // Gives the file's name; nothing when the configuration could not be stored.
  [[nodiscard]] std::optional<std::string> Store(std::optional<std::uint32_t> serial);
  void Offer(const std::filesystem::path& file);

  ClpgecuDoc& document_;
  MessageBoxes& boxes_;
  const std::filesystem::path working_folder_;
  QPointer<QWidget> window_;
  bool updated_ = false;  // and not connected since
  std::optional<Stored> stored_;
};

}  // namespace zelorgas
