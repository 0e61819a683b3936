#include "platform/FileSystem.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <random>
#include <system_error>
#include <utility>

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

// No file of this program comes near; what is larger was chosen by mistake.
constexpr std::uintmax_t kLargestFile = 512U << 20U;

std::string ReasonOf(std::errc condition) { return std::make_error_code(condition).message(); }

// Short, in the same folder, and no file browser lists it.
fs::path TemporaryName() {
  constexpr std::string_view kDigits = "0123456789abcdef";
  constexpr int kLength = 16;
  std::random_device chance;
  std::string name = ".zelorgas-";
  for (int i = 0; i < kLength; ++i) name += kDigits[chance() % kDigits.size()];
  return name;
}

bool WriteAll(FileOperations::Output& output, std::string_view contents, std::string& reason) {
  const bool written = output.Write(contents, reason) && output.Sync(reason);
  std::string close_reason;
  if (!output.Close(close_reason)) {
    if (written) reason = close_reason;
    return false;
  }
  return written;
}

}  // namespace

std::string PathText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

fs::path PathFromText(std::string_view utf8) { return {std::u8string(utf8.begin(), utf8.end())}; }

bool ReadWholeFile(const fs::path& path, std::string& contents, std::string& reason) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) {
    reason = error ? error.message() : ReasonOf(std::errc::no_such_file_or_directory);
    return false;
  }
  if (fs::is_directory(status)) {
    reason = ReasonOf(std::errc::is_a_directory);
    return false;
  }
  if (!fs::is_regular_file(status)) {
    reason = "not a regular file";
    return false;
  }
  std::ifstream stream(path, std::ios::binary);
  stream.seekg(0, std::ios::end);
  const auto size = static_cast<std::streamoff>(stream.tellg());
  stream.seekg(0);
  if (!stream || size < 0) {
    reason = ReasonOf(std::errc::permission_denied);
    return false;
  }
  if (static_cast<std::uintmax_t>(size) > kLargestFile) {
    reason = ReasonOf(std::errc::file_too_large);
    return false;
  }
  std::string read(static_cast<std::size_t>(size), '\0');
  stream.read(read.data(), size);
  if (!stream) {
    reason = ReasonOf(std::errc::io_error);
    return false;
  }
  contents = std::move(read);
  return true;
}

bool WriteWholeFile(const fs::path& path, std::string_view contents, std::string& reason) {
  return WriteWholeFileWith(*MakeFileOperations(), path, contents, reason);
}

bool WriteWholeFileWith(FileOperations& operations, const fs::path& path, std::string_view contents,
                        std::string& reason) {
  std::error_code error;
  // A person may keep the real file elsewhere, behind a link that is to stay.
  const bool is_link = fs::is_symlink(fs::symlink_status(path, error));
  const fs::path target = is_link ? fs::canonical(path, error) : path;
  if (target.empty()) {
    reason = error.message();
    return false;
  }
  const fs::file_status status = fs::status(target, error);
  if (fs::is_directory(status)) {
    reason = ReasonOf(std::errc::is_a_directory);
    return false;
  }
  const bool exists = fs::exists(status);
  if (exists && !fs::is_regular_file(status)) {
    reason = "not a regular file";
    return false;
  }
  // The folder's permissions alone would allow the rename.
  if (exists && !operations.MayWrite(target)) {
    reason = ReasonOf(std::errc::permission_denied);
    return false;
  }
  const fs::path temporary = target.parent_path() / TemporaryName();
  std::unique_ptr<FileOperations::Output> output = operations.Create(temporary, target, reason);
  if (!output) return false;
  const bool written = WriteAll(*output, contents, reason);
  output.reset();
  if (!written || !operations.Rename(temporary, target, reason)) {
    operations.Remove(temporary);
    return false;
  }
  operations.SyncFolder(target.parent_path());
  return true;
}

}  // namespace zelorgas
