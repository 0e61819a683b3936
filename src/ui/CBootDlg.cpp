#include "ui/CBootDlg.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <system_error>
#include <utility>

#include "firmware/ApplicationStart.h"
#include "firmware/LinkPreparation.h"
#include "platform/FileSystem.h"
#include "ui/CCaption.h"
#include "ui/Fonts.h"
#include "ui/IdentityText.h"
#include "ui/ScreenRoom.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

using Outcome = FirmwareDownload::Outcome;

constexpr double kStatusSize = 1.2;
constexpr int kWidthInCharacters = 72;

QString BytesText(std::uintmax_t bytes) { return CBootDlg::tr("%1 bytes").arg(bytes); }

QString RemainingText(std::chrono::seconds time) {
  const auto minutes = static_cast<int>(time.count() / 60);
  const auto seconds = static_cast<int>(time.count() % 60);
  return minutes > 0 ? CBootDlg::tr("%1 min %2 s left").arg(minutes).arg(seconds)
                     : CBootDlg::tr("%n s left", nullptr, seconds);
}

QString EcuText(const EcuIdentity& ecu) {
  if (ecu.bootloader) {
    return CBootDlg::tr("In its bootloader (%1)").arg(ToQString(ecu.revision));
  }
  const QString firmware = CBootDlg::tr("firmware %1").arg(VersionText(ecu.software));
  return ecu.serial ? SerialText(ecu) + ", " + firmware : firmware;
}

void SetValue(QLabel* field, const QString& caption, const QString& text) {
  field->setText(text);
  field->setAccessibleName(caption + ": " + text);
}

}  // namespace

CBootDlg::CBootDlg(ClpgecuDoc& document, MessageBoxes& boxes, Images images, Backup backup,
                   const EcuIdentity& ecu, QWidget* parent)
    : QDialog(parent),
      document_(document),
      images_(std::move(images)),
      backup_(std::move(backup)),
      calls_(*this),
      boxes_(calls_, boxes, [this](const QString& text) { ShowStatus(text); }),
      download_(document, boxes_, Hooks()),
      end_(ecu.bootloader ? FirmwareUpdate::End::kNotRunning : FirmwareUpdate::End::kUntouched) {
  setObjectName("boot_dialog");
  setWindowTitle(tr("Firmware update"));
  setAccessibleName(windowTitle());
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  const int space = fontMetrics().height();
  auto* const content = new QWidget;
  hint_ = new QLabel(content);
  hint_->setObjectName("boot_hint");
  hint_->setTextFormat(Qt::PlainText);
  hint_->setWordWrap(true);
  hint_->setMinimumHeight(fontMetrics().lineSpacing() * 3);
  hint_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  auto* const column = new QVBoxLayout(content);
  column->setContentsMargins({});
  column->setSpacing(space / 3);
  column->addWidget(MakeEcuCard());
  column->addWidget(MakeImageCard());
  column->addWidget(MakeProgressCard());
  column->addWidget(hint_);
  column->addStretch(1);
  // On a small screen, or a large scaling, all but the buttons is scrolled.
  auto* const scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setWidget(content);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(space * 2 / 3, space / 2, space * 2 / 3, space / 2);
  layout->setSpacing(space / 3);
  layout->addWidget(scroll, 1);
  layout->addLayout(MakeButtons());
  scroll->setMinimumWidth(std::max(
      fontMetrics().averageCharWidth() * kWidthInCharacters,
      content->minimumSizeHint().width() + scroll->verticalScrollBar()->sizeHint().width()));
  ShowEcu(ecu);
  ShowNoProgress(/*busy=*/false);
  ListImages();
  versions_->setFocus();
  const QSize buttons = minimumSizeHint() - QSize(0, scroll->minimumSizeHint().height());
  const int height = content->heightForWidth(scroll->minimumWidth()) + buttons.height();
  resize(WithinScreen(*this, {buttons.width(), height}));
}

