#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/IniText.h"
#include "platform/SettingsFilePosix.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFileName = "ZelorGAS.ini";
constexpr std::uintmax_t kLargestFile = 1U << 20U;  // more is not a settings file
constexpr int kMostDamagedFiles = 100;

struct Contents {
  enum class State : std::uint8_t { kGood, kDamaged, kUnreadable };
  State state = State::kUnreadable;
  IniText text;
};

Contents ReadContents(const fs::path& file) {
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (status.type() == fs::file_type::not_found) return {Contents::State::kGood, {}};
  if (!fs::is_regular_file(status)) return {};
  const std::uintmax_t size = fs::file_size(file, error);
  if (error) return {};
  if (size > kLargestFile) return {Contents::State::kDamaged, {}};
  std::string bytes(static_cast<std::size_t>(size), '\0');
  std::ifstream stream(file, std::ios::binary);
  stream.read(bytes.data(), static_cast<std::streamsize>(size));
  if (!stream) return {};
  std::optional<IniText> text = IniText::Parse(bytes);
  if (!text) return {Contents::State::kDamaged, {}};
  return {Contents::State::kGood, std::move(*text)};
}

bool SetAside(const fs::path& file) {
  std::error_code error;
  for (int number = 1; number <= kMostDamagedFiles; ++number) {
    fs::path aside = file;
    aside += number == 1 ? ".damaged" : ".damaged" + std::to_string(number);
    if (fs::exists(fs::symlink_status(aside, error))) continue;
    fs::rename(file, aside, error);
    return !error;
  }
  return false;
}

bool WriteContents(const fs::path& file, std::string_view bytes) {
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  Message reason;
  return WriteWholeFile(file, bytes, reason);
}

// Reads the file for every call: it is small, and another instance of the program may have written.
class SettingsStorePosix final : public SettingsStore {
 public:
  explicit SettingsStorePosix(fs::path file) : file_(std::move(file)) {
    if (!file_.empty()) static_cast<void>(LoadForChange());
  }

  int ReadInteger(std::string_view section, std::string_view key, int fallback) const override {
    const std::optional<std::string> text = ReadContents(file_).text.Value(section, key);
    if (!text) return fallback;
    int value = 0;
    const char* const end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, value);
    return error == std::errc() && stop == end ? value : fallback;
  }

  std::string ReadString(std::string_view section, std::string_view key,
                         std::string_view fallback) const override {
    return ReadContents(file_).text.Value(section, key).value_or(std::string(fallback));
  }

  bool WriteInteger(std::string_view section, std::string_view key, int value) override {
    return WriteString(section, key, std::to_string(value));
  }

  bool WriteString(std::string_view section, std::string_view key,
                   std::string_view value) override {
    if (file_.empty()) return false;
    std::optional<IniText> text = LoadForChange();
    if (!text) return false;
    // Waiting for the disk takes long; most values are written as they already are.
    if (text->Value(section, key) == value) return true;
    return text->SetValue(section, key, value) && WriteContents(file_, text->Text());
  }

 private:
  // What the file holds, a damaged file put out of the way. Nothing when the file must not be
  // written over.
  [[nodiscard]] std::optional<IniText> LoadForChange() const {
    Contents contents = ReadContents(file_);
    if (contents.state == Contents::State::kUnreadable) return std::nullopt;
    if (contents.state == Contents::State::kDamaged && !SetAside(file_)) return std::nullopt;
    return std::move(contents.text);
  }

  const fs::path file_;  // empty: keeps nothing
};

}  // namespace

fs::path SettingsFile(std::string_view company, const char* xdg_config_home, const char* home) {
  fs::path folder = xdg_config_home != nullptr ? xdg_config_home : "";
  if (!folder.is_absolute()) {
    folder = home != nullptr ? home : "";
    if (!folder.is_absolute()) return {};
    folder /= ".config";
  }
  return folder / company / kFileName;
}

std::unique_ptr<SettingsStore> OpenSettingsFile(fs::path file) {
  return std::make_unique<SettingsStorePosix>(std::move(file));
}

std::unique_ptr<SettingsStore> OpenSettingsStore(std::string_view company) {
  // NOLINTBEGIN(concurrency-mt-unsafe): the program never changes its environment
  return OpenSettingsFile(
      SettingsFile(company, std::getenv("XDG_CONFIG_HOME"), std::getenv("HOME")));
  // NOLINTEND(concurrency-mt-unsafe)
}

}  // namespace zelorgas
