// Showing oscilloscope recordings on the console. Used by the thread that runs the command.
#pragma once

#include <string>
#include <string_view>

#include "cli/CliSession.h"

namespace zelorgas {

// Whether `name` has the extension of recordings, in capitals or not.
[[nodiscard]] bool IsRecordingName(std::string_view name);

// Prints the channels of the recording `name`: how many samples each has, what they range over, and
// the notes; with --json the samples themselves. kFileFailure, after a message, when it is no
// recording or some of its numbers could not be read; the others are printed then.
ExitStatus ShowRecording(CliSession& session, const std::string& name);

}  // namespace zelorgas
