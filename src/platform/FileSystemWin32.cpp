#include <windows.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/WideText.h"
#include "platform/Win32Handle.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

// The system's text for the error of the last call.
std::string LastReason() {
  const DWORD error = ::GetLastError();
  std::array<wchar_t, 512> text{};
  const DWORD length = ::FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
  std::string reason = ToUtf8({text.data(), length});
  while (!reason.empty() && (reason.back() == ' ' || reason.back() == '.')) reason.pop_back();
  return reason.empty() ? "error " + std::to_string(error) : reason;
}

bool Check(BOOL result, std::string& reason) {
  if (result != FALSE) return true;
  reason = LastReason();
  return false;
}

class OutputWin32 final : public FileOperations::Output {
 public:
  explicit OutputWin32(Win32Handle file) : file_(std::move(file)) {}

  bool Write(std::string_view bytes, std::string& reason) override {
    constexpr std::size_t kLargestWrite = 1U << 24U;
    while (!bytes.empty()) {
      DWORD count = 0;
      const auto piece = static_cast<DWORD>(std::min(bytes.size(), kLargestWrite));
      if (!Check(::WriteFile(file_.Get(), bytes.data(), piece, &count, nullptr), reason)) {
        return false;
      }
      bytes.remove_prefix(count);
    }
    return true;
  }
  bool Sync(std::string& reason) override { return Check(::FlushFileBuffers(file_.Get()), reason); }
  bool Close(std::string& reason) override { return Check(::CloseHandle(file_.Release()), reason); }

 private:
  Win32Handle file_;
};

class FileOperationsWin32 final : public FileOperations {
 public:
  // Who may do what comes from the folder here, also for a file that is replaced.
  std::unique_ptr<Output> Create(const fs::path& path, const fs::path&,
                                 std::string& reason) override {
    Win32Handle file(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                   FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
      reason = LastReason();
      return nullptr;
    }
    return std::make_unique<OutputWin32>(std::move(file));
  }
  bool Rename(const fs::path& from, const fs::path& to, std::string& reason) override {
    return Check(
        ::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH),
        reason);
  }
  void Remove(const fs::path& path) override { ::DeleteFileW(path.c_str()); }
  // The system keeps a file that is open elsewhere, since nobody shares it.
  void RemoveAbandoned(const fs::path& path) override { Remove(path); }
  // The rename itself has gone through to the disk.
  bool SyncFolder(const fs::path&, std::string&) override { return true; }
  bool MayWrite(const fs::path& path) override {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) == 0;
  }
};

}  // namespace

std::string PathText(const fs::path& path) { return ToUtf8(path.native()); }

fs::path PathFromText(std::string_view utf8) { return ToWide(utf8); }

std::unique_ptr<FileOperations> MakeFileOperations() {
  return std::make_unique<FileOperationsWin32>();
}

}  // namespace zelorgas
