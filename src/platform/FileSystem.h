// Whole files, read and replaced. A file is replaced by writing a temporary file beside it and
// renaming that over it, so that a crash, a full disk or a pulled stick leaves the old file or the
// new one, complete. Any thread may call the functions.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace zelorgas {

// Paths as people see them, in UTF-8.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path PathFromText(std::string_view utf8);

// Reads the file into `contents`. False, with the system's reason and `contents` as it was, when it
// cannot be opened or read, is no regular file, or is larger than any file of this program.
[[nodiscard]] bool ReadWholeFile(const std::filesystem::path& path, std::string& contents,
                                 std::string& reason);

// Makes `contents` the whole file at `path`, in a folder that exists. False, with the system's
// reason, when it could not: the old file is then untouched, or still absent. A link is followed,
// one that leads nowhere, what is no regular file or may not be written is refused.
[[nodiscard]] bool WriteWholeFile(const std::filesystem::path& path, std::string_view contents,
                                  std::string& reason);

// The single operations behind WriteWholeFile, so that a test can let each of them fail.
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
  // Makes a rename in `folder` last, where the system can promise that.
  virtual void SyncFolder(const std::filesystem::path& folder) = 0;
  // True when a person who writes into the existing file at `path` would be allowed to.
  [[nodiscard]] virtual bool MayWrite(const std::filesystem::path& path) = 0;
};

[[nodiscard]] std::unique_ptr<FileOperations> MakeFileOperations();

// WriteWholeFile with other operations.
[[nodiscard]] bool WriteWholeFileWith(FileOperations& operations, const std::filesystem::path& path,
                                      std::string_view contents, std::string& reason);

}  // namespace zelorgas
