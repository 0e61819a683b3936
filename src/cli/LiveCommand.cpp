#include <chrono>
#include <fstream>
#include <optional>

#include "cli/CliConnection.h"
#include "cli/Commands.h"
#include "cli/LiveFollower.h"
#include "cli/LiveFormat.h"
#include "cli/Text.h"

namespace zelorgas {
namespace {

// Shows what a follower brings.
class LiveView {
 public:
  // `csv` may be null.
  LiveView(CliSession& session, std::ofstream* csv) : session_(session), csv_(csv) {}

  // False when an output could not be written: there is then nothing to go on for.
  bool Show(const LiveUpdate& update) {
    if (!shown_) ShowHeaders();
    shown_ = true;
    const LiveSample sample{update.seconds, update.image};
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

 private:
  void ShowHeaders() {
    if (!session_.Json()) session_.Print(LiveHeader());
    if (csv_ != nullptr) *csv_ << LiveCsvHeader() << '\n';
  }

  CliSession& session_;
  std::ofstream* const csv_;
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
  LiveView view(session, csv.is_open() ? &csv : nullptr);
  const ExitStatus status = FollowLiveValues(
      session, duration, [&view](const LiveUpdate& update) { return view.Show(update); });
  csv.close();
  if (csv.fail() && !csv_file.empty()) {
    session.Message("could not write all of " + csv_file);
    return ExitStatus::kFileFailure;
  }
  return status;
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
  CliConnection connection(session);
  if (const ExitStatus status = connection.ConnectToEcu(); status != ExitStatus::kDone) {
    return status;
  }
  return ShowLive(session, duration, session.Option("--csv").value_or(""));
}

}  // namespace zelorgas
