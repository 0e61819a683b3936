#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "platform/FileDescriptor.h"
#include "platform/FileSystem.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

// True when the call went well, otherwise the reason is kept.
bool Check(int result, std::string& reason) {
  if (result >= 0) return true;
  reason = std::generic_category().message(errno);
  return false;
}

class OutputPosix final : public FileOperations::Output {
 public:
  explicit OutputPosix(FileDescriptor file) : file_(std::move(file)) {}

  bool Write(std::string_view bytes, std::string& reason) override {
    while (!bytes.empty()) {
      const ssize_t count =
          RetryInterrupted([&] { return ::write(file_.Get(), bytes.data(), bytes.size()); });
      if (!Check(static_cast<int>(count < 0 ? -1 : 0), reason)) return false;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
  }
  bool Sync(std::string& reason) override {
    return Check(RetryInterrupted([&] { return ::fsync(file_.Get()); }), reason);
  }
  bool Close(std::string& reason) override {
    // Some network file systems tell only here that the disk is full. Not repeated after a signal:
    // the system has released the number by then, and the bytes are on the disk.
    const int result = ::close(file_.Release());
    return (result < 0 && errno == EINTR) || Check(result, reason);
  }

 private:
  FileDescriptor file_;
};

class FileOperationsPosix final : public FileOperations {
 public:
  std::unique_ptr<Output> Create(const fs::path& path, const fs::path& like,
                                 std::string& reason) override {
    constexpr mode_t kReadWrite = 0666;  // less what the person's mask takes away
    constexpr mode_t kPermissions = 0777;
    FileDescriptor file(RetryInterrupted(
        [&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kReadWrite); }));
    if (!Check(file.Get(), reason)) return nullptr;
    // Tells RemoveAbandoned that it is in use. A file system without locks has none there either.
    static_cast<void>(::flock(file.Get(), LOCK_EX | LOCK_NB));
    struct stat old {};
    if (::stat(like.c_str(), &old) == 0) {
      static_cast<void>(::fchmod(file.Get(), old.st_mode & kPermissions));
    }
    return std::make_unique<OutputPosix>(std::move(file));
  }
  bool Rename(const fs::path& from, const fs::path& to, std::string& reason) override {
    return Check(::rename(from.c_str(), to.c_str()), reason);
  }
  void Remove(const fs::path& path) override { ::unlink(path.c_str()); }
  void RemoveAbandoned(const fs::path& path) override {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (file && ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0) ::unlink(path.c_str());
  }
  // Without it a power failure may undo the rename. Some folders may be written and not read, and
  // some file systems cannot do it at all: there it is as good as it gets.
  bool SyncFolder(const fs::path& folder, std::string& reason) override {
    constexpr std::array kCannot = {EACCES, EINVAL, EBADF, EROFS, ENOSYS, ENOTSUP, EOPNOTSUPP};
    const FileDescriptor opened(
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const int result =
        opened ? RetryInterrupted([&] { return ::fsync(opened.Get()); }) : opened.Get();
    const int error = errno;
    return Check(result, reason) || std::ranges::find(kCannot, error) != kCannot.end();
  }
  bool MayWrite(const fs::path& path) override { return ::access(path.c_str(), W_OK) == 0; }
};

}  // namespace

std::string PathText(const fs::path& path) { return path.native(); }

fs::path PathFromText(std::string_view utf8) { return utf8; }

std::unique_ptr<FileOperations> MakeFileOperations() {
  return std::make_unique<FileOperationsPosix>();
}

}  // namespace zelorgas
