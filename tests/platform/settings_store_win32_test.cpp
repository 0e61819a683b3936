#include <gtest/gtest.h>
#include <windows.h>

#include "platform/SettingsStore.h"
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
  const auto store = OpenSettingsStore(company_);
  const std::string path = "C:\\карти\\" + std::string(500, 'x') + ".fob";
  EXPECT_EQ(store->ReadInteger("Settings", "Language", 9), 9);
  EXPECT_EQ(store->ReadString("Settings", "COMMPORT", "none"), "none");
  EXPECT_TRUE(store->WriteInteger("Settings", "Language", 1413));
  EXPECT_TRUE(store->WriteInteger("Settings", "SAVEFILE", -1));
  EXPECT_TRUE(store->WriteString("Settings", "COMMPORT", path));
  const auto next = OpenSettingsStore(company_);
  EXPECT_EQ(next->ReadInteger("Settings", "Language", 9), 1413);
  EXPECT_EQ(next->ReadInteger("Settings", "SAVEFILE", 0), -1);
  EXPECT_EQ(next->ReadString("Settings", "COMMPORT", ""), path);
  EXPECT_EQ(TypeOf(L"Language"), static_cast<DWORD>(REG_DWORD));
  EXPECT_EQ(TypeOf(L"COMMPORT"), static_cast<DWORD>(REG_SZ));
}

TEST_F(RegistrySettings, OfTheOtherTypeReadAsFallback) {
  const auto store = OpenSettingsStore(company_);
  EXPECT_TRUE(store->WriteString("Settings", "Language", "1413"));
  EXPECT_TRUE(store->WriteInteger("Settings", "COMMPORT", 3));
  EXPECT_EQ(store->ReadInteger("Settings", "Language", 9), 9);
  EXPECT_EQ(store->ReadString("Settings", "COMMPORT", "-"), "-");
  EXPECT_FALSE(store->WriteInteger("", "Language", 1));
  EXPECT_FALSE(store->WriteInteger("Settings", "", 1));
}

}  // namespace
}  // namespace zelorgas
