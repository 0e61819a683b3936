// Runs a fuzz target over the files of a folder, as a plain test: replay FOLDER.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    files.push_back(entry.path());
  }
  std::ranges::sort(files);
  for (const std::filesystem::path& file : files) {
    std::printf("%s\n", file.filename().string().c_str());
    static_cast<void>(std::fflush(stdout));
    std::string contents;
    zelorgas::Message reason;
    if (!zelorgas::ReadWholeFile(file, contents, reason)) return 1;
    const std::vector<std::uint8_t> bytes(contents.begin(), contents.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
  return files.empty() ? 1 : 0;
}
