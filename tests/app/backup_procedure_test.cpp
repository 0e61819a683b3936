#include <gtest/gtest.h>

#include "app/BackupProcedure.h"
#include "config/ConfigurationFile.h"
#include "support/ConnectedDocument.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

TEST(BackupProcedure, KeepsWhatTheEcuHoldsAndNotWhatTheImageHeld) {
  const TemporaryFolder folder;
  ConnectedDocument on_line;
  ASSERT_TRUE(on_line.document.OpenLink());
  on_line.ecu.SetRegister(RegisterOfWord(538), 0x0304);  // of the first routing map
  on_line.ecu.SetRegister(RegisterOfWord(556), 0x0102);  // of the second
  Message problem;
  const auto file =
      BackUpConfiguration(on_line.document, folder.Path() / "backup", "some notes", problem);
  ASSERT_TRUE(file) << problem.English();
  const LoadedConfiguration stored = ReadConfigurationFile(*file, {}, 0);
  EXPECT_EQ(stored.block[538], 0x0304);
  EXPECT_EQ(ReadConfigurationFile(SecondMapFile(*file), {}, 1).block[556], 0x0102);
  EXPECT_TRUE(stored.Usable());
  EXPECT_EQ(stored.notes, "some notes");
  EXPECT_EQ(stored.Over(on_line.ecu.Block()), on_line.ecu.Block());
  EXPECT_EQ(on_line.document.Snapshot().block, on_line.ecu.Block());
  EXPECT_NE(NewBackupFile(folder.Path() / "backup"), *file);
}

TEST(BackupProcedure, StoresNothingThatWasNotReadWhole) {
  const TemporaryFolder folder;
  ConnectedDocument on_line;
  ASSERT_TRUE(on_line.document.OpenLink());
  on_line.line.ArmFault({FaultKind::kSilent, 600'000}, 10);
  Message problem;
  EXPECT_FALSE(BackUpConfiguration(on_line.document, folder.Path() / "backup", "", problem));
  EXPECT_EQ(problem, on_line.document.Link().ErrorText(ModbusResult::kTimeOut).English());
  EXPECT_FALSE(std::filesystem::exists(folder.Path() / "backup"));
}

}  // namespace
}  // namespace zelorgas
