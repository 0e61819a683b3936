#include <windows.h>

#include <vector>

#include "platform/SettingsStore.h"
#include "platform/WideText.h"

namespace zelorgas {
namespace {

constexpr std::string_view kProgram = "ZelorGAS";

class SettingsStoreWin32 final : public SettingsStore {
 public:
  explicit SettingsStoreWin32(std::string_view company)
      : root_(L"Software\\" + ToWide(company) + L"\\" + ToWide(kProgram) + L"\\") {}

  int ReadInteger(std::string_view section, std::string_view key, int fallback) const override {
    DWORD value = 0;
    DWORD size = sizeof(value);
    const LSTATUS status =
        ::RegGetValueW(HKEY_CURRENT_USER, Path(section).c_str(), ToWide(key).c_str(),
                       RRF_RT_REG_DWORD, nullptr, &value, &size);
    return status == ERROR_SUCCESS ? static_cast<int>(value) : fallback;
  }

  std::string ReadString(std::string_view section, std::string_view key,
                         std::string_view fallback) const override {
    const std::wstring path = Path(section);
    const std::wstring name = ToWide(key);
    std::vector<wchar_t> text(kUsualLength);
    LSTATUS status = ERROR_MORE_DATA;
    // The value may grow between two calls.
    while (status == ERROR_MORE_DATA) {
      auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
      status = ::RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr,
                              text.data(), &size);
      if (status == ERROR_MORE_DATA) text.resize(size / sizeof(wchar_t) + 1);
    }
    return status == ERROR_SUCCESS ? ToUtf8(text.data()) : std::string(fallback);
  }

  bool WriteInteger(std::string_view section, std::string_view key, int value) override {
    const auto number = static_cast<DWORD>(value);
    return Write(section, key, REG_DWORD, &number, sizeof(number));
  }

  bool WriteString(std::string_view section, std::string_view key,
                   std::string_view value) override {
    const std::wstring text = ToWide(value);
    return Write(section, key, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  }

 private:
  static constexpr std::size_t kUsualLength = 260;

  [[nodiscard]] std::wstring Path(std::string_view section) const {
    return root_ + ToWide(section);
  }

  bool Write(std::string_view section, std::string_view key, DWORD type, const void* data,
             std::size_t size) {
    if (section.empty() || key.empty()) return false;
    return ::RegSetKeyValueW(HKEY_CURRENT_USER, Path(section).c_str(), ToWide(key).c_str(), type,
                             data, static_cast<DWORD>(size)) == ERROR_SUCCESS;
  }

  const std::wstring root_;
};

}  // namespace

std::unique_ptr<SettingsStore> OpenSettingsStore(std::string_view company) {
  return std::make_unique<SettingsStoreWin32>(company);
}

}  // namespace zelorgas
