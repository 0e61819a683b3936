#include <gmock/gmock.h>

#include "app/StoreProcedure.h"
#include "config/ConfigurationFile.h"
#include "platform/FileSystem.h"
#include "support/ConnectedDocument.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;

TEST(StoreProcedure, AsksStoresAndSaysSo) {
  const TemporaryFolder folder;
  ConnectedDocument ecu_and_pc;
  ecu_and_pc.document.Image().block = FactoryConfiguration();
  const auto store = [&](ScriptedBoxes& boxes, const std::filesystem::path& file) {
    return StoreConfiguration(ecu_and_pc.document, boxes, {.file = file, .notes = "Golf"});
  };
  const std::filesystem::path file = folder.Path() / "LPG" / "car.fob";

  ScriptedBoxes nothing_chosen;
  EXPECT_EQ(store(nothing_chosen, {}), StoreOutcome::kNoFile);
  EXPECT_THAT(nothing_chosen.said, ElementsAre("note: The filename has not completed!\n"
                                               "Please specify all the required fields."));
  ScriptedBoxes no;
  EXPECT_EQ(store(no, file), StoreOutcome::kDeclined);
  EXPECT_FALSE(std::filesystem::exists(file));
  ScriptedBoxes yes;
  yes.answer = true;
  EXPECT_EQ(store(yes, file), StoreOutcome::kStored);
  EXPECT_THAT(
      yes.said,
      ElementsAre("question: Do you want to store current configuration in file \"car.fob\"?",
                  "note: The configuration data have been stored successfully!"));
  EXPECT_EQ(ReadConfigurationFile(file, {}, 0).shown[28], 4);
  EXPECT_EQ(ReadNotes(file), "Golf");

  ScriptedBoxes over;
  EXPECT_EQ(store(over, file), StoreOutcome::kDeclined);
  EXPECT_THAT(
      over.said,
      ElementsAre("question: The current configuration data are giong to be stored into the "
                  "specified file!\nDo you realy want to continue?"));
  // The folder's name is taken by a file.
  EXPECT_EQ(store(yes, file / "sub" / "car.fob"), StoreOutcome::kFailed);
  EXPECT_EQ(yes.said.back(),
            "error: An error has occured while trying to store configuration data!");
  EXPECT_THAT(yes.statuses, ElementsAre(testing::HasSubstr("Cannot create " + PathText(file))));
}

}  // namespace
}  // namespace zelorgas
