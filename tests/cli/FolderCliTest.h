// Command lines of zelorgas-cli in a working folder of their own, against a simulated ECU over the
// whole of its line.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cli/CliHarness.h"
#include "sim/SimulatedPort.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {

class FolderCliTest : public testing::Test {
 protected:
  FolderCliTest() { std::filesystem::current_path(folder_.Path()); }
  ~FolderCliTest() override { std::filesystem::current_path(before_); }

  CliHarness::Outcome Run(std::vector<std::string> words) {
    cli_.serial_ports = SimulatedPort(line_, cli_.clock);
    words.insert(words.begin(), {"--port", "/dev/ttyECU"});
    return cli_.Run(words);
  }

  const std::filesystem::path before_ = std::filesystem::current_path();
  const TemporaryFolder folder_;
  CliHarness cli_;
  SimulatedEcu ecu_{cli_.clock};
  SimulatedLine line_{ecu_, cli_.clock};
};

}  // namespace zelorgas
