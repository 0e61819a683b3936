#include "cli/LiveFollower.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "app/RestartWriteBack.h"

namespace zelorgas {
namespace {

// How long the first values may take: a full read over the line takes two seconds.
constexpr std::chrono::seconds kFirstValues{10};
// A signal's handler can wake nobody. While the ECU is silent its flag is seen this late.
constexpr std::chrono::milliseconds kInterruptDelay{100};

class LiveFollower {
 public:
  LiveFollower(CliSession& session, std::optional<Clock::Duration> duration,
               const std::function<bool(const LiveUpdate&)>& show)
      : session_(session), duration_(duration), show_(show), start_(Now()) {
    if (duration_) end_ = start_ + kFirstValues + *duration_;
  }

  // False when `show` has ended it.
  bool Run() {
    while (session_.Environment().interrupted == 0) {
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
  [[nodiscard]] bool HasValues() const { return begun_; }
  [[nodiscard]] bool AnotherEcu() const { return another_ecu_; }
  [[nodiscard]] bool WriteBackFailed() const { return write_back_failed_; }

 private:
  enum class Link : std::uint8_t { kNone, kComing, kUp, kLost };

  [[nodiscard]] Clock::TimePoint Now() const { return session_.Environment().clock.Now(); }
  [[nodiscard]] bool Over() const { return Now() >= end_; }

  bool Handle(CommStatus status) {
    switch (status) {
      case CommStatus::kLiveData:
        return TakeValues();
      case CommStatus::kConnecting:
        // The first one only says that the worker has begun.
        if (link_ == Link::kUp || link_ == Link::kComing) session_.Message("link lost");
        link_ = link_ == Link::kNone ? Link::kComing : Link::kLost;
        return true;
      case CommStatus::kLinkUp:
        if (link_ == Link::kLost) session_.Message("link up again");
        link_ = Link::kUp;
        return true;
      case CommStatus::kEcuRestarted:
        WriteBack();
        return true;
      case CommStatus::kAnotherEcu:
        another_ecu_ = true;
        return false;
      default:
        return true;
    }
  }

  bool TakeValues() {
    const Clock::TimePoint now = Now();
    const std::vector<LiveRecord> records = session_.Document().LiveRecords().TakeAll();
    if (!begun_) {
      // The ECU has a new record only ten times a second: the first round may have found none.
      if (records.empty()) return true;
      begun_ = true;
      start_ = now;
      if (duration_) end_ = start_ + *duration_;
    }
    return show_({std::chrono::duration<double>(now - start_).count(),
                  session_.Document().Snapshot(), records});
  }

  void WriteBack() {
    session_.Message(kRestartNotice);
    bool same = true;
    const ModbusResult result = WriteBackAfterRestart(session_.Document(), same);
    // The polling finds another ECU as well, which ends this.
    if (!same) return;
    write_back_failed_ = result != ModbusResult::kOk;
    if (write_back_failed_) {
      static_cast<void>(session_.LinkError("the data could not be synchronized", result));
    } else {
      session_.Message("the data have been synchronized");
    }
  }

  CliSession& session_;
  const std::optional<Clock::Duration> duration_;
  const std::function<bool(const LiveUpdate&)>& show_;
  Clock::TimePoint start_;
  Clock::TimePoint end_ = Clock::TimePoint::max();  // without a duration there is none
  Link link_ = Link::kNone;
  bool begun_ = false;
  bool another_ecu_ = false;
  bool write_back_failed_ = false;
};

}  // namespace

ExitStatus FollowLiveValues(CliSession& session, std::optional<Clock::Duration> duration,
                            const std::function<bool(const LiveUpdate&)>& show) {
  // A lost answer is not worth a second try when the next round brings newer values.
  session.Document().Link().SetAttemptCount(1);
  session.Environment().catch_interrupts(1);
  if (!session.Document().StartWorker()) {
    session.Message("the port could not be opened");
    return ExitStatus::kRefused;
  }
  LiveFollower follower(session, duration, show);
  const bool shown = follower.Run();
  if (follower.AnotherEcu()) {
    session.Message("another ECU answers now; stopped");
    return ExitStatus::kRefused;
  }
  if (follower.WriteBackFailed()) return ExitStatus::kRefused;
  if (shown && !follower.HasValues() && session.Environment().interrupted == 0) {
    session.Message("no live values have come");
    return ExitStatus::kRefused;
  }
  return ExitStatus::kDone;
}

}  // namespace zelorgas
