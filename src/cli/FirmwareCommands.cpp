#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <utility>

#include "app/BackupProcedure.h"
#include "cli/Commands.h"
#include "cli/ConsoleBoxes.h"
#include "cli/Text.h"
#include "config/StoragePaths.h"
#include "firmware/FirmwareDownload.h"
#include "firmware/LinkPreparation.h"
#include "platform/FileSystem.h"
#include "platform/StandardStreams.h"

namespace zelorgas {
namespace {

using Outcome = FirmwareDownload::Outcome;

constexpr std::string_view kAfterwards =
    "Switch the ignition off and on: the ECU then starts its new firmware.";
constexpr std::string_view kRepeat =
    "The ECU may be without firmware now. It waits in its bootloader: run the command again.";
constexpr std::string_view kStopping = "stopping";
constexpr std::string_view kGoesOn =
    "the update goes on: to stop now would leave the ECU without firmware; Ctrl+C once more stops "
    "it all the same";
constexpr unsigned kInterrupts = 2;  // both are answered

// "2:05", for what is left of a download.
std::string MinutesAndSeconds(std::chrono::seconds time) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%lld:%02d", static_cast<long long>(time.count() / 60),
                static_cast<int>(time.count() % 60));
  return text.data();
}

// How far a download is, on standard error: a bar that stays on its line on a terminal, otherwise a
// line for every tenth.
class ProgressLines {
 public:
  explicit ProgressLines(CliSession& session) : session_(session) {}

  void Show(const FlashProgress& progress) {
    const unsigned step = progress.percent / (Bar() ? 1 : 10);
    if (step == shown_ && progress.done < progress.total) return;
    shown_ = step;
    std::string text = std::to_string(progress.percent) + " %";
    if (progress.remaining) text += ", " + MinutesAndSeconds(*progress.remaining) + " left";
    if (Bar()) {
      DrawBar(progress.percent, text);
    } else {
      session_.Message(text);
    }
  }
  // Ends the bar's line, so that a message begins a new one.
  void End() {
    if (drawn_) session_.Environment().err << '\n';
    drawn_ = false;
  }

 private:
  [[nodiscard]] bool Bar() const { return session_.Environment().err_is_terminal; }

  void DrawBar(unsigned percent, std::string text) {
    constexpr unsigned kWidth = 40;
    constexpr std::size_t kTextWidth = 20;  // covers what stood there before
    const unsigned filled = percent * kWidth / 100;
    text.resize(std::max(text.size(), kTextWidth), ' ');
    session_.Environment().err << "\r[" << std::string(filled, '#')
                               << std::string(kWidth - filled, '.') << "] " << text << std::flush;
    drawn_ = true;
  }

  CliSession& session_;
  unsigned shown_ = 0;
  bool drawn_ = false;
};

// The console, where --yes has answered all questions before they are asked, but for the one about
// an update without a backup: a script must not lose a configuration unseen.
class UpdateBoxes final : public MessageBoxes {
 public:
  UpdateBoxes(CliSession& session, ProgressLines& progress)
      : session_(session),
        console_(session),
        progress_(progress),
        yes_(session.Option("--yes").has_value()) {}

  void Inform(const Message& text, MessageIcon icon) override {
    progress_.End();
    console_.Inform(text, icon);
  }
  bool Ask(const Message& text) override {
    const bool about_backup = text == kNoCopyQuestion.English();
    if (about_backup && yes_) {
      session_.Message("nothing has been erased; with --no-backup it goes on without a copy");
      return false;
    }
    if (!yes_ && !console_.Ask(text)) return false;
    // While a question stands there, Ctrl+C ends the program as it does anywhere.
    if (!std::exchange(begun_, true)) session_.Environment().catch_interrupts(kInterrupts);
    return true;
  }
  void Status(const Message& text) override {
    progress_.End();
    console_.Status(text);
  }

 private:
  CliSession& session_;
  ConsoleBoxes console_;
  ProgressLines& progress_;
  const bool yes_;
  bool begun_ = false;
};

// One update, from who is there to what became of it.
class Update {
 public:
  explicit Update(CliSession& session) : session_(session) {
    session_.Document().SetSliceHook([this] { AnswerInterrupt(); });
  }
  ~Update() { session_.Document().SetSliceHook({}); }
  Update(const Update&) = delete;
  Update& operator=(const Update&) = delete;

  // Without a person to ask, --yes is needed.
  ExitStatus Begin() {
    if (const ExitStatus status = CheckCanAsk(session_); status != ExitStatus::kDone) return status;
    if (const ExitStatus status = session_.OpenLink(); status != ExitStatus::kDone) return status;
    const IdentifyOutcome found = FindUpdateTarget(session_.Document(), ecu_);
    if (!found.Ok()) {
      session_.Message(found.message);
      ShowResult(found.result);
      return ExitStatus::kRefused;
    }
    OutliveTerminal();
    return ExitStatus::kDone;
  }

  ExitStatus Erase() { return StatusOf(download_.Erase(ecu_)); }
  ExitStatus Program(const std::filesystem::path& image) {
    return StatusOf(download_.Program(image, ecu_));
  }

