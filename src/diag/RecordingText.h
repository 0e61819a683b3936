// Recordings as text: the XML of ".osc" files, and comma-separated values for other programs. Pure
// functions, safe from any thread; the locale plays no part.
#pragma once

#include <string>
#include <string_view>

#include "config/XmlDocument.h"
#include "diag/ScopeChannels.h"
#include "platform/Message.h"

namespace zelorgas {

// The document of an ".osc" file. Samples are written with two decimals.
[[nodiscard]] XmlDocument RecordingDocument(const ScopeTraces& traces);

enum class RecordingFault : std::uint8_t {
  kNone,
  kNoRecording,  // another kind of file, another version, or no data: nothing was read
  kIncomplete,   // something is missing, cut off or no number; all else has been read
};

struct RecordingContents {
  ScopeTraces traces;
  RecordingFault fault = RecordingFault::kNone;
  Message detail;  // what is wrong or missing, for a person; empty with kNone
};

// Moves the document's cursor.
[[nodiscard]] RecordingContents ReadRecording(XmlDocument& document);

// A line a moment, the newest first: how many seconds before the newest it was, and the channels'
// values, empty where a channel does not reach so far back.
[[nodiscard]] std::string RecordingCsv(const ScopeTraces& traces);

}  // namespace zelorgas