void CBootDlg::WaitForEnd() {
  stop_waiting_ = true;
  // The update may still want to ask something. It is never left on its own.
  while (phase_ != Phase::kIdle) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

CCard* CBootDlg::MakeEcuCard() {
  auto* const card = new CCard("boot_ecu_card", tr("ECU"), this);
  ecu_ = new QLabel(card);
  ecu_->setObjectName("boot_ecu");
  ecu_->setTextFormat(Qt::PlainText);
  ecu_->setWordWrap(true);
  card->Body().addWidget(ecu_);
  return card;
}

CCard* CBootDlg::MakeImageCard() {
  auto* const card = new CCard("boot_image_card", tr("New firmware"), this);
  auto* const rows = new QGridLayout;
  rows->setHorizontalSpacing(fontMetrics().height());
  rows->setVerticalSpacing(fontMetrics().height() / 2);
  rows->setColumnStretch(1, 1);
  card->Body().addLayout(rows);
  auto* const label = new QLabel(tr("&Version"), card);
  versions_ = new CChoiceList(card);
  versions_->setObjectName("boot_versions");
  versions_->setAccessibleName(tr("Firmware version"));
  versions_->setToolTip(tr("The images P042*.ebi in %1").arg(images_.folder));
  versions_->setMinimumContentsLength(16);
  label->setBuddy(versions_);
  look_again_ = new QPushButton(tr("Look a&gain"), card);
  look_again_->setObjectName("boot_look_again");
  look_again_->setAccessibleName(tr("Look again for images"));
  look_again_->setToolTip(tr("Looks again for images in %1").arg(images_.folder));
  look_again_->setAutoDefault(false);
  look_again_->setMinimumWidth(look_again_->sizeHint().width() + fontMetrics().height());
  file_ = new CElidedLabel(card);
  file_->setObjectName("boot_file");
  file_->SetCaption(tr("File"), {});
  image_ = new QLabel(card);
  image_->setObjectName("boot_size");
  rows->addWidget(label, 0, 0);
  rows->addWidget(versions_, 0, 1);
  rows->addWidget(look_again_, 0, 2);
  rows->addWidget(new CCaption(tr("File"), card), 1, 0);
  rows->addWidget(file_, 1, 1, 1, 2);
  rows->addWidget(new CCaption(tr("Size"), card), 2, 0);
  rows->addWidget(image_, 2, 1, 1, 2);
  connect(versions_, &QComboBox::currentIndexChanged, this, &CBootDlg::ShowImage);
  connect(look_again_, &QPushButton::clicked, this, &CBootDlg::ListImages);
  return card;
}

CCard* CBootDlg::MakeProgressCard() {
  auto* const card = new CCard("boot_progress_card", tr("Update"), this);
  status_ = new QLabel(tr("Idle"), card);
  status_->setObjectName("boot_status");
  status_->setTextFormat(Qt::PlainText);
  status_->setFont(Scaled(status_->font(), kStatusSize));
  bar_ = new QProgressBar(card);
  bar_->setObjectName("boot_progress");
  bar_->setAccessibleName(tr("Progress of the update"));
  bytes_ = new QLabel(card);
  bytes_->setObjectName("boot_bytes");
  remaining_ = new QLabel(card);
  remaining_->setObjectName("boot_remaining");
  auto* const numbers = new QHBoxLayout;
  numbers->addWidget(bytes_);
  numbers->addStretch(1);
  numbers->addWidget(remaining_);
  card->Body().addWidget(status_);
  card->Body().addWidget(bar_);
  card->Body().addLayout(numbers);
  return card;
}

QLayout* CBootDlg::MakeButtons() {
  const auto make = [this](const char* name, const QString& text, const QString& tip) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setToolTip(tip);
    // Enter never starts what is not asked for.
    button->setAutoDefault(false);
    button->setMinimumSize(button->sizeHint().width() + fontMetrics().height(),
                           fontMetrics().height() * 2);
    return button;
  };
  erase_ = make("boot_erase", tr("Erase &only"),
                tr("Erases the firmware of the ECU without programming another"));
  program_ = make("boot_program", tr("&Erase and program"),
                  tr("Replaces the firmware of the ECU by the chosen version"));
  close_ = make("boot_close", tr("&Close"), tr("Closes the window; not during an update"));
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(erase_);
  buttons->addStretch(1);
  buttons->addWidget(program_);
  buttons->addWidget(close_);
  connect(erase_, &QPushButton::clicked, this, [this] { Begin(std::nullopt); });
  connect(program_, &QPushButton::clicked, this, [this] {
    if (const FirmwareImage* const image = ChosenImage()) Begin(image->path);
  });
  connect(close_, &QPushButton::clicked, this, &CBootDlg::reject);
  return buttons;
}

