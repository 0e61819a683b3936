#include <algorithm>
#include <chrono>
#include <fstream>
#include <optional>

#include "app/RestartWriteBack.h"
#include "cli/CliConnection.h"
#include "cli/Commands.h"
#include "cli/LiveFormat.h"
#include "cli/Text.h"

namespace zelorgas {
namespace {

// How long the first values may take: a full read over the line takes two seconds.
constexpr std::chrono::seconds kFirstValues{10};
// A signal's handler can wake nobody. While the ECU is silent its flag is seen this late.
constexpr std::chrono::milliseconds kInterruptDelay{100};

// Follows what the worker posts until the time is over or the person interrupts.
class LiveView {
 public:
  // `duration`: from the first values on. `csv` may be null.
  LiveView(CliSession& session, std::optional<Clock::Duration> duration, std::ofstream* csv)
      : session_(session), duration_(duration), csv_(csv), start_(Now()) {
    if (duration_) end_ = start_ + kFirstValues + *duration_;
  }

  // False when an output could not be written: there is then nothing to go on for.
  bool Run() {
    while (!session_.Environment().interrupted) {
      const bool over = Over();
      for (const CommStatus status : session_.Statuses().TakeAll()) {
        if (!Handle(status)) return false;
      }
      // The first values have moved the end.
      if (over && Over()) return true;
      session_.Statuses().Wait(std::min<Clock::Duration>(end_ - Now(), kInterruptDelay));
    }
    return true;
  }
  [[nodiscard]] bool HasShownValues() const { return shown_; }

 private:
  enum class Link : std::uint8_t { kNone, kComing, kUp, kLost };

  [[nodiscard]] Clock::TimePoint Now() const { return session_.Environment().clock.Now(); }
  [[nodiscard]] bool Over() const { return Now() >= end_; }

  bool Handle(CommStatus status) {
    switch (status) {
      case CommStatus::kLiveData:
        return ShowValues();
      case CommStatus::kConnecting:
        // The first one only says that the worker has begun.
        if (link_ == Link::kUp) session_.Message("link lost");
        if (link_ == Link::kComing) session_.Message("the configuration could not be read yet");
        link_ = link_ == Link::kNone ? Link::kComing : Link::kLost;
        return true;
      case CommStatus::kLinkUp:
        if (link_ == Link::kLost) session_.Message("link up again");
        link_ = Link::kUp;
        return true;
      case CommStatus::kEcuRestarted:
        WriteBack();
        return true;
      default:
        return true;
    }
  }

  bool ShowValues() {
    const Clock::TimePoint now = Now();
    if (!shown_) {
      // The ECU has a new record only ten times a second: the first round may have found none.
      if (session_.Document().LiveRecords().TakeAll().empty()) return true;
      Begin(now);
    }
    const LiveSample sample{std::chrono::duration<double>(now - start_).count(),
                            session_.Document().Snapshot()};
    if (session_.Json()) {
      session_.Print(LiveJson(sample));
    } else {
      session_.Print(LiveLine(sample));
    }
    // Who reads along sees every line when it comes.
    session_.Environment().out.flush();
    if (csv_ != nullptr) *csv_ << LiveCsvLine(sample) << '\n' << std::flush;
    return session_.Environment().out && (csv_ == nullptr || *csv_);
  }

  void Begin(Clock::TimePoint now) {
    shown_ = true;
    start_ = now;
    if (duration_) end_ = start_ + *duration_;
    if (!session_.Json()) session_.Print(LiveHeader());
    if (csv_ != nullptr) *csv_ << LiveCsvHeader() << '\n';
  }

  void WriteBack() {
    session_.Message(kRestartNotice);
    const ModbusResult result = WriteBackAfterRestart(session_.Document());
    if (result == ModbusResult::kOk) {
      session_.Message("the data have been synchronized");
    } else {
      static_cast<void>(session_.LinkError("the data could not be synchronized", result));
    }
  }

  CliSession& session_;
  const std::optional<Clock::Duration> duration_;
  std::ofstream* const csv_;
  Clock::TimePoint start_;
  Clock::TimePoint end_ = Clock::TimePoint::max();  // without a duration there is none
  Link link_ = Link::kNone;
  bool shown_ = false;
};

// Polls and shows; `csv_file` may be empty.
ExitStatus ShowLive(CliSession& session, std::optional<Clock::Duration> duration,
                    const std::string& csv_file) {
  std::ofstream csv;
  if (!csv_file.empty()) {
    csv.open(csv_file, std::ios::binary | std::ios::trunc);
    if (!csv.is_open()) {
      session.Message("cannot write " + csv_file);
      return ExitStatus::kFileFailure;
    }
  }
  // A lost answer is not worth a second try when the next round brings newer values.
  session.Document().Link().SetAttemptCount(1);
  session.Environment().catch_interrupts();
  if (!session.Document().StartWorker()) {
    session.Message("the port could not be opened");
    return ExitStatus::kRefused;
  }
  LiveView view(session, duration, csv.is_open() ? &csv : nullptr);
  const bool written = view.Run();
  csv.close();
  if (csv.fail() && !csv_file.empty()) {
    session.Message("could not write all of " + csv_file);
    return ExitStatus::kFileFailure;
  }
  if (written && !view.HasShownValues() && !session.Environment().interrupted) {
    session.Message("no live values have come");
    return ExitStatus::kRefused;
  }
  return ExitStatus::kDone;
}

}  // namespace

ExitStatus RunLive(CliSession& session, std::span<const std::string> arguments) {
  if (!arguments.empty()) return session.UsageError("live takes no arguments");
  std::optional<Clock::Duration> duration;
  if (const auto seconds = session.Option("--seconds")) {
    std::string problem;
    duration = ReadSeconds("--seconds", *seconds, problem);
    if (!duration) return session.UsageError(problem);
  }
  if (const ExitStatus status = session.SelectLink(); status != ExitStatus::kDone) return status;
  CliConnection connection(session);
  if (connection.Connect() != EcuConnection::Outcome::kConnected) return ExitStatus::kRefused;
  return ShowLive(session, duration, session.Option("--csv").value_or(""));
}

}  // namespace zelorgas
