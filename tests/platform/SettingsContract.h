// What a settings store does on every system.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/SettingsStore.h"

namespace zelorgas {

// `open` opens the same store each time, which is empty at first.
inline void ExpectKeepsValues(const std::function<std::unique_ptr<SettingsStore>()>& open) {
  const auto first = open();
  const auto second = open();
  const std::string path = "C:\\карти\\" + std::string(500, 'x') + ".fob";
  EXPECT_EQ(first->ReadInteger("Settings", "Language", 9), 9);
  EXPECT_EQ(first->ReadString("Settings", "COMMPORT", "none"), "none");
  EXPECT_TRUE(first->WriteInteger("Settings", "Language", 1413));
  EXPECT_TRUE(second->WriteInteger("Settings", "SAVEFILE", -1));
  EXPECT_TRUE(first->WriteString("Settings", "COMMPORT", path));
  const auto next = open();
  for (const SettingsStore* const store : {next.get(), first.get(), second.get()}) {
    EXPECT_EQ(store->ReadInteger("Settings", "Language", 9), 1413);
    EXPECT_EQ(store->ReadInteger("Settings", "SAVEFILE", 0), -1);
    EXPECT_EQ(store->ReadString("Settings", "COMMPORT", ""), path);
  }
  EXPECT_TRUE(first->WriteString("Settings", "Language", "no number"));
  EXPECT_EQ(first->ReadInteger("Settings", "Language", 9), 9);
  EXPECT_FALSE(first->WriteInteger("", "Language", 1));
  EXPECT_FALSE(first->WriteInteger("Settings", "", 1));
}

}  // namespace zelorgas
