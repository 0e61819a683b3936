#include <gtest/gtest.h>

#include "sim/EcuSimOptions.h"

namespace zelorgas {
namespace {

TEST(EcuSimOptions, AllOfThemTogether) {
  const std::vector<std::string> words{
      "--link",         "/tmp/ecu",  "--version",    "0.36",    "--hardware", "2.11",
      "--seed",         "77",        "--no-pace",    "--fault", "drop:3",     "--fault",
      "delay=5:every7", "--no-echo", "--bootloader", "--log",   "a.log"};
  EcuSimOptions options;
  ASSERT_EQ(ParseEcuSimOptions(words, options), "");
  EXPECT_EQ(options.link, "/tmp/ecu");
  EXPECT_EQ(options.ecu.software_minor, 36);
  EXPECT_EQ(options.ecu.hardware_major, 2);
  EXPECT_EQ(options.ecu.hardware_minor, 11);
  EXPECT_EQ(options.ecu.seed, 77U);
  EXPECT_TRUE(options.ecu.in_bootloader);
  EXPECT_FALSE(options.line.paced);
  EXPECT_FALSE(options.line.echo);
  EXPECT_EQ(options.faults, (std::vector<std::string>{"drop:3", "delay=5:every7"}));
  EXPECT_EQ(options.log, "a.log");
}

TEST(EcuSimOptions, WordsThatMeanNothing) {
  const std::vector<std::vector<std::string>> lines{
      {"--speed"},
      {"ecu"},
      {"--version"},
      {"--version", "39"},
      {"--version", "0.300"},
      {"--version", "0.39x"},
      {"--seed", "-1"},
      {"--fault", "drop"},
      {"--fault", "drop:0"},
      {"--fault", "drop:every0"},
      {"--fault", "drop:p1.5"},
      {"--fault", "drop:3x"},
      {"--fault", "delay=:3"},
      {"--fault", "explode:3"},
      {"--fault", "exception=256:1"},
      {"--fault", "endless-noise=4294967295:1"},
  };
  for (const auto& words : lines) {
    EcuSimOptions options;
    EXPECT_NE(ParseEcuSimOptions(words, options), "") << words.front() << " " << words.back();
  }
}

}  // namespace
}  // namespace zelorgas
