#include <gmock/gmock.h>

#include "app/LoadProcedure.h"
#include "platform/FileSystem.h"
#include "support/PolledDocument.h"
#include "support/SampleConfiguration.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Outcome = LoadResult::Outcome;

constexpr std::uint64_t kChunks = 19;
constexpr std::uint64_t kStage = 1 + kChunks;  // requests: who is there, and the block
constexpr std::string_view kFailed =
    "error: An error has occured while trying to load configuration data!";
constexpr std::string_view kQuestion =
    "question: The current configuration data are giong to be loaded from the selected file!\n"
    "Do you realy want to continue?";

class LoadProcedureTest : public testing::Test {
 protected:
  LoadProcedureTest() {
    ecu_and_pc_.boxes.answer = true;
    WriteFile(SampleText());
  }

  void WriteFile(const std::string& text) {
    Message problem;
    ASSERT_TRUE(WriteWholeFile(file_, text, problem)) << problem.English();
  }

  LoadResult Load(const TransferProgress& progress = {}) {
    return LoadProcedure(ecu_and_pc_.document, ecu_and_pc_.boxes, progress)
        .Run({.file = file_, .backup_folder = backup_folder_, .routing_map = routing_map_});
  }

  void ExpectUntouched(const LoadResult& result) {
    EXPECT_EQ(ecu_and_pc_.ecu.Block(), before_);
    EXPECT_EQ(ecu_and_pc_.document.Image().block, before_);
    EXPECT_EQ(result.words_written, 0U);
    EXPECT_TRUE(ecu_and_pc_.Polls());
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_.Path() / "car.fob";
  std::filesystem::path backup_folder_ = folder_.Path() / "storage" / "backup";
  std::optional<std::size_t> routing_map_;
  PolledDocument ecu_and_pc_;
  const ConfigurationBlock before_ = ecu_and_pc_.ecu.Block();
};

TEST_F(LoadProcedureTest, WritesChecksAndKeepsWhatWasThere) {
  std::string stages;
  const double start_ms = ecu_and_pc_.clock.ElapsedMs();
  const LoadResult result = Load([&](TransferStage stage, std::size_t words) {
    if (words == 0 || words == 583) stages += std::to_string(static_cast<int>(stage)) + ' ';
  });
  EXPECT_EQ(result.outcome, Outcome::kLoaded);
  EXPECT_EQ(stages, "0 0 1 1 2 2 3 ");
  EXPECT_THAT(
      ecu_and_pc_.boxes.said,
      ElementsAre(kQuestion, "note: The configuration data have been loaded successfully!"));
  // 250 ms before each of the three transfers, and a rest after each chunk that was written.
  EXPECT_GE(ecu_and_pc_.clock.ElapsedMs() - start_ms, 3 * 250 + 25 * static_cast<double>(kChunks));

  const ConfigurationBlock held = ecu_and_pc_.ecu.Block();
  EXPECT_EQ(held, ReadText(SampleText(), before_).block);
  EXPECT_EQ(ecu_and_pc_.document.Image().block, held);
  EXPECT_EQ(ReadConfigurationFile(result.backup, {}, 0).block[28], before_[28]);
  EXPECT_EQ(ReadNotes(result.backup), "What the ECU held before car.fob was loaded into it");
  EXPECT_NE(Load().backup, result.backup) << "in the same second, too";
  EXPECT_TRUE(ecu_and_pc_.Polls());
}

TEST_F(LoadProcedureTest, WhatThePersonDoesNotWantIsNotDone) {
  const std::string cut = SampleText().substr(0, 4000);
  const std::filesystem::path no_folder = file_ / "backup";
  struct Declined {
    std::string words;
    std::string content;
    std::filesystem::path backup_folder;
    Outcome outcome;
  };
  const Declined rows[] = {
      {"from the selected file", cut, backup_folder_, Outcome::kDeclined},
      {"The file is damaged:\nElement", cut, backup_folder_, Outcome::kDamaged},
      {"could not be stored beforehand", SampleText(), no_folder, Outcome::kNoBackup}};
  for (const Declined& row : rows) {
    WriteFile(row.content);
    backup_folder_ = row.backup_folder;
    ecu_and_pc_.boxes.declined = row.words;
    const LoadResult result = Load();
    EXPECT_EQ(result.outcome, row.outcome) << row.words;
    EXPECT_THAT(ecu_and_pc_.boxes.said.back(), HasSubstr(row.words));
    ExpectUntouched(result);
  }
}

TEST_F(LoadProcedureTest, ALinkThatDiesSaysHowFarItGot) {
  ecu_and_pc_.boxes.declined = "try again";
  const ConfigurationBlock wanted = ReadText(SampleText(), before_).block;
  for (std::uint64_t chunk = 0; chunk < kChunks; ++chunk) {
    for (std::size_t i = 0; i < kBlockWords; ++i) {
      ecu_and_pc_.ecu.SetRegister(RegisterOfWord(i), before_[i]);
    }
    ecu_and_pc_.document.Image().block = before_;
    ecu_and_pc_.LoseRequest(kStage + 2 + chunk);
    const LoadResult result = Load();
    EXPECT_EQ(result.outcome, Outcome::kUnfinished);
    EXPECT_EQ(result.link_result, ModbusResult::kTimeOut);
    EXPECT_EQ(result.words_written, 32 * chunk);
    EXPECT_THAT(ecu_and_pc_.boxes.said.end()[-2],
                HasSubstr("The link failed after " + std::to_string(32 * chunk) +
                          " of 583 values had been written: Time Out Error\n"
                          "Do you want to try again?"));
    EXPECT_EQ(ecu_and_pc_.boxes.said.back(), kFailed);
    EXPECT_THAT(ecu_and_pc_.boxes.statuses.back(), HasSubstr(PathText(result.backup)));
    const ConfigurationBlock held = ecu_and_pc_.ecu.Block();
    EXPECT_EQ(ecu_and_pc_.document.Image().block, held);
    for (std::size_t i = 0; i < kBlockWords; ++i) {
      EXPECT_EQ(held[i], i < 32 * chunk ? wanted[i] : before_[i]) << chunk << ' ' << i;
    }
    EXPECT_TRUE(ecu_and_pc_.Polls());
  }
}

TEST_F(LoadProcedureTest, EachStageCanBeTriedAgain) {
  for (const std::uint64_t request : {std::uint64_t{1}, kStage + 8, 3 * kStage}) {
    ecu_and_pc_.boxes.said.clear();
    ecu_and_pc_.LoseRequest(request);
    const LoadResult result = Load();
    EXPECT_EQ(result.outcome, Outcome::kLoaded) << request;
    EXPECT_EQ(ecu_and_pc_.boxes.said.size(), 3U);
    EXPECT_THAT(ecu_and_pc_.boxes.said[1], HasSubstr("try again?"));
  }
  ecu_and_pc_.boxes.declined = "try again";
  ecu_and_pc_.LoseRequest(2 * kStage + 2);
  EXPECT_EQ(Load().outcome, Outcome::kUnchecked);
  EXPECT_EQ(ecu_and_pc_.boxes.said.back(),
            "note: The configuration has been written, but could not be read back and compared.");
  EXPECT_THAT(ecu_and_pc_.boxes.statuses.back(), HasSubstr("What the ECU held before is stored"));
  ecu_and_pc_.LoseRequest(1);
  EXPECT_EQ(Load().outcome, Outcome::kNotBegun);
}

TEST_F(LoadProcedureTest, AnotherEcuGetsNothingOfThisOnes) {
  const std::uint32_t serial = ecu_and_pc_.document.Image().serial.value();
  ConfigurationBlock other{};
  ecu_and_pc_.boxes.while_asking = [&] {
    if (ecu_and_pc_.boxes.said.back().find("try again?") == std::string::npos) return;
    ecu_and_pc_.ecu.SetSerial(serial + 1);
    other = ecu_and_pc_.ecu.Block();
  };
  const std::pair<std::uint64_t, Outcome> rows[] = {{5, Outcome::kNotBegun},
                                                    {kStage + 7, Outcome::kUnfinished},
                                                    {2 * kStage + 7, Outcome::kUnchecked}};
  for (const auto& [request, outcome] : rows) {
    ecu_and_pc_.ecu.SetSerial(serial);
    ecu_and_pc_.LoseRequest(request);
    EXPECT_EQ(Load().outcome, outcome);
    EXPECT_EQ(ecu_and_pc_.boxes.said.end()[-2],
              "note: Another ECU answers than the one that was connected to!");
    EXPECT_EQ(ecu_and_pc_.ecu.Block(), other);
  }
  ecu_and_pc_.worker.RunRound();
  EXPECT_THAT(ecu_and_pc_.status.Take(), HasSubstr("2,1"));
}

TEST_F(LoadProcedureTest, AFileOfTheOtherRoutingMapLeavesTheFirstOne) {
  WriteFile(ConfigurationText(SampleConfiguration(), 1, ""));
  routing_map_ = 1;
  const LoadResult result = Load();
  EXPECT_EQ(result.outcome, Outcome::kLoaded);
  const ConfigurationBlock held = ecu_and_pc_.ecu.Block();
  const ConfigurationBlock backup = ReadConfigurationFile(result.backup, {}, 1).block;
  for (std::size_t byte = 0; byte < kRoutingMapBytes; ++byte) {
    const std::size_t first = RoutingByte(0, 0, 0) + byte;
    const std::size_t second = RoutingByte(1, 0, 0) + byte;
    EXPECT_EQ(BlockByte(held, first), BlockByte(before_, first));
    EXPECT_EQ(BlockByte(held, second), BlockByte(SampleConfiguration(), second));
    EXPECT_EQ(BlockByte(backup, second), BlockByte(before_, second));
  }
}

TEST_F(LoadProcedureTest, WhatTheEcuHoldsInsteadIsSaidParameterByParameter) {
  const LoadResult result = Load([&](TransferStage stage, std::size_t words) {
    if (stage != TransferStage::kChecking || words != 0) return;
    ecu_and_pc_.ecu.SetRegister(RegisterOfWord(28), 3);
    ecu_and_pc_.ecu.SetRegister(RegisterOfWord(114), 100);
  });
  EXPECT_EQ(result.outcome, Outcome::kDifferent);
  EXPECT_EQ(result.differences.size(), 2U);
  EXPECT_THAT(ecu_and_pc_.boxes.said,
              ElementsAre(kQuestion,
                          "note: The ECU has not taken everything that was written:\n"
                          "NCYLINDERS: 1028 was written, the ECU holds 3\n"
                          "GridRow[0][0]: 0.29 was written, the ECU holds 1.00",
                          kFailed));
  EXPECT_EQ(ecu_and_pc_.document.Image().block, ecu_and_pc_.ecu.Block());
}

}  // namespace
}  // namespace zelorgas
