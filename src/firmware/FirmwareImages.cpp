#include "firmware/FirmwareImages.h"

#include <algorithm>
#include <cstdio>
#include <system_error>

#include "platform/FileSystem.h"
#include "platform/IgnoreCase.h"
#include "platform/UnsharedFile.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNameStart = "P042";
constexpr std::string_view kExtension = ".ebi";

bool IsImageName(std::string_view name) {
  return name.size() >= kNameStart.size() + kExtension.size() &&
         EqualIgnoringCase(name.substr(0, kNameStart.size()), kNameStart) &&
         EndsWithIgnoringCase(name, kExtension);
}

// The name is the revision text that the firmware's bootloader answers, in any case.
std::optional<Version> VersionOfName(std::string name) {
  std::ranges::transform(name, name.begin(), ToUpper);
  const std::optional<Revision> revision = ParseRevision(name);
  if (!revision) return std::nullopt;
  return revision->software;
}

struct FileState {
  std::uintmax_t size = 0;
  fs::file_time_type time;

  friend bool operator==(const FileState&, const FileState&) = default;
};

std::optional<FileState> StateOf(const fs::path& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return std::nullopt;
  FileState state;
  state.size = fs::file_size(path, error);
  if (error) return std::nullopt;
  state.time = fs::last_write_time(path, error);
  if (error) return std::nullopt;
  return state;
}

}  // namespace

std::vector<FirmwareImage> FindFirmwareImages(const fs::path& folder) {
  std::vector<FirmwareImage> images;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = PathText(entry->path().filename());
    std::error_code no_type;
    if (!IsImageName(name) || !entry->is_regular_file(no_type)) continue;
    images.push_back({entry->path(), VersionOfName(name), {}});
  }
  std::ranges::sort(images, [](const FirmwareImage& a, const FirmwareImage& b) {
    return a.software != b.software ? a.software > b.software : a.path < b.path;
  });
  for (FirmwareImage& image : images) {
    const std::string name = PathText(image.path.stem());
    const auto same = [&](const FirmwareImage& other) { return other.software == image.software; };
    image.text = image.software ? FormatVersion(*image.software) : name;
    if (image.software && std::ranges::count_if(images, same) > 1) image.text += " (" + name + ")";
  }
  return images;
}

ImageContent ReadFirmwareImage(const fs::path& image) {
  const std::optional<FileState> before = StateOf(image);
  const UnsharedFile file = before ? OpenUnshared(image) : nullptr;
  if (!file) return {{}, kNoImage};
  if (before->size == 0) return {{}, kImageEmpty};
  if (before->size > kLargestImage) return {{}, kImageTooLarge};
  // One byte more, to see a file that grows.
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(before->size) + 1);
  const std::size_t count = std::fread(bytes.data(), 1, bytes.size(), file.get());
  if (std::ferror(file.get()) != 0) return {{}, kImageUnreadable};
  if (count != before->size || StateOf(image) != before) return {{}, kImageChanged};
  bytes.resize(count);
  return {std::move(bytes), {}};
}

}  // namespace zelorgas
