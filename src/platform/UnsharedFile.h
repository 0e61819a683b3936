// Opening a file for reading while nobody else has it open, where the system can promise that. Any
// thread may call it.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>

namespace zelorgas {

struct FileCloser {
  // Nothing was written: a failure means nothing.
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using UnsharedFile = std::unique_ptr<std::FILE, FileCloser>;

// For binary reading; null when the file is missing or may not be read. Windows refuses it also
// while another program has the file open for writing, and keeps others out until it is closed.
[[nodiscard]] UnsharedFile OpenUnshared(const std::filesystem::path& path);

}  // namespace zelorgas
