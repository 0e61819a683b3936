// The firmware update dialog: who is on the line, the images, what the update is doing and how long
// it will take. The update runs on a thread of its own; until it has ended the dialog cannot be
// closed, whatever the person tries. User-interface thread.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/EcuConnection.h"
#include "firmware/FirmwareDownload.h"
#include "firmware/FirmwareWorker.h"
#include "ui/CCard.h"
#include "ui/CChoiceList.h"
#include "ui/CElidedLabel.h"
#include "ui/ThreadBoxes.h"
#include "ui/UiCalls.h"

namespace zelorgas {

class CBootDlg final : public QDialog {
  Q_OBJECT

 public:
  // Where the dialog finds its images: all that are offered, the newest first, and the folder's
  // name for people.
  struct Images {
    std::function<std::vector<FirmwareImage>()> find;
    QString folder;
  };
  // What is done about the configuration of the ECU. Both run on the user-interface thread.
  struct Backup {
    // Stores that of `ecu`, which answers, while the update waits for it; false when that failed.
    std::function<bool(const EcuIdentity& ecu)> store;
    // An update has ended, and had begun to erase or not.
    std::function<void(bool erased)> settle;
  };

  // `ecu` is on the document's open port. The worker of the document does not run. Document and
  // boxes outlive the dialog.
  CBootDlg(ClpgecuDoc& document, MessageBoxes& boxes, Images images, Backup backup,
           const EcuIdentity& ecu, QWidget* parent);
  ~CBootDlg() override { WaitForEnd(); }

  // Returns when no update is under way; before that nothing below is certain.
  void WaitForEnd();
  // What has become of the ECU.
  [[nodiscard]] FirmwareUpdate::End End() const { return end_; }
  // True when the last update has put an image into the ECU, whether it runs already or not.
  [[nodiscard]] bool Programmed() const { return programmed_; }

  // Escape and the close button: not during an update.
  void reject() override;

 protected:
  // The update's thread wants something.
  void customEvent(QEvent* event) override;

 private:
  enum class Phase : std::uint8_t { kIdle, kUpdating, kStarting };

  CCard* MakeEcuCard();
  CCard* MakeImageCard();
  CCard* MakeProgressCard();
  QLayout* MakeButtons();

  void ListImages();
  void ShowImage();
  void ShowEcu(const EcuIdentity& ecu);
  void ShowPhase(Phase phase, const QString& hint);
  // With `hint`, unless the ECU is without firmware: then with what is to be done about that.
  void ShowIdle(const QString& hint);
  void ShowStatus(const QString& text);
  void ShowProgress(const FlashProgress& progress);
  void ShowNoProgress(bool busy);
  [[nodiscard]] const FirmwareImage* ChosenImage() const;

  // Starts the thread: programs `image`, or erases only when there is none.
  void Begin(std::optional<std::filesystem::path> image);
  void FollowEnd();

  // On the update's thread.
  void Update(const std::optional<std::filesystem::path>& image);
  void AwaitApplication(bool updated);
  [[nodiscard]] FirmwareHooks Hooks();

  ClpgecuDoc& document_;
  const Images images_;
  const Backup backup_;
  UiCalls calls_;  // of the update's thread
  ThreadBoxes boxes_;
  FirmwareDownload download_;
  FirmwareUpdate::End end_;

  std::vector<FirmwareImage> found_;
  Phase phase_ = Phase::kIdle;
  // Of an ECU that has been erased and not been programmed since.
  std::optional<FirmwareDownload::Outcome> without_firmware_;
  // Reset before an update, written by its thread, read when it has ended.
  FirmwareDownload::Outcome outcome_ = FirmwareDownload::Outcome::kDeclined;
  bool found_running_ = false;     // the ECU, in its application
  bool application_left_ = false;  // it was ordered out of it
  bool erased_ = false;            // or begun to be
  bool programmed_ = false;
  bool application_runs_ = false;
  std::atomic<bool> stop_waiting_{false};

  QLabel* ecu_ = nullptr;
  CChoiceList* versions_ = nullptr;
  QPushButton* look_again_ = nullptr;
  QLabel* image_ = nullptr;
  CElidedLabel* file_ = nullptr;
  QLabel* status_ = nullptr;
  QProgressBar* bar_ = nullptr;
  QLabel* bytes_ = nullptr;
  QLabel* remaining_ = nullptr;
  QLabel* hint_ = nullptr;
  QPushButton* erase_ = nullptr;
  QPushButton* program_ = nullptr;
  QPushButton* close_ = nullptr;

  std::unique_ptr<FirmwareWorker> worker_;  // uses all of the above
};

}  // namespace zelorgas
