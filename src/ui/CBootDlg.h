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
  // Stores the configuration of the ECU that answers and gives the file's name; nothing when that
  // failed. Runs on the user-interface thread, while the update waits for it.
  using Store = std::function<std::optional<std::string>()>;

  // `ecu` is on the document's open port. The worker of the document does not run. Document and
  // boxes outlive the dialog.
  CBootDlg(ClpgecuDoc& document, MessageBoxes& boxes, Images images, Store store,
           const EcuIdentity& ecu, QWidget* parent);
  // Waits until an update under way has ended.
  ~CBootDlg() override;

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
  // `alert`: the hint is about an ECU that does not work now.
  void ShowPhase(Phase phase, const QString& hint, bool alert = false);
  void ShowStatus(const QString& text);
  void ShowProgress(const FlashProgress& progress);
  void ShowNoProgress(bool busy);
  [[nodiscard]] const FirmwareImage* ChosenImage() const;

  // Starts the thread: programs `image`, or erases only when there is none.
  void Begin(std::optional<std::filesystem::path> image);
  void FollowEnd();
  // What the person is to do after an update that did not end with a running application.
  [[nodiscard]] QString HintAfterUpdate() const;

  // On the update's thread.
  void Update(const std::optional<std::filesystem::path>& image);
  [[nodiscard]] FirmwareHooks Hooks(Store store);

  ClpgecuDoc& document_;
  const Images images_;
  UiCalls calls_;  // of the update's thread
  ThreadBoxes boxes_;
  FirmwareDownload download_;
  FirmwareUpdate::End end_;

  std::vector<FirmwareImage> found_;
  Phase phase_ = Phase::kIdle;
  // Written by the update's thread, read when it has ended.
  FirmwareDownload::Outcome outcome_ = FirmwareDownload::Outcome::kDeclined;
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
