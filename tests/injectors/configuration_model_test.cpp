#include <gmock/gmock.h>

#include <sstream>

#include "injectors/ConfigurationModel.h"
#include "support/PolledDocument.h"

namespace zelorgas {
namespace {

using Outcome = ConfigurationModel::Outcome;
using enum ChoiceList;

constexpr const char* kNotLoaded =
    "error: The parameter could not be loaded into the target system!";

struct Page : PolledDocument {
  explicit Page(std::uint8_t minor = 39) : PolledDocument(minor) { Refresh(); }
  void Refresh() {
    document.RequestRefresh();
    worker.RunRound();
    model.TakeFromImage();
    TakeWrites();
  }
  ConfigurationModel model{document, boxes};
};

// An entry that can be chosen, and its writes to an ECU of version 0.39.
struct Row {
  ChoiceList list;
  const char* name;
  std::string writes;
  bool switch_mode = false;
  bool inverse = false;
};

const Row kRows[] = {
    {kWaterTemperatureSensor, "BRC-RTH90", "286=0"},
    {kWaterTemperatureSensor, "Zelor-T740429", "286=1"},
    {kWaterTemperatureSensor, "Romano-CNG", "286=2"},
    {kGasTemperatureSensor, "Zelor-T740429", "287=1 294=1"},
    {kGasPressureSensor, "Zelor-P9250", "309=93 310=2609 288=1"},
    {kGasPressureSensor, "Zelor-P9400", "309=35 310=4150 288=2"},
    {kGasPressureSensor, "Zelor-P9250", "289=0 288=0", true},
    {kGasPressureSensor, "Zelor-P9400", "289=1 288=0", true},
    {kGasPressureSensor, "NONE", "289=2 288=0", true},
    {kMapSensor, "Zelor-P9115", "311=11 312=1180 305=3"},
    {kMapSensor, "Zelor-P9250", "311=93 312=2609 305=2"},
    {kMapSensor, "Custom", "305=255"},
    {kLambdaRange, "0-1V", "324=0"},
    {kLambdaRange, "0-5V", "324=1"},
    {kLambdaRange, "0.8-1.6V", "324=2"},
    {kLambdaRange, "0-12V", "324=3"},
    {kLambdaRange, "0-12V", "324=32771", false, true},
    {kInjectorType, "KEIHIN-BLUE", "271=10000 272=25 331=2500 274=2600 328=0 285=0"},
    {kInjectorType, "KEIHIN-ORG", "271=10000 272=25 331=2500 274=2600 328=0 285=1"},
    {kInjectorType, "MAGIC", "271=10000 272=30 331=4000 274=4000 328=0 285=2"},
    {kInjectorType, "MATRIX", "271=20000 272=40 331=2500 274=3000 328=0 285=3"},
    {kInjectorType, "VALTEK", "271=10000 272=30 331=3500 274=5000 328=400 285=4"},
    {kInjectorType, "STEFANELLI-GREEN", "271=10000 272=70 331=3000 274=4000 328=0 285=5"},
    {kInjectorType, "STEFANELLI-WHITE", "271=10000 272=70 331=3000 274=4000 328=0 285=6"},
    {kInjectorType, "STEFANELLI-RED", "271=10000 272=70 331=3000 274=4000 328=0 285=7"},
    {kInjectorType, "RAIL", "271=10000 272=30 331=3500 274=4500 328=400 285=8"},
};

// Version 0.36 has the older register layout.
std::string WritesTo(std::uint8_t minor, const Row& row) {
  std::string writes = row.writes;
  if (minor == '$' && row.list == kInjectorType) writes.replace(17, 8, "273=242");
  return writes;
}

// Makes the row's registers hold something else and the list the row's mode.
void Prepare(Page& page, const Row& row) {
  for (std::uint16_t reg = 271; reg <= 331; ++reg) page.ecu.SetRegister(reg, 9);
  page.ecu.SetRegister(324, row.inverse ? 0x8009 : 9);
  page.Refresh();
  page.model.SetSwitchMode(row.switch_mode);
}

// The block after the first `count` of the writes.
ConfigurationBlock After(ConfigurationBlock block, const std::string& writes, std::size_t count) {
  std::istringstream text(writes);
  unsigned reg = 0;
  std::uint16_t value = 0;
  char equals = 0;
  while (count-- > 0 && text >> reg >> equals >> value) block.at(reg - 256) = value;
  return block;
}

TEST(ConfigurationModel, EveryEntryIsInTheEcuAsFarAsItsWritesWentThrough) {
  for (const std::uint8_t minor : {std::uint8_t{'$'}, std::uint8_t{'&'}, std::uint8_t{'\''}}) {
    Page page(minor);
    for (const Row& row : kRows) {
      const std::string writes = WritesTo(minor, row);
      const auto count = static_cast<std::size_t>(std::ranges::count(writes, '='));
      const int index = static_cast<int>(EntryNamed(row.list, row.name).value());
      for (std::size_t good = 0; good <= count; ++good) {
        SCOPED_TRACE(row.name + (" " + writes) + " " + std::to_string(good));
        Prepare(page, row);
        const ConfigurationBlock expected = After(page.ecu.Block(), writes, good);
        const bool all = good == count;
        const int applied = all ? index : page.model.Applied(row.list);
        if (!all) page.LoseRequest(good + 1);
        EXPECT_EQ(page.model.Select(row.list, index), all ? Outcome::kWritten : Outcome::kFailed);
        EXPECT_TRUE(page.TakeWrites() == writes || !all);
        EXPECT_EQ(page.ecu.Block(), expected);
        EXPECT_EQ(page.document.Snapshot().block, expected);
        EXPECT_EQ(page.model.Shown(row.list), index);
        EXPECT_EQ(page.model.Applied(row.list), applied);
        EXPECT_EQ(std::exchange(page.boxes.said, {}), std::vector<std::string>(!all, kNotLoaded));
        EXPECT_TRUE(page.Polls());
      }
      page.Refresh();
      EXPECT_EQ(page.model.Shown(row.list), index) << "found again in the ECU";
      EXPECT_EQ(page.model.SwitchMode(), row.switch_mode);
    }
  }
}

TEST(ConfigurationModel, PlaceholdersSnapBackAndUnknownEntriesDoNothing) {
  // The place of the placeholder in each of kChoiceLists.
  constexpr std::array<int, kChoiceLists.size()> kPlaceholders{9, 3, -1, 2, -1, -1};
  Page page;
  for (std::size_t i = 0; i < kChoiceLists.size(); ++i) {
    const ChoiceList list = kChoiceLists[i];
    const int count = static_cast<int>(EntryNames(list).size());
    ASSERT_EQ(page.model.Select(list, 0), Outcome::kWritten);
    // A choice that failed is not what the list goes back to.
    page.LoseRequest(1);
    EXPECT_EQ(page.model.Select(list, std::min(1, count - 1)), Outcome::kFailed);
    page.TakeWrites();
    EXPECT_EQ(page.model.Select(list, -1), Outcome::kNothing);
    EXPECT_EQ(page.model.Select(list, count), Outcome::kNothing);
    EXPECT_EQ(page.model.Shown(list), std::min(1, count - 1));
    if (kPlaceholders[i] >= 0) {
      EXPECT_EQ(page.model.Select(list, kPlaceholders[i]), Outcome::kPutBack);
      EXPECT_EQ(page.model.Shown(list), 0);
    }
    EXPECT_EQ(page.TakeWrites(), "");
  }
  for (std::uint16_t reg = 285; reg <= 324; ++reg) page.ecu.SetRegister(reg, 77);
  page.Refresh();
  for (const ChoiceList list : kChoiceLists) EXPECT_EQ(page.model.Shown(list), -1) << "unknown";
  EXPECT_EQ(page.model.AppliedInjector(), nullptr);
  EXPECT_EQ(InjectorTypes().find("rail"), nullptr);
}

TEST(ConfigurationModel, TheNozzleFieldFollowsInjectorAndDiameter) {
  const std::tuple<int, std::uint16_t, const char*, bool> cases[] = {
      {2, 10, "1.0", true},    {2, 11, "1.1", false}, {8, 0, "0.0", true},
      {4, 123, "12.3", false}, {7, 10, "---", false}, {0, 30, "---", false},
  };
  Page page;
  for (const auto& [injector, diameter, text, too_small] : cases) {
    ASSERT_EQ(page.model.Select(kInjectorType, injector), Outcome::kWritten);
    EXPECT_TRUE(page.model.WriteParameter(*FindParameter("NOZZLEDIAM"), diameter));
    EXPECT_EQ(page.model.Nozzle().Text(), text);
    EXPECT_EQ(page.model.Nozzle().too_small, too_small) << text;
    EXPECT_EQ(page.model.isConfigurationComplete({"a", "b", "c", 501}), !too_small) << text;
  }
  ASSERT_EQ(page.model.Select(kInjectorType, 2), Outcome::kWritten);
  page.model.refreshNozzleDiameter(9);
  EXPECT_EQ(page.model.Nozzle().Text(), "0.9");
  page.ecu.SetRegister(285, 10);
  page.Refresh();
  EXPECT_EQ(page.model.Nozzle().Text(), "3.0") << "an injector that the catalogue does not know";
  page.model.refreshNozzleDiameter(9);
  EXPECT_EQ(page.model.Nozzle().Text(), "3.0") << "no injector is selected";
  EXPECT_TRUE(page.model.WriteParameter(*FindParameter("NOZZLEDIAM"), 8));
  EXPECT_EQ(page.model.Nozzle().Text(), "0.8");
}

TEST(ConfigurationModel, SwitchModeIsThePersonsUntilTheEcuChangesIt) {
  Page page;
  page.model.SetSwitchMode(true);
  page.Refresh();
  EXPECT_TRUE(page.model.SwitchMode()) << "the ECU is as it was";
  page.ecu.SetRegister(288, 0);
  page.Refresh();
  page.model.SetSwitchMode(false);
  page.Refresh();
  EXPECT_FALSE(page.model.SwitchMode());
  page.model.ForgetEcu();
  page.Refresh();
  EXPECT_TRUE(page.model.SwitchMode()) << "another ECU has a switch";
}

TEST(ConfigurationModel, SaysWhatIsMissing) {
  constexpr const char* kSize = "engine size (more than 500 cc)";
  const VehicleData full{"make", "model", "code", 1998};
  // Injector, nozzle, gas pressure and coolant sensor as the ECU has them.
  constexpr std::array<std::uint16_t, 4> kRegisters{285, 321, 288, 286};
  const std::tuple<VehicleData, std::array<std::uint16_t, 4>, std::vector<std::string_view>>
      cases[] = {
          {full, {7, 0, 2, 0}, {}},
          {{}, {4, 25, 1, 1}, {"vehicle make", "vehicle model", "engine code", kSize}},
          {{"a", "b", "c", 500}, {4, 25, 1, 1}, {kSize}},
          {full, {9, 10, 1, 1}, {"gas injector type", "nozzle diameter (more than 1.0 mm)"}},
          {full, {4, 11, 0xFFFF, 0xFFFF}, {"gas pressure sensor", "coolant temperature sensor"}},
          {{"", "", "", 501}, {10, 0, 0xFFFF, 0xFFFF}, {}},
          {{}, {10, 0, 0xFFFF, 0xFFFF}, {kSize}},
      };
  Page page;
  for (const auto& [vehicle, words, missing] : cases) {
    for (std::size_t i = 0; i < words.size(); ++i) page.ecu.SetRegister(kRegisters[i], words[i]);
    page.Refresh();
    EXPECT_THAT(page.model.MissingParts(vehicle), testing::ElementsAreArray(missing));
  }
}

TEST(ConfigurationModel, AParameterIsWrittenAtOnceAndOnlyItsBits) {
  Page page;
  const Parameter& inverse = *FindParameter("LAMBDA_INVERSE");
  page.ecu.SetRegister(324, 2);
  page.Refresh();
  EXPECT_TRUE(page.model.WriteParameter(inverse, 1));
  EXPECT_EQ(page.ecu.Register(324), 0x8002);
  page.LoseRequest(1);
  EXPECT_FALSE(page.model.WriteParameter(inverse, 0));
  EXPECT_EQ(page.model.Value(inverse), 1);
  EXPECT_EQ(page.boxes.said, std::vector<std::string>{kNotLoaded});
  EXPECT_TRUE(page.Polls());
}

}  // namespace
}  // namespace zelorgas
