#include <gtest/gtest.h>
#include <windows.h>

#include "platform/SettingsContract.h"
#include "platform/WideText.h"

namespace zelorgas {
namespace {

class RegistrySettings : public testing::Test {
 protected:
  RegistrySettings()
      : company_("Tarnwick test " + std::to_string(::GetCurrentProcessId())),
        root_(L"Software\\" + ToWide(company_)) {}
  ~RegistrySettings() override {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, root_.c_str());
    ::RegDeleteKeyW(HKEY_CURRENT_USER, root_.c_str());
  }

  DWORD TypeOf(const wchar_t* name) const {
    DWORD type = REG_NONE;
    ::RegGetValueW(HKEY_CURRENT_USER, (root_ + L"\\ZelorGAS\\Settings").c_str(), name, RRF_RT_ANY,
                   &type, nullptr, nullptr);
    return type;
  }

  const std::string company_;
  const std::wstring root_;
};

TEST_F(RegistrySettings, KeepValuesForTheNextStart) {
  ExpectKeepsValues([this] { return OpenSettingsStore(company_); });
}

TEST_F(RegistrySettings, HaveTheirTypes) {
  const auto store = OpenSettingsStore(company_);
  EXPECT_TRUE(store->WriteInteger("Settings", "Language", 1413));
  EXPECT_TRUE(store->WriteString("Settings", "COMMPORT", "COM3"));
  EXPECT_EQ(TypeOf(L"Language"), static_cast<DWORD>(REG_DWORD));
  EXPECT_EQ(TypeOf(L"COMMPORT"), static_cast<DWORD>(REG_SZ));
  EXPECT_EQ(store->ReadString("Settings", "Language", "-"), "-");
}

}  // namespace
}  // namespace zelorgas
