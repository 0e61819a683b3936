// A folder for one test, gone with it. One thread at a time.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <system_error>

namespace zelorgas {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device chance;
    do {
      path_ = std::filesystem::temp_directory_path() / ("zelorgas-" + std::to_string(chance()));
    } while (!std::filesystem::create_directory(path_));
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace zelorgas
