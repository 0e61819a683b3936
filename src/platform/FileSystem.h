// Whole files, read and replaced. A file is replaced by writing a temporary file beside it and
// renaming that over it, so that a crash, a full disk or a pulled stick leaves the old file or the
// new one, complete. Any thread may call the functions.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Message.h"

namespace zelorgas {

// Paths as people see them, in UTF-8; what cannot be said in it becomes the replacement character
// on Windows and stays as it is elsewhere.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path PathFromText(std::string_view utf8);

// In bytes. No file of this program comes near: a recording of the longest time has half a
// megabyte. What is larger was chosen by mistake.
inline constexpr std::uintmax_t kLargestWholeFile = 16U << 20U;

// Reads the file into `contents`. False, with the reason and `contents` as it was, when it cannot
// be opened or read, is no regular file, or has more than `largest` bytes.
[[nodiscard]] bool ReadWholeFile(const std::filesystem::path& path, std::string& contents,
                                 Message& reason, std::uintmax_t largest = kLargestWholeFile);

// Makes `contents` the whole file at `path`, in a folder that exists. False, with the
// reason, when it could not: the old file is then untouched, or still absent; or the new one is in
// its place, complete, and the reason says that a power failure may undo it. A link is followed,
// one that leads nowhere, what is no regular file or may not be written is refused. What a killed
// process has left behind at the same target is removed when it is a minute old.
[[nodiscard]] bool WriteWholeFile(const std::filesystem::path& path, std::string_view contents,
                                  Message& reason);

// True when WriteWholeFile may be expected to succeed there, for what takes long to come by. What
// is at `path` is left alone.
[[nodiscard]] bool CanWriteWholeFile(const std::filesystem::path& path, Message& reason);

// Makes the folder and those on the way to it that do not exist, and returns when a power failure
// cannot take them away. False, with the reason, when it could not.
[[nodiscard]] bool CreateFolders(const std::filesystem::path& folder, Message& reason);
// The same for the folder that the file at `path` is to stand in, which the reason then names.
[[nodiscard]] bool CreateFolderOf(const std::filesystem::path& path, Message& reason);

// The single operations behind WriteWholeFile, so that a test can let each of them fail. Reasons
// are the system's words.
class FileOperations {
 public:
  // A new file, open for writing. Closed when it goes.
  class Output {
   public:
    virtual ~Output() = default;
    [[nodiscard]] virtual bool Write(std::string_view bytes, std::string& reason) = 0;
    // Returns when the bytes are on the disk.
    [[nodiscard]] virtual bool Sync(std::string& reason) = 0;
    // Called once.
    [[nodiscard]] virtual bool Close(std::string& reason) = 0;
  };

  virtual ~FileOperations() = default;

  // Null when it cannot be created, also when something of this name exists. It gets the
  // permissions of `like` where there is such a file.
  [[nodiscard]] virtual std::unique_ptr<Output> Create(const std::filesystem::path& path,
                                                       const std::filesystem::path& like,
                                                       std::string& reason) = 0;
  // `to` becomes what `from` was, in one step.
  [[nodiscard]] virtual bool Rename(const std::filesystem::path& from,
                                    const std::filesystem::path& to, std::string& reason) = 0;
  virtual void Remove(const std::filesystem::path& path) = 0;
  // Removes a file that Create has made, unless its Output is still open, here or elsewhere.
  virtual void RemoveAbandoned(const std::filesystem::path& path) = 0;
  // Makes a rename in `folder` last. True also where the system cannot promise that.
  [[nodiscard]] virtual bool SyncFolder(const std::filesystem::path& folder,
                                        std::string& reason) = 0;
  // True when a person who writes into the existing file at `path` would be allowed to.
  [[nodiscard]] virtual bool MayWrite(const std::filesystem::path& path) = 0;
};

[[nodiscard]] std::unique_ptr<FileOperations> MakeFileOperations();

// WriteWholeFile with other operations.
[[nodiscard]] bool WriteWholeFileWith(FileOperations& operations, const std::filesystem::path& path,
                                      std::string_view contents, Message& reason);

}  // namespace zelorgas