const FirmwareImage* CBootDlg::ChosenImage() const {
  const int index = versions_->currentIndex();
  return index < 0 ? nullptr : &found_[static_cast<std::size_t>(index)];
}

void CBootDlg::ListImages() {
  const std::filesystem::path chosen = ChosenImage() ? ChosenImage()->path : "";
  {
    const QSignalBlocker no_signals(versions_);
    found_ = images_.find();
    versions_->clear();
    for (const FirmwareImage& image : found_) versions_->addItem(ToQString(image.text));
    const auto place = std::ranges::find(found_, chosen, &FirmwareImage::path);
    // What is going to replace the firmware is chosen by the person, never by default.
    versions_->ShowEntry(place == found_.end() ? -1 : static_cast<int>(place - found_.begin()),
                         found_.empty() ? tr("No image was found") : tr("Choose a version"));
  }
  ShowImage();
}

void CBootDlg::ShowImage() {
  const FirmwareImage* const image = ChosenImage();
  std::error_code error;
  const std::uintmax_t size = image != nullptr ? std::filesystem::file_size(image->path, error) : 0;
  file_->SetText(image != nullptr ? ToQString(PathText(image->path.filename())) : kNoValue);
  SetValue(image_, tr("Size"), image != nullptr && !error ? BytesText(size) : kNoValue);
  ShowIdle(found_.empty()
               ? tr("Put the firmware image (P042*.ebi) into the folder %1, then look again.")
                     .arg(images_.folder)
               : tr("Switch the ignition on and leave the engine off. Charge a weak battery, and "
                    "keep the cable plugged in: once begun, the update has to go through to its "
                    "end."));
}

void CBootDlg::ShowEcu(const EcuIdentity& ecu) { SetValue(ecu_, tr("ECU"), EcuText(ecu)); }

void CBootDlg::ShowIdle(const QString& hint) {
  ShowPhase(Phase::kIdle, hint);
  QFont font = hint_->font();
  font.setBold(without_firmware_.has_value());
  hint_->setFont(font);
  if (!without_firmware_) return;
  hint_->setText(*without_firmware_ == Outcome::kDone
                     ? tr("The ECU has no firmware now. It waits in its bootloader: program a "
                          "version before you drive.")
                     : tr("The ECU may be without firmware now. It waits in its bootloader: put "
                          "right what went wrong, then erase and program again."));
}

void CBootDlg::ShowPhase(Phase phase, const QString& hint) {
  phase_ = phase;
  hint_->setText(hint);
  QFont font = hint_->font();
  font.setBold(false);
  hint_->setFont(font);
  const bool idle = phase == Phase::kIdle;
  versions_->setEnabled(idle && !found_.empty());
  look_again_->setEnabled(idle);
  erase_->setEnabled(idle);
  program_->setEnabled(idle && ChosenImage() != nullptr);
  close_->setEnabled(phase != Phase::kUpdating);
}

void CBootDlg::ShowStatus(const QString& text) {
  status_->setText(text);
  // Nobody can say how long what comes before the first page will take.
  if (phase_ == Phase::kUpdating && bar_->value() <= 0) ShowNoProgress(/*busy=*/true);
}

void CBootDlg::ShowProgress(const FlashProgress& progress) {
  bar_->setRange(0, 100);
  bar_->setValue(static_cast<int>(progress.percent));
  bytes_->setText(tr("%1 of %2").arg(QString::number(progress.done), BytesText(progress.total)));
  const bool more = progress.remaining && progress.done < progress.total;
  remaining_->setText(more ? RemainingText(*progress.remaining) : QString());
}

void CBootDlg::ShowNoProgress(bool busy) {
  bar_->setRange(0, busy ? 0 : 100);
  bar_->setValue(0);
  bytes_->clear();
  // Keeps the line's height.
  remaining_->setText(QStringLiteral(" "));
}

