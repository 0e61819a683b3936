// The system's file operations, of which a chosen one fails or is the last that the process does.
// One thread at a time.
#pragma once

#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "platform/FileSystem.h"

namespace zelorgas {

enum class FileFault : std::uint8_t { kFails, kKillsBefore, kKillsAfter };

class FaultyFiles final : public FileOperations {
 public:
  static constexpr int kKilled = 42;  // the exit status

  // Operation number `index`, the first being 0: create, write (in halves), sync, close, rename,
  // sync of the folder.
  FaultyFiles(int index, FileFault fault) : countdown_(index), fault_(fault) {}

  // False when there were fewer operations.
  [[nodiscard]] bool Happened() const { return countdown_ < 0; }

  std::unique_ptr<Output> Create(const std::filesystem::path& path,
                                 const std::filesystem::path& like, std::string& reason) override {
    std::unique_ptr<Output> output;
    const bool created =
        Do(reason, [&] { return (output = real_->Create(path, like, reason)) != nullptr; });
    return created ? std::make_unique<FaultyOutput>(*this, std::move(output)) : nullptr;
  }
  bool Rename(const std::filesystem::path& from, const std::filesystem::path& to,
              std::string& reason) override {
    return Do(reason, [&] { return real_->Rename(from, to, reason); });
  }
  void Remove(const std::filesystem::path& path) override { real_->Remove(path); }
  void RemoveAbandoned(const std::filesystem::path& path) override { real_->RemoveAbandoned(path); }
  bool SyncFolder(const std::filesystem::path& folder, std::string& reason) override {
    return Do(reason, [&] { return real_->SyncFolder(folder, reason); });
  }
  bool MayWrite(const std::filesystem::path& path) override { return real_->MayWrite(path); }

 private:
  class FaultyOutput final : public Output {
   public:
    FaultyOutput(FaultyFiles& files, std::unique_ptr<Output> real)
        : files_(files), real_(std::move(real)) {}
    bool Write(std::string_view bytes, std::string& reason) override {
      const std::string_view half = bytes.substr(0, bytes.size() / 2);
      return files_.Do(reason, [&] { return real_->Write(half, reason); }) &&
             files_.Do(reason, [&] { return real_->Write(bytes.substr(half.size()), reason); });
    }
    bool Sync(std::string& reason) override {
      return files_.Do(reason, [&] { return real_->Sync(reason); });
    }
    bool Close(std::string& reason) override {
      return files_.Do(reason, [&] { return real_->Close(reason); });
    }

   private:
    FaultyFiles& files_;
    std::unique_ptr<Output> real_;
  };

  template <typename Operation>
  bool Do(std::string& reason, Operation operation) {
    const bool now = countdown_-- == 0;
    if (now && fault_ == FileFault::kKillsBefore) std::_Exit(kKilled);
    if (now && fault_ == FileFault::kFails) {
      reason = "No space left on device";
      return false;
    }
    const bool done = operation();
    if (now) std::_Exit(kKilled);
    return done;
  }

  int countdown_;
  const FileFault fault_;
  const std::unique_ptr<FileOperations> real_ = MakeFileOperations();
};

}  // namespace zelorgas
