#include <gmock/gmock.h>

#include "cli/EcuCliTest.h"

namespace zelorgas {
namespace {

using testing::HasSubstr;

class ErrorCommands : public EcuCliTest {};

TEST_F(ErrorCommands, ErrorsListsBothBanks) {
  const std::string temporary =
      "temporary 1  005  Coolant Temperature too low\ntemporary 8  002  Start on GAS\n";
  const std::string temporary_json =
      R"({"temporary":[{"code":1,"count":5,"name":"Coolant Temperature too low"},)"
      R"({"code":8,"count":2,"name":"Start on GAS"}],"permanent":)";
  EXPECT_EQ(Print("errors"), temporary + "permanent 3  001  Permanent DTC 03\n");
  EXPECT_EQ(Print("errors --json"),
            temporary_json + R"([{"code":3,"count":1,"name":"Permanent DTC 03"}]})" + "\n");
  // The read of the permanent errors does not succeed.
  line_.instead = [](const Unit& request) -> std::optional<Unit> {
    if (request[1] != 3 || request[3] != 0x30) return std::nullopt;
    return Unit{11, 0x83, 4};
  };
  const CliHarness::Outcome run = Run("errors --json");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, temporary_json + "null}\n");
  EXPECT_EQ(run.err,
            "zelorgas-cli: Modbus device return an exception code4\n"
            "zelorgas-cli: the permanent errors could not be read\n");
}

TEST_F(ErrorCommands, ClearDeletesInTheEcu) {
  EXPECT_EQ(Print("clear-error permanent 3 --yes"), "cleared: permanent 3\n");
  EXPECT_EQ(line_.ecu.ErrorCount(true, 3), 0);
  EXPECT_EQ(Print("clear-error temporary 8 --yes --json"), "{\"bank\":\"temporary\",\"code\":8}\n");
  EXPECT_EQ(Print("errors"), "temporary 1  005  Coolant Temperature too low\n");
  EXPECT_EQ(Print("clear-errors --yes --json"), "{\"banks\":[\"temporary\",\"permanent\"]}\n");
  EXPECT_EQ(Print("errors"), "no stored errors\n");
}

TEST_F(ErrorCommands, ClearAsksFirst) {
  const std::pair<Words, const char*> cases[] = {
      {{"clear-error", "temporary", "1"}, "Delete error?"},
      {{"clear-errors"}, "Delete all errors?"},
  };
  for (const auto& [words, question] : cases) {
    line_.ecu.SetErrorCount(false, 1, 5);
    cli_.terminal = false;
    EXPECT_EQ(Run(words).status, 2);
    cli_.terminal = true;
    cli_.typed = "n\n";
    const CliHarness::Outcome declined = Run(words);
    EXPECT_EQ(declined.status, 1);
    EXPECT_THAT(declined.err, HasSubstr(question));
    EXPECT_TRUE(std::exchange(line_.requests, {}).empty());
    cli_.typed = "y\n";
    EXPECT_EQ(Run(words).status, 0);
    EXPECT_EQ(line_.ecu.ErrorCount(false, 1), 0);
    line_.requests.clear();
  }
}

}  // namespace
}  // namespace zelorgas