  [[nodiscard]] std::string Name() const { return NameOfTarget(ecu_).English(); }
  [[nodiscard]] double Seconds() const {
    return std::chrono::duration<double>(session_.Environment().clock.Now() - start_).count();
  }
  // What to do when the ECU has its new firmware.
  [[nodiscard]] std::string Advice() const {
    std::string text(kAfterwards);
    if (stored_) {
      text += "\nWhat it held before: zelorgas-cli write --both-maps " + PathText(*stored_);
    }
    return text;
  }

 private:
  ExitStatus StatusOf(Outcome outcome) {
    switch (outcome) {
      case Outcome::kDone:
        return ExitStatus::kDone;
      case Outcome::kBadImage:
        TellWhereItWaits();
        return ExitStatus::kFileFailure;
      case Outcome::kStopped:
        session_.Message(download_.FlashChanged() ? kRepeat : "stopped; nothing has been erased");
        TellWhereItWaits();
        break;
      case Outcome::kDeclined:
        break;
      case Outcome::kFailed:
        ShowResult(download_.FailureResult());
        if (download_.FlashChanged()) session_.Message(kRepeat);
        TellWhereItWaits();
        break;
    }
    return ExitStatus::kRefused;
  }
  // An ECU that is whole but was led into its bootloader stays there.
  void TellWhereItWaits() {
    if (!download_.ApplicationLeft() || download_.FlashChanged()) return;
    session_.Message("the ECU waits in its bootloader: switch the ignition off and on");
  }

  void ShowResult(ModbusResult result) {
    if (result != ModbusResult::kOk) session_.Message(session_.Ecu().ErrorText(result).English());
  }

  [[nodiscard]] FirmwareHooks Hooks() {
    FirmwareHooks hooks = {
        .progress =
            [this](const FlashProgress& progress) {
              AnswerInterrupt();
              lines_.Show(progress);
            },
        .stop_wanted =
            [this](bool erasing) {
              AnswerInterrupt();
              if (!erasing) start_ = session_.Environment().clock.Now();
              return answered_ > (erasing ? 1U : 0U);
            },
        .store_configuration = [this](const EcuIdentity&) { return StoreConfiguration(); }};
    if (session_.Option("--no-backup")) hooks.store_configuration = {};
    return hooks;
  }

  // Between two looks at the line, and between two exchanges.
  void AnswerInterrupt() {
    const unsigned interrupts = session_.Environment().interrupted;
    if (std::exchange(answered_, interrupts) == interrupts) return;
    lines_.End();
    session_.Message(download_.FlashChanged() && interrupts == 1 ? kGoesOn : kStopping);
  }

  bool StoreConfiguration() {
    Message problem;
    stored_ = BackUpConfiguration(session_.Document(), BackupFolder(WorkingFolder()),
                                  "What the ECU held before its firmware was updated", problem);
    session_.Message(stored_ ? "the configuration is stored in " + PathText(*stored_)
                             : "the configuration could not be stored: " + problem.English());
    return stored_.has_value();
  }

  CliSession& session_;
  ProgressLines lines_{session_};
  UpdateBoxes boxes_{session_, lines_};
  unsigned answered_ = 0;  // interrupts
  EcuIdentity ecu_;
  std::optional<std::filesystem::path> stored_;
  Clock::TimePoint start_;
  FirmwareDownload download_{session_.Document(), boxes_, Hooks()};
};

}  // namespace

ExitStatus RunErase(CliSession& session, std::span<const std::string> arguments) {
  if (!arguments.empty()) return session.UsageError("erase takes no arguments");
  Update update(session);
  if (const ExitStatus status = update.Begin(); status != ExitStatus::kDone) return status;
  if (const ExitStatus status = update.Erase(); status != ExitStatus::kDone) return status;
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject().Key("ecu").String(update.Name()).Key("erased").Bool(true);
    session.Print(document.EndObject());
  } else {
    session.Print("erased: " + PrintableText(update.Name()));
  }
  return ExitStatus::kDone;
}

ExitStatus RunFlash(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.size() != 1) return session.UsageError("flash needs the file of an image");
  const std::string& name = arguments.front();
  const std::filesystem::path image = PathFromText(name);
  // A file that is no image is no reason to look for an ECU.
  const ImageContent content = ReadFirmwareImage(image);
  if (!content.problem.empty()) {
    session.Message(name + ": " + std::string(content.problem.English()));
    return ExitStatus::kFileFailure;
  }
  Update update(session);
  if (const ExitStatus status = update.Begin(); status != ExitStatus::kDone) return status;
  if (const ExitStatus status = update.Program(image); status != ExitStatus::kDone) return status;
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject().Key("ecu").String(update.Name()).Key("image").String(name);
    document.Key("size").Number(static_cast<std::uint32_t>(content.bytes.size()));
    session.Print(document.Key("seconds").Decimal(update.Seconds(), 1).EndObject());
  } else {
    session.Print("written: " + std::to_string(content.bytes.size()) + " bytes in " +
                  FormatFixed(update.Seconds(), 1) + " s");
    session.Message(update.Advice());
  }
  return ExitStatus::kDone;
}

}  // namespace zelorgas