void CBootDlg::reject() {
  switch (phase_) {
    case Phase::kIdle:
      QDialog::reject();
      break;
    case Phase::kUpdating:
      break;
    case Phase::kStarting:
      // FollowEnd closes the window.
      stop_waiting_ = true;
      break;
  }
}

void CBootDlg::customEvent(QEvent*) { calls_.Run(); }

void CBootDlg::Begin(std::optional<std::filesystem::path> image) {
  ShowPhase(Phase::kUpdating, tr("Do not unplug the cable and do not switch the ignition off now. "
                                 "The window can be closed again when this has ended."));
  ShowNoProgress(/*busy=*/false);
  outcome_ = Outcome::kFailed;
  found_running_ = application_left_ = erased_ = programmed_ = application_runs_ = false;
  worker_ = std::make_unique<FirmwareWorker>(
      [this, image = std::move(image)] { Update(image); },
      [this](bool /*has_run*/) { calls_.Post([this] { FollowEnd(); }); });
  worker_->Begin();
}

void CBootDlg::FollowEnd() {
  worker_.reset();
  if (bar_->maximum() == 0) ShowNoProgress(/*busy=*/false);
  // A firmware that runs has not been erased: this is another ECU than before, or a mended one.
  if (found_running_ || programmed_) without_firmware_.reset();
  if (erased_ && !programmed_) without_firmware_ = outcome_;
  backup_.settle(erased_);
  using End = FirmwareUpdate::End;
  if (application_runs_) {
    end_ = programmed_ ? End::kUpdated : End::kUntouched;
  } else if (application_left_) {
    end_ = End::kNotRunning;
  } else if (found_running_) {
    end_ = End::kUntouched;
  }
  ShowIdle(programmed_ ? tr("The new firmware is in the ECU.") : tr("Nothing has been erased."));
  if (end_ == End::kUpdated) accept();
  if (stop_waiting_) QDialog::reject();
}

void CBootDlg::Update(const std::optional<std::filesystem::path>& image) {
  EcuIdentity ecu;
  // Another one may be plugged in since the dialog was opened.
  if (const IdentifyOutcome found = FindUpdateTarget(document_, ecu); !found.Ok()) {
    boxes_.Inform(found.message, MessageIcon::kError);
    return;
  }
  found_running_ = !ecu.bootloader;
  calls_.Post([this, ecu] { ShowEcu(ecu); });
  outcome_ = image ? download_.Program(*image, ecu) : download_.Erase(ecu);
  programmed_ = image && outcome_ == Outcome::kDone;
  application_left_ = download_.ApplicationLeft();
  erased_ = download_.FlashChanged();
  const bool comes_back = found_running_ && application_left_ && !erased_;
  if (programmed_ || comes_back) AwaitApplication(programmed_);
}

void CBootDlg::AwaitApplication(bool updated) {
  const auto show = [this](const QString& hint) {
    calls_.Post([this, hint] { ShowPhase(Phase::kStarting, hint); });
  };
  show(updated ? tr("The new firmware is in the ECU, which is about to start it. The program "
                    "connects again by itself.")
               : tr("Nothing has been erased. The ECU is about to start its firmware again."));
  const auto ignition_needed = [updated, show] {
    show(updated ? tr("The new firmware is in the ECU. Switch the ignition off, wait ten seconds "
                      "and switch it on again: the program then connects by itself.")
                 : tr("Nothing has been erased, but the ECU waits in its bootloader. Switch the "
                      "ignition off, wait ten seconds and switch it on again."));
  };
  application_runs_ = WaitForApplication(
      document_,
      {.ignition_needed = ignition_needed, .stop_wanted = [this] { return stop_waiting_.load(); }});
}

FirmwareHooks CBootDlg::Hooks() {
  FirmwareHooks hooks;
  hooks.progress = [this](const FlashProgress& progress) {
    calls_.Post([this, progress] { ShowProgress(progress); });
  };
  hooks.store_configuration = [this](const EcuIdentity& ecu) {
    bool stored = false;
    calls_.Call([&] {
      ShowStatus(tr("Storing the configuration..."));
      stored = backup_.store(ecu);
    });
    return stored;
  };
  return hooks;
}

}  // namespace zelorgas
