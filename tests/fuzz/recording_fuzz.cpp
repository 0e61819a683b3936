// Any text as a recording: reading is memory-safe, and what has been read is written so that it
// reads back and is then written the same.
#include <cstdint>
#include <cstdlib>

#include "diag/RecordingText.h"

namespace {

zelorgas::RecordingContents Read(const std::string& text) {
  zelorgas::XmlDocument document;
  document.SetDocumentText(text);
  return ReadRecording(document);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using zelorgas::RecordingFault;
  const zelorgas::RecordingContents read = Read(std::string(data, data + size));
  const std::string text = RecordingDocument(read.traces).Text();
  const zelorgas::RecordingContents again = Read(text);
  if (again.fault != RecordingFault::kNone || !again.detail.empty() ||
      again.traces.notes != read.traces.notes || RecordingDocument(again.traces).Text() != text ||
      RecordingCsv(read.traces).empty()) {
    std::abort();
  }
  return 0;
}
