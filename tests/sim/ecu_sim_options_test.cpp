#include <gtest/gtest.h>

#include "sim/EcuSimOptions.h"

namespace zelorgas {
namespace {

TEST(EcuSimOptions, AllOfThemTogether) {
  const std::vector<std::string> words{
      "--link",    "/tmp/ecu",  "--version",    "0.36",    "--hardware", "2.11",  "--seed", "77",
      "--no-pace", "--no-echo", "--bootloader", "--fault", "drop:3",     "--log", "a.log"};
  EcuSimOptions options;
  ASSERT_EQ(ParseEcuSimOptions(words, options), "");
  EXPECT_EQ(options.link + options.log, "/tmp/ecua.log");
  EXPECT_EQ(options.ecu.software_minor, 36);
  EXPECT_EQ(options.ecu.hardware_major, 2);
  EXPECT_EQ(options.ecu.hardware_minor, 11);
  EXPECT_EQ(options.ecu.seed, 77U);
  EXPECT_TRUE(options.ecu.in_bootloader);
  EXPECT_FALSE(options.line.paced || options.line.echo);
  EXPECT_EQ(options.faults, std::vector<std::string>{"drop:3"});
}

TEST(EcuSimOptions, WordsThatMeanNothing) {
  std::vector<std::vector<std::string>> lines{{"--speed"},
                                              {"ecu"},
                                              {"--version"},
                                              {"--version", "39"},
                                              {"--version", "0.300"},
                                              {"--version", "0.39x"},
                                              {"--seed", "-1"}};
  for (const char* fault : {"drop", "drop:0", "drop:every0", "drop:p1.5", "drop:3x", "delay=:3",
                            "explode:3", "exception=256:1", "endless-noise=4294967295:1"}) {
    lines.push_back({"--fault", fault});
  }
  for (const auto& words : lines) {
    EcuSimOptions options;
    EXPECT_NE(ParseEcuSimOptions(words, options), "") << testing::PrintToString(words);
  }
}

}  // namespace
}  // namespace zelorgas
