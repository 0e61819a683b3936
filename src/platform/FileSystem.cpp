#include "platform/FileSystem.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <random>
#include <system_error>
#include <utility>
#include <vector>

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

std::string ReasonOf(std::errc condition) { return std::make_error_code(condition).message(); }

std::string HexDigits(std::uint64_t number) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (unsigned shift = 64; shift > 0; shift -= 4) text += kDigits[(number >> (shift - 4)) & 0xFU];
  return text;
}

// How the names of the target's temporary files begin. Short however long the target's own name is;
// in the same folder, and no file browser lists them.
std::string TemporaryPrefix(const fs::path& target) {
  // FNV-1a: the same in every process.
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char c : PathText(target.filename())) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  }
  return ".zelorgas-" + HexDigits(hash) + "-";
}

fs::path NewTemporary(const fs::path& target) {
  std::random_device chance;
  return target.parent_path() / (TemporaryPrefix(target) + HexDigits(chance()));
}

// Where the file at `path` lies. False, with the reason, when it may not be replaced.
bool FindTarget(FileOperations& operations, const fs::path& path, fs::path& target,
                std::string& reason) {
  std::error_code error;
  // A person may keep the real file elsewhere, behind a link that is to stay.
  const bool is_link = fs::is_symlink(fs::symlink_status(path, error));
  target = is_link ? fs::canonical(path, error) : path;
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
  return true;
}

// A file system without locks does not tell that another process still writes.
bool IsYoung(const fs::path& path) {
  constexpr std::chrono::minutes kYoung{1};
  std::error_code error;
  const fs::file_time_type written = fs::last_write_time(path, error);
  return !error && fs::file_time_type::clock::now() - written < kYoung;
}

void RemoveAbandoned(FileOperations& operations, const fs::path& folder, std::string_view prefix) {
  std::vector<fs::path> abandoned;
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    if (PathText(entry->path().filename()).starts_with(prefix)) abandoned.push_back(entry->path());
  }
  for (const fs::path& path : abandoned) {
    if (!IsYoung(path)) operations.RemoveAbandoned(path);
  }
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

bool ReadWholeFile(const fs::path& path, std::string& contents, std::string& reason,
                   std::uintmax_t largest) {
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
  if (static_cast<std::uintmax_t>(size) > largest) {
    constexpr unsigned kMegabyteShift = 20;
    reason = "it is larger than " + std::to_string(largest >> kMegabyteShift) + " MB";
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

bool CanWriteWholeFile(const fs::path& path, std::string& reason) {
  const std::unique_ptr<FileOperations> operations = MakeFileOperations();
  fs::path target;
  if (!FindTarget(*operations, path, target, reason)) return false;
  const fs::path temporary = NewTemporary(target);
  if (!operations->Create(temporary, target, reason)) return false;
  operations->Remove(temporary);
  return true;
}

bool CreateFolders(const fs::path& folder, std::string& reason) {
  std::error_code error;
  std::vector<fs::path> missing;
  for (fs::path at = folder; !at.empty() && !fs::exists(at, error); at = at.parent_path()) {
    missing.push_back(at);
    // The root of a drive that is not there.
    if (at == at.parent_path()) break;
  }
  fs::create_directories(folder, error);
  if (error) {
    reason = error.message();
    return false;
  }
  const std::unique_ptr<FileOperations> operations = MakeFileOperations();
  return std::ranges::all_of(missing, [&](const fs::path& made) {
    return operations->SyncFolder(made.parent_path(), reason);
  });
}

bool WriteWholeFile(const fs::path& path, std::string_view contents, std::string& reason) {
  return WriteWholeFileWith(*MakeFileOperations(), path, contents, reason);
}

bool WriteWholeFileWith(FileOperations& operations, const fs::path& path, std::string_view contents,
                        std::string& reason) {
  fs::path target;
  if (!FindTarget(operations, path, target, reason)) return false;
  const fs::path folder = target.parent_path();
  RemoveAbandoned(operations, folder, TemporaryPrefix(target));
  const fs::path temporary = NewTemporary(target);
  std::unique_ptr<FileOperations::Output> output = operations.Create(temporary, target, reason);
  if (!output) return false;
  const bool written = WriteAll(*output, contents, reason);
  output.reset();
  if (!written || !operations.Rename(temporary, target, reason)) {
    operations.Remove(temporary);
    return false;
  }
  std::string sync_reason;
  if (operations.SyncFolder(folder, sync_reason)) return true;
  reason = "it is written, but a power failure may still undo that: " + sync_reason;
  return false;
}

}  // namespace zelorgas
