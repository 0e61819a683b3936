#include "diag/RecordingFile.h"

#include <utility>

#include "app/LoadProcedure.h"
#include "app/StoreProcedure.h"
#include "platform/FileSystem.h"

namespace zelorgas {

bool WriteRecording(const ScopeTraces& traces, const std::filesystem::path& path, Message& reason) {
  XmlDocument document = RecordingDocument(traces);
  if (document.Text().size() > kLargestWholeFile) {
    reason = FixedText::Of("The recording is larger than a file may be");
    return false;
  }
  const bool saved = document.Save(path);
  if (!saved) reason = document.Result();
  return saved;
}

RecordingContents LoadRecordingFile(const std::filesystem::path& path) {
  XmlDocument document;
  if (!document.Load(path)) {
    return {{}, RecordingFault::kNoRecording, document.Result()};
  }
  return ReadRecording(document);
}

bool SaveRecording(Oscilloscope& oscilloscope, const ScopeSnapshot& seen,
                   const std::filesystem::path& path, MessageBoxes& boxes) {
  if (StoreTargetOf(path) == StoreTarget::kExisting && !boxes.Ask(kStoreQuestion)) return false;
  Message reason;
  if (!CreateFolderOf(path, reason) || !WriteRecording(seen.traces, path, reason)) {
    boxes.Status(reason);
    boxes.Inform(kConfigurationNotStored, MessageIcon::kError);
    return false;
  }
  oscilloscope.MarkSaved(seen.changes);
  boxes.Status({FixedText::Of("Saved %1"), PathText(path)});
  return true;
}

RecordingLoad LoadRecording(Oscilloscope& oscilloscope, const std::filesystem::path& path,
                            MessageBoxes& boxes) {
  if (!MayDropRecording(oscilloscope, boxes)) return RecordingLoad::kDeclined;
  RecordingContents contents = LoadRecordingFile(path);
  boxes.Status(contents.detail.empty() ? Message(FixedText::Of("Loaded %1"), PathText(path))
                                       : contents.detail);
  if (contents.fault != RecordingFault::kNoRecording) {
    // The next live record would push the loaded ones on.
    oscilloscope.SetRecording(false);
    oscilloscope.Show(std::move(contents.traces));
    oscilloscope.FitTimeScale(oscilloscope.Traces().Length());
  }
  const bool complete = contents.fault == RecordingFault::kNone;
  boxes.Inform(complete ? kConfigurationLoaded : kConfigurationNotLoaded,
               complete ? MessageIcon::kInformation : MessageIcon::kError);
  if (complete) return RecordingLoad::kLoaded;
  return contents.fault == RecordingFault::kIncomplete ? RecordingLoad::kIncomplete
                                                       : RecordingLoad::kFailed;
}

bool MayDropRecording(const Oscilloscope& oscilloscope, MessageBoxes& boxes) {
  return !oscilloscope.Unsaved() || boxes.Ask(kRecordingUnsaved);
}

}  // namespace zelorgas
