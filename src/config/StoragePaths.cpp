#include "config/StoragePaths.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <system_error>

#include "config/Utf8Text.h"
#include "platform/ControlCharacters.h"
#include "platform/FileSystem.h"
#include "platform/IgnoreCase.h"
#include "platform/LocalTime.h"

namespace zelorgas {
namespace {

// In bytes, with room for an extension below the 255 that file systems take.
constexpr std::size_t kLongestName = 200;

constexpr auto kDeviceNames =
    std::to_array<std::string_view>({"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$", "CLOCK$"});
constexpr std::array<std::string_view, 2> kNumberedDevices = {"COM", "LPT"};
// Windows takes a superscript 1, 2 or 3 for the digit.
constexpr std::array<std::string_view, 3> kSuperscripts = {"\u00B9", "\u00B2", "\u00B3"};

// Windows keeps these for devices, in every folder and with every extension.
bool IsDeviceName(std::string_view name) {
  std::string_view stem = name.substr(0, name.find('.'));
  while (stem.ends_with(' ')) stem.remove_suffix(1);
  const auto is_stem = [stem](std::string_view device) { return EqualIgnoringCase(stem, device); };
  if (std::ranges::any_of(kDeviceNames, is_stem)) return true;
  constexpr std::size_t kLength = 3;
  const std::string_view number = stem.substr(std::min(kLength, stem.size()));
  const bool is_digit = number.size() == 1 && number[0] >= '0' && number[0] <= '9';
  if (!is_digit && std::ranges::find(kSuperscripts, number) == kSuperscripts.end()) return false;
  return std::ranges::any_of(kNumberedDevices, [stem](std::string_view device) {
    return EqualIgnoringCase(stem.substr(0, kLength), device);
  });
}

}  // namespace

std::filesystem::path WorkingFolder() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::current_path(error);
  return error ? std::filesystem::path(".") : folder;
}

std::filesystem::path StorageRoot(const std::filesystem::path& working_folder) {
  return working_folder / "storage";
}

std::filesystem::path StorageFolder(const std::filesystem::path& working_folder, unsigned gas_type,
                                    std::string_view brand) {
  return StorageRoot(working_folder) / (gas_type == kNaturalGas ? "CNG" : "LPG") /
         PathFromText(brand.empty() ? kDefaultBrandFolder : brand);
}

std::filesystem::path BackupFolder(const std::filesystem::path& working_folder) {
  return StorageRoot(working_folder) / "backup";
}

std::string MakeTimestampName(const std::tm& time) {
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%04u%02u%02u%02u%02u%02u_",
                static_cast<unsigned>(time.tm_year + 1900), static_cast<unsigned>(time.tm_mon + 1),
                static_cast<unsigned>(time.tm_mday), static_cast<unsigned>(time.tm_hour),
                static_cast<unsigned>(time.tm_min), static_cast<unsigned>(time.tm_sec));
  return text.data();
}

std::string MakeTimestampName() {
  return MakeTimestampName(LocalTime(std::chrono::system_clock::now()));
}

Message NameProblem(std::string_view name) {
  constexpr std::string_view kForbidden = "<>:\"/\\|?*";
  if (name.empty()) return FixedText::Of("it is empty");
  if (name.size() > kLongestName) return FixedText::Of("it is too long");
  if (!IsUtf8(name)) return FixedText::Of("it is no valid text");
  if (std::ranges::any_of(name, IsControl)) return FixedText::Of("it contains a control character");
  if (const std::size_t at = name.find_first_of(kForbidden); at != std::string_view::npos) {
    return {FixedText::Of("it contains %1"), name.substr(at, 1)};
  }
  // "." and ".." are among these.
  if (name.ends_with('.') || name.ends_with(' '))
    return FixedText::Of("it ends with a dot or a blank");
  if (name.starts_with(' ')) return FixedText::Of("it begins with a blank");
  if (IsDeviceName(name)) return FixedText::Of("Windows keeps it for a device");
  return {};
}

std::optional<std::filesystem::path> StorageFile(const std::filesystem::path& folder,
                                                 std::string_view name, std::string_view extension,
                                                 Message& problem) {
  problem = NameProblem(name);
  if (!problem.empty()) return std::nullopt;
  std::string file(name);
  const bool has_extension =
      file.size() > extension.size() && EndsWithIgnoringCase(file, extension);
  if (!has_extension) file += extension;
  return folder / PathFromText(file);
}

}  // namespace zelorgas
