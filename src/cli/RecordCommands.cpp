#include "cli/RecordCommands.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <optional>

#include "app/StoreProcedure.h"
#include "cli/CliConnection.h"
#include "cli/Commands.h"
#include "cli/ConsoleBoxes.h"
#include "cli/LiveFollower.h"
#include "cli/Text.h"
#include "diag/RecordingFile.h"
#include "platform/FileSystem.h"
#include "platform/IgnoreCase.h"

namespace zelorgas {
namespace {

// As long as the time axis at its largest scale.
constexpr std::chrono::seconds kLongestRecording{640};

// "    RPM", and numbers in columns of the same width.
std::string Column(std::string_view text) {
  constexpr std::size_t kWidth = 10;
  std::string column(kWidth - std::min(text.size(), kWidth - 1), ' ');
  return column.append(text);
}

void PrintText(CliSession& session, const ScopeTraces& traces) {
  session.Print(Column("channel") + Column("samples") + Column("newest") + Column("lowest") +
                Column("highest"));
  for (std::size_t i = 0; i < kScopeChannels; ++i) {
    const std::deque<double>& samples = traces.channels[i];
    std::string line = Column(ScopeChannelTable()[i].name) + Column(std::to_string(samples.size()));
    if (!samples.empty()) {
      const auto [lowest, highest] = std::ranges::minmax(samples);
      for (const double value : {samples.front(), lowest, highest}) {
        line += Column(FormatFixed(value, 2));
      }
    }
    session.Print(line);
  }
  session.Print("Seconds: " + FormatFixed(traces.Seconds(), 1));
  // They may be a stranger's: a terminal obeys control characters.
  if (!traces.notes.empty()) session.Print("Notes: " + EscapeControls(traces.notes, "\r\n\t"));
}

void PrintJson(CliSession& session, const ScopeTraces& traces) {
  JsonWriter document;
  document.BeginObject().Key("notes").String(traces.notes);
  document.Key("sample_period_s").Decimal(kScopeSamplePeriodSeconds, 1);
  // As in the file: the newest sample comes first.
  document.Key("channels").BeginObject();
  for (std::size_t i = 0; i < kScopeChannels; ++i) {
    document.Key(ScopeChannelTable()[i].name).BeginArray();
    for (const double sample : traces.channels[i]) document.Decimal(sample, 2);
    document.EndArray();
  }
  session.Print(document.EndObject().EndObject());
}

// Whether a recording can be stored there, so far as it can be told before it is made.
ExitStatus CheckTarget(CliSession& session, const std::string& name) {
  const std::filesystem::path path = PathFromText(name);
  std::error_code error;
  const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
  if (!std::filesystem::is_directory(folder, error)) {
    session.Message("there is no folder " + PathText(folder));
    return ExitStatus::kFileFailure;
  }
  Message reason;
  if (!CanWriteWholeFile(path, reason)) {
    session.Message(name + " cannot be written: " + reason.English());
    return ExitStatus::kFileFailure;
  }
  if (StoreTargetOf(path) != StoreTarget::kExisting) return ExitStatus::kDone;
  return Confirm(session, kStoreQuestion, name + " exists; ");
}

ExitStatus Store(CliSession& session, const ScopeTraces& traces, const std::string& name) {
  Message reason;
  if (!WriteRecording(traces, PathFromText(name), reason)) {
    session.Message(reason.English());
    return ExitStatus::kFileFailure;
  }
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject().Key("file").String(name);
    document.Key("samples").Number(static_cast<std::uint32_t>(traces.Length()));
    session.Print(document.EndObject());
  } else {
    session.Print("recorded: " + name + ", " + FormatFixed(traces.Seconds(), 1) + " s");
  }
  return ExitStatus::kDone;
}

}  // namespace

bool IsRecordingName(std::string_view name) {
  return EndsWithIgnoringCase(name, kRecordingExtension);
}

ExitStatus RunRecord(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.size() != 1) return session.UsageError("record needs the file to store in");
  const std::string& name = arguments.front();
  // A configuration is not to be written over by a recording.
  if (!IsRecordingName(name)) return session.UsageError("a recording's file ends in .osc");
  const auto seconds = session.Option("--seconds");
  if (!seconds) return session.UsageError("record needs --seconds");
  std::string problem;
  const std::optional<Clock::Duration> duration = ReadSeconds("--seconds", *seconds, problem);
  if (!duration) return session.UsageError(problem);
  if (*duration > kLongestRecording) {
    return session.UsageError("a recording holds at most 640 seconds");
  }
  if (const ExitStatus status = CheckTarget(session, name); status != ExitStatus::kDone) {
    return status;
  }
  CliConnection connection(session);
  if (const ExitStatus status = connection.ConnectToEcu(); status != ExitStatus::kDone) {
    return status;
  }

  const auto wanted = static_cast<std::size_t>(
      std::ceil(std::chrono::duration<double>(*duration).count() / kScopeSamplePeriodSeconds));
  Oscilloscope oscilloscope;
  oscilloscope.FitTimeScale(wanted);
  oscilloscope.SetNotes(session.Option("--notes").value_or(""));
  const ExitStatus status = FollowLiveValues(session, duration, [&](const LiveUpdate& update) {
    const std::size_t missing = wanted - oscilloscope.Traces().Length();
    oscilloscope.AddSamples(update.image,
                            update.records.first(std::min(missing, update.records.size())));
    return oscilloscope.Traces().Length() < wanted;
  });
  if (oscilloscope.Traces().Length() == 0) {
    if (status == ExitStatus::kDone) session.Message("nothing has been recorded");
    return ExitStatus::kRefused;
  }
  const ExitStatus stored = Store(session, oscilloscope.Traces(), name);
  return stored == ExitStatus::kDone ? status : stored;
}

ExitStatus ShowRecording(CliSession& session, const std::string& name) {
  const RecordingContents contents = LoadRecordingFile(PathFromText(name));
  if (!contents.detail.empty()) session.Message(contents.detail.English());
  if (contents.fault == RecordingFault::kNoRecording) return ExitStatus::kFileFailure;
  session.Json() ? PrintJson(session, contents.traces) : PrintText(session, contents.traces);
  return contents.fault == RecordingFault::kNone ? ExitStatus::kDone : ExitStatus::kFileFailure;
}

}  // namespace zelorgas
