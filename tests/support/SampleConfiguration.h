// A configuration in which neighbouring words differ and every kind of number occurs, and its file
// to be spoiled by a test.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "config/BlockCells.h"
#include "config/ConfigurationFile.h"

namespace zelorgas {

inline ConfigurationBlock SampleConfiguration() {
  ConfigurationBlock block{};
  for (std::size_t i = 0; i < kBlockWords; ++i) block[i] = static_cast<std::uint16_t>(1000 + i);
  block[68] = 0x8002;  // LAMBDA_INVERSE and range 2
  block[block_layout::kRowCount] = 12;
  block[block_layout::kGridTimes] = 1230;           // "1.23"
  block[block_layout::kGridCells] = 29;             // "0.29"
  block[block_layout::kTurboCorrections] = 0xFFF6;  // -10
  for (std::size_t i = 0; i < kRoutingInjectors; ++i) {
    SetBlockByte(block, kFirstSetByte + i, static_cast<std::uint8_t>(1U << i));
  }
  return block;
}

inline std::string SampleText(std::string_view notes = "Golf") {
  return ConfigurationText(SampleConfiguration(), 0, notes);
}

// `text` with `from`, which is in it, replaced by `to`.
inline std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

inline LoadedConfiguration ReadText(const std::string& text,
                                    const ConfigurationBlock& base = SampleConfiguration()) {
  return ReadConfigurationText(text, base, 0);
}

}  // namespace zelorgas
