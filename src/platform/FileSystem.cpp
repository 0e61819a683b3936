#include "platform/FileSystem.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <fstream>
#include <random>
#include <system_error>
#include <utility>
#include <vector>

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

// What a person often meets is said in the person's language, all else in the system's words.
Message ReasonOf(const std::error_code& error) {
  static constexpr std::array<std::pair<std::errc, FixedText>, 4> kCommon{{
      {std::errc::no_such_file_or_directory, FixedText::Of("No such file or directory")},
      {std::errc::is_a_directory, FixedText::Of("Is a directory")},
      {std::errc::permission_denied, FixedText::Of("Permission denied")},
      {std::errc::io_error, FixedText::Of("Input/output error")},
  }};
  for (const auto& [condition, text] : kCommon) {
    if (error == condition) return text;
  }
  return Message::Verbatim(error.message());
}

Message ReasonOf(std::errc condition) { return ReasonOf(std::make_error_code(condition)); }

constexpr FixedText kNoRegularFile = FixedText::Of("not a regular file");

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
                Message& reason) {
  std::error_code error;
  // A person may keep the real file elsewhere, behind a link that is to stay.
  const bool is_link = fs::is_symlink(fs::symlink_status(path, error));
  target = is_link ? fs::canonical(path, error) : path;
  if (target.empty()) {
    reason = ReasonOf(error);
    return false;
  }
  const fs::file_status status = fs::status(target, error);
  if (fs::is_directory(status)) {
    reason = ReasonOf(std::errc::is_a_directory);
    return false;
  }
  const bool exists = fs::exists(status);
  if (exists && !fs::is_regular_file(status)) {
    reason = kNoRegularFile;
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

bool ReadWholeFile(const fs::path& path, std::string& contents, Message& reason,
                   std::uintmax_t largest) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) {
    reason = error ? ReasonOf(error) : ReasonOf(std::errc::no_such_file_or_directory);
    return false;
  }
  if (fs::is_directory(status)) {
    reason = ReasonOf(std::errc::is_a_directory);
    return false;
  }
  if (!fs::is_regular_file(status)) {
    reason = kNoRegularFile;
    return false;
  }
  // The stream itself does not tell why it could not be opened.
  errno = 0;
  std::ifstream stream(path, std::ios::binary);
  if (!stream) {
    reason = errno == 0 ? ReasonOf(std::errc::io_error)
                        : ReasonOf(std::error_code(errno, std::generic_category()));
    return false;
  }
  stream.seekg(0, std::ios::end);
  const auto size = static_cast<std::streamoff>(stream.tellg());
  stream.seekg(0);
  if (!stream || size < 0) {
    reason = ReasonOf(std::errc::io_error);
    return false;
  }
  if (static_cast<std::uintmax_t>(size) > largest) {
    constexpr unsigned kMegabyteShift = 20;
    reason = {FixedText::Of("it is larger than %1 MB"), largest >> kMegabyteShift};
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

bool CanWriteWholeFile(const fs::path& path, Message& reason) {
  const std::unique_ptr<FileOperations> operations = MakeFileOperations();
  fs::path target;
  if (!FindTarget(*operations, path, target, reason)) return false;
  const fs::path temporary = NewTemporary(target);
  std::string words;
  if (!operations->Create(temporary, target, words)) {
    reason = Message::Verbatim(words);
    return false;
  }
  operations->Remove(temporary);
  return true;
}

bool CreateFolders(const fs::path& folder, Message& reason) {
  std::error_code error;
  std::vector<fs::path> missing;
  for (fs::path at = folder; !at.empty() && !fs::exists(at, error); at = at.parent_path()) {
    missing.push_back(at);
    // The root of a drive that is not there.
    if (at == at.parent_path()) break;
  }
  fs::create_directories(folder, error);
  if (error) {
    reason = ReasonOf(error);
    return false;
  }
  const std::unique_ptr<FileOperations> operations = MakeFileOperations();
  std::string words;
  const bool synced = std::ranges::all_of(missing, [&](const fs::path& made) {
    return operations->SyncFolder(made.parent_path(), words);
  });
  if (!synced) reason = Message::Verbatim(words);
  return synced;
}

bool CreateFolderOf(const fs::path& path, Message& reason) {
  if (!path.has_parent_path()) return true;
  Message problem;
  if (CreateFolders(path.parent_path(), problem)) return true;
  reason = {FixedText::Of("Cannot create %1: %2"), PathText(path.parent_path()), problem};
  return false;
}

bool WriteWholeFile(const fs::path& path, std::string_view contents, Message& reason) {
  return WriteWholeFileWith(*MakeFileOperations(), path, contents, reason);
}

bool WriteWholeFileWith(FileOperations& operations, const fs::path& path, std::string_view contents,
                        Message& reason) {
  fs::path target;
  if (!FindTarget(operations, path, target, reason)) return false;
  const fs::path folder = target.parent_path();
  RemoveAbandoned(operations, folder, TemporaryPrefix(target));
  const fs::path temporary = NewTemporary(target);
  std::string words;
  std::unique_ptr<FileOperations::Output> output = operations.Create(temporary, target, words);
  const bool created = output != nullptr;
  const bool written = created && WriteAll(*output, contents, words);
  output.reset();
  if (!written || !operations.Rename(temporary, target, words)) {
    if (created) operations.Remove(temporary);
    reason = Message::Verbatim(words);
    return false;
  }
  if (operations.SyncFolder(folder, words)) return true;
  reason = {FixedText::Of("it is written, but a power failure may still undo that: %1"), words};
  return false;
}

}  // namespace zelorgas
