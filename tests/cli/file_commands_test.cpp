// read, write, show and diff.
#include <gmock/gmock.h>

#include "cli/FolderCliTest.h"
#include "platform/FileSystem.h"
#include "support/SampleConfiguration.h"

namespace zelorgas {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class FileCommands : public FolderCliTest {
 protected:
  FileCommands() { WriteFile("sample.fob", SampleText()); }

  void WriteFile(const std::string& name, const std::string& text) {
    Message problem;
    ASSERT_TRUE(WriteWholeFile(name, text, problem)) << problem.English();
  }
};

TEST_F(FileCommands, ReadStoresAndAsksBeforeItWritesOverAFile) {
  CliHarness::Outcome run = Run({"read", "new/car.fob", "--notes", "Golf", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "{\"file\":\"new/car.fob\",\"words\":583}\n");
  EXPECT_EQ(Run({"diff", "new/car.fob", "ecu"}).status, 0);
  const std::uint64_t requests = line_.RequestCount();
  EXPECT_EQ(Run({"read", "new/car.fob"}).status, 2);
  EXPECT_EQ(line_.RequestCount(), requests);
  cli_.terminal = true;
  cli_.typed = "n\n";
  run = Run({"read", "new/car.fob"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("giong to be stored into the specified file!"));
  EXPECT_EQ(ReadNotes("new/car.fob"), "Golf");
  EXPECT_EQ(Run({"read", "new/car.fob", "--yes"}).out, "stored: new/car.fob\n");
  const std::uint64_t before = line_.RequestCount();
  EXPECT_EQ(Run({"read", "sample.fob/car.fob"}).status, 3);
  EXPECT_EQ(Run({"read", "new"}).status, 3) << "a folder";
  EXPECT_EQ(line_.RequestCount(), before) << "nothing was read in vain";
  line_.SetPlugged(false);
  EXPECT_EQ(Run({"read", "other.fob"}).status, 1);
  EXPECT_FALSE(std::filesystem::exists("other.fob"));
}

TEST_F(FileCommands, WriteLoadsAndKeepsWhatWasThere) {
  const ConfigurationBlock before = ecu_.Block();
  WriteFile("bad.fob", Replaced(SampleText(), "0.29;", "x;"));
  WriteFile("cut.fob", SampleText().substr(0, 4000));
  EXPECT_EQ(Run({"write", "sample.fob"}).status, 2);
  EXPECT_EQ(Run({"write", "bad.fob", "--yes"}).status, 3);
  EXPECT_EQ(Run({"write", "cut.fob", "--yes"}).status, 3) << "nobody is there to be asked about it";
  WriteFile("storage", "no folder");
  EXPECT_EQ(Run({"write", "sample.fob", "--yes"}).status, 3) << "there is no place for the backup";
  std::filesystem::remove("storage");
  cli_.terminal = true;
  cli_.typed = "n\n";
  EXPECT_EQ(Run({"write", "sample.fob"}).status, 1);
  EXPECT_EQ(ecu_.Block(), before);
  EXPECT_FALSE(std::filesystem::exists("storage"));

  const CliHarness::Outcome run = Run({"write", "sample.fob", "--yes", "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, StartsWith("{\"file\":\"sample.fob\",\"written\":583,\"checked\":true,"));
  EXPECT_THAT(run.out, testing::EndsWith("_backup.fob\",\"differences\":[]}\n"));
  EXPECT_EQ(ecu_.Block(), ReadText(SampleText(), before).block);
  const std::filesystem::path backup = *std::filesystem::directory_iterator("storage/backup");
  EXPECT_EQ(ReadConfigurationFile(backup, {}, 0).block[28], before[28]);
  EXPECT_EQ(Run({"diff", "sample.fob", "ecu"}).status, 0);
}

TEST_F(FileCommands, ShowPrintsAFile) {
  CliHarness::Outcome run = Run({"show", "sample.fob"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, StartsWith("TEMP_COLD_ENG=1000\n"));
  EXPECT_THAT(run.out, HasSubstr("\nTon=1.230;1.080;"));
  EXPECT_THAT(run.out, HasSubstr("\nmapPinjs.Pinj1.Ginj1=0;1;0;0;0;0;0;0\nmapPinjs.Pinj1.Ginj2="));
  EXPECT_THAT(run.out, testing::EndsWith("\nNotes: Golf\n"));
  run = Run({"show", "sample.fob", "--json"});
  EXPECT_THAT(run.out, StartsWith("{\"version\":\"1.00\",\"notes\":\"Golf\",\"values\":"
                                  "{\"TEMP_COLD_ENG\":1000,"));
  EXPECT_THAT(run.out, HasSubstr(",\"CorrTurbo\":[-10,1387,"));
  WriteFile("bad.fob", Replaced(SampleText(), "NCYLINDERS=\"1028\"", "NCYLINDERS=\"4,0\""));
  run = Run({"show", "bad.fob"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, testing::Not(HasSubstr("NCYLINDERS")));
  EXPECT_THAT(run.err, HasSubstr("bad.fob: NCYLINDERS is \"4,0\", no whole number"));
  WriteFile("bad.fob", Replaced(SampleText(), "Ton=\"1.23;", "Ton=\"1,23;"));
  run = Run({"show", "bad.fob"});
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.out, HasSubstr("\nTon=?;1.080;")) << "the table keeps its places";
  EXPECT_EQ(Run({"show", "."}).status, 3);
}

TEST_F(FileCommands, DiffGivesALineForEachDifference) {
  WriteFile("other.fob", Replaced(Replaced(SampleText(), "1028", "4"), "0.29;", "2.01;"));
  WriteFile("lacks.fob", Replaced(SampleText(), "NCYLINDERS=\"1028\"", ""));
  CliHarness::Outcome run = Run({"diff", "sample.fob", "other.fob"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "NCYLINDERS: 1028 -> 4\nGridRow[0][0]: 0.29 -> 2.01\n");
  run = Run({"diff", "sample.fob", "other.fob", "--json"});
  EXPECT_THAT(run.out, testing::EndsWith(R"({"name":"GridRow[0]","index":0,)"
                                         R"("first":{"raw":29,"text":"0.29"},)"
                                         R"("second":{"raw":201,"text":"2.01"}}]})"
                                         "\n"));
  run = Run({"diff", "lacks.fob", "sample.fob"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "NCYLINDERS: (missing) -> 1028\n");
  EXPECT_THAT(Run({"diff", "lacks.fob", "sample.fob", "--json"}).out,
              HasSubstr(R"("first":null,"second":{"raw":1028,)"));
  EXPECT_THAT(Run({"diff", "ecu", "sample.fob"}).out, HasSubstr("\nNCYLINDERS: 4 -> 1028\n"));
  EXPECT_EQ(Run({"diff", "sample.fob", "none.fob"}).status, 3);
  EXPECT_EQ(Run({"diff", "ecu", "ecu"}).status, 2);
}

}  // namespace
}  // namespace zelorgas
