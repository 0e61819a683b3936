#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/PortWatchWin32.h"
#include "support/WatchRecorder.h"

namespace zelorgas {
namespace {

using testing::Each;
using testing::ElementsAre;

class WatchedKey : public testing::Test {
 protected:
  WatchedKey() : path_(L"Software\\Port map test " + std::to_wstring(::GetCurrentProcessId())) {
    ::RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                      &key_, nullptr);
  }
  ~WatchedKey() override {
    ::RegCloseKey(key_);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
    ::RegDeleteKeyW(HKEY_CURRENT_USER, path_.c_str());
  }

  void Plug(const wchar_t* device, const std::wstring& port) {
    ::RegSetValueExW(key_, device, 0, REG_SZ, reinterpret_cast<const BYTE*>(port.c_str()),
                     static_cast<DWORD>((port.size() + 1) * sizeof(wchar_t)));
  }
  void Unplug(const wchar_t* device) { ::RegDeleteValueW(key_, device); }

  const std::wstring path_;
  HKEY key_ = nullptr;
  WatchRecorder recorder_;
};

TEST_F(WatchedKey, ReportsPlugsAndUnplugsForAsLongAsItLives) {
  auto watcher = WatchRegistryKey(HKEY_CURRENT_USER, path_, recorder_.Notify());
  std::size_t seen = 0;
  for (int i = 0; i < 3; ++i) {
    Plug(L"\\Device\\Serial2", L"COM3");
    ASSERT_TRUE(recorder_.WaitFor(seen + 1)) << "plugged";
    seen = recorder_.Events().size();
    Unplug(L"\\Device\\Serial2");
    ASSERT_TRUE(recorder_.WaitFor(seen + 1)) << "unplugged";
    seen = recorder_.Events().size();
  }
  EXPECT_FALSE(watcher->Ended());
  watcher.reset();
  seen = recorder_.Events().size();
  Plug(L"\\Device\\Serial2", L"COM3");
  EXPECT_EQ(recorder_.Events().size(), seen);
  EXPECT_THAT(recorder_.Events(), Each(PortWatchEvent::kChanged));
}

TEST_F(WatchedKey, ThatIsNotThereCannotBeOpened) {
  const auto watcher =
      WatchRegistryKey(HKEY_CURRENT_USER, path_ + L"\\missing", recorder_.Notify());
  EXPECT_TRUE(WaitForEnd(*watcher));
  EXPECT_THAT(recorder_.Events(), ElementsAre(PortWatchEvent::kOpenFailed));
}

}  // namespace
}  // namespace zelorgas
