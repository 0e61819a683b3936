// Command lines of zelorgas-cli against the simulated ECU at the end of a scripted line.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/CliHarness.h"
#include "support/EcuOnLine.h"

namespace zelorgas {

class EcuCliTest : public testing::Test {
 protected:
  using Unit = EcuOnLine::Unit;
  using Words = std::vector<std::string>;

  // The words behind --port PORT, or the line of them.
  CliHarness::Outcome Run(Words words) {
    cli_.serial_ports = line_.port.Opener();
    words.insert(words.begin(), {"--port", "/dev/ttyECU"});
    return cli_.Run(words);
  }
  CliHarness::Outcome Run(const std::string& line) { return Run(SplitWords(line)); }
  // Expects success with nothing on standard error, and gives standard output.
  std::string Print(const std::string& line) {
    const CliHarness::Outcome run = Run(line);
    EXPECT_EQ(run.status, 0) << line;
    EXPECT_EQ(run.err, "") << line;
    return run.out;
  }
  // Expects a refusal with these messages and nothing on standard output.
  void ExpectRefused(const std::string& line, std::string_view messages) {
    const CliHarness::Outcome run = Run(line);
    EXPECT_EQ(run.status, 1) << line;
    EXPECT_EQ(run.out, "") << line;
    EXPECT_EQ(run.err, messages) << line;
  }

  CliHarness cli_;
  EcuOnLine line_{cli_.clock};
};

}  // namespace zelorgas
