// Recordings in files, and the oscilloscope's save and load as a person sees them. Runs on the
// thread that owns the oscilloscope.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "app/MessageBoxes.h"
#include "diag/Oscilloscope.h"
#include "diag/RecordingText.h"
#include "platform/Message.h"

namespace zelorgas {

inline constexpr std::string_view kRecordingExtension = ".osc";
inline constexpr FixedText kRecordingUnsaved =
    FixedText::Of("The recording has not been saved and will be lost!\nDo you want to continue?");

// Writes the traces; the file is then either the old or the new one. False, with a reason for a
// person, when it could not.
[[nodiscard]] bool WriteRecording(const ScopeTraces& traces, const std::filesystem::path& path,
                                  Message& reason);
// kNoRecording also for a file that cannot be read.
[[nodiscard]] RecordingContents LoadRecordingFile(const std::filesystem::path& path);

// Saves what the oscilloscope held when the person asked for it, `seen`; what has come since stays
// unsaved. Asks before it writes over a file, and makes the folders that are missing. The status
// line tells how it went; a failure also gets a message box.
bool SaveRecording(Oscilloscope& oscilloscope, const ScopeSnapshot& seen,
                   const std::filesystem::path& path, MessageBoxes& boxes);

enum class RecordingLoad : std::uint8_t {
  kDeclined,    // by the person; everything is as it was
  kFailed,      // the file is no recording, or cannot be read; everything is as it was
  kIncomplete,  // what could be read is shown
  kLoaded,
};

// Shows the file's recording in place of the present one, stopped and on a time axis that takes it;
// asks first when the present one is unsaved. Pieces that are no numbers are left out, and the rest
// is shown, with the error message. The status line tells what is wrong.
RecordingLoad LoadRecording(Oscilloscope& oscilloscope, const std::filesystem::path& path,
                            MessageBoxes& boxes);

// For whoever is about to drop the recording: true when it is saved or may be lost.
[[nodiscard]] bool MayDropRecording(const Oscilloscope& oscilloscope, MessageBoxes& boxes);

}  // namespace zelorgas
