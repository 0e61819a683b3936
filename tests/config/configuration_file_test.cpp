#include <gmock/gmock.h>

#include <locale>
#include <sstream>

#include "config/Parameters.h"
#include "platform/FileSystem.h"
#include "support/SampleConfiguration.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

using testing::HasSubstr;

// The scalars in the order in which files have them.
constexpr std::string_view kScalarOrder =
    "TEMP_COLD_ENG DELAY_COLD_ENG RPM_COLD_ENG TEMP_HOT_ENG DELAY_HOT_ENG RPM_HOT_ENG "
    "DELAY_GAS_VALVE PETGAS_PULSES SHIFT_CYL_PG SHIFT_CYL_GP TIME_GAS_ENABLE "
    "EMERGENCY_GAS_PRESSURE EMERGENCY_TWATER PULSES_ABSENT RPM_TROUBLE FREQ_GAS_INJ DC_GAS_INJ "
    "TSPEEDUP_DELAY TSPEEDUP TOFF_HOLDFREQ_INJ TONINJ_MIN TRPM_A TRPM_B TRPM_C GASLEVEL_25 "
    "GASLEVEL_50 GASLEVEL_75 GASLEVEL_100 GASLEVEL_SENSORTYPE GAS_TYPE NCYLINDERS INJECTOR_TYPE "
    "TW_SENSOR_TYPE TGAS_SENSOR_TYPE PRESSURE_SENSOR_TPYE ONOFF_PRESSURE_SENSOR_TPYE RPM_SOURCE "
    "RPM_RATIO RPM_RATIO_MUL ENGINE_TYPE ENGINE_SIZE TGAS_SENSOR_INSTALLED "
    "GP_CHANGEOVER_ON_TWATER GP_CHANGEOVER_ON_PGAS GP_CHANGEOVER_ON_PULSELACK "
    "GP_CHANGEOVER_ON_RPM PGAS_NOMINAL TONMIN_GAS_ON TONMAX_GAS_ON TONMIN_PETROL L2_INSTALLED "
    "MAP_INSTALLED MAP_SENSORTYPE EXTRA_INJ TPS0 TPSMAX PGAS0 PGASMAX MAP0 MAPMAX RETIDLE_GP_RPM "
    "RETIDLE_PG_RPM RETIDLE_DURATION CUTOFF_MAXRPM CUTOFF_DUR_NOINJ REDRPM_ENRICH "
    "REDRPM_DURATION REDRPM_DISS NOZZLEDIAM TIPIN_ENABLE TIPOUT_ENABLE LAMBDA_INVERSE "
    "LAMBDA_OXYGENRANGE RPM_SENSORTYPE LOWGASPRESSURE_DUR";

TEST(ConfigurationFile, HasEveryAttributeOnALineOfItsOwn) {
  std::string head =
      "<?xml version=\"1.0\"?>\r\n<GASECUConfiguration \r\n\tVersion=\"1.00\">\r\n"
      "<Configuration_data>\r\n<CommonParams";
  std::istringstream names{std::string(kScalarOrder)};
  for (std::string name; names >> name;) {
    const std::uint16_t value = GetParameter(SampleConfiguration(), *FindParameter(name));
    head += " \r\n\t" + name + "=\"" + std::to_string(value) + "\"";
  }
  head +=
      "/>\r\n<GridParams \r\n\tNrows=\"12\" \r\n\tNcols=\"1081\" \r\n\tTon=\"1.23;1.08;1.08;1.08;"
      "1.09;1.09;1.09;1.09;1.09;1.09;1.09;1.09;1.09;1.09;1.10;1.10\" \r\n\tRPM=\"1098;1099;";
  const std::string text = SampleText("say \"<&>'\"\r\nplease");
  EXPECT_EQ(text.substr(0, head.size()), head);
  for (const char* piece :
       {" \r\n\tGridRow[0]=\"0.29;11.15;", ";13.69\" \r\n\tCorrEco=\"1370;",
        "CorrTurbo=\"-10;1387;",
        "\tCorrCyl=\"1402;1403;1404;1405;1406;1407\"/>\r\n<CorrTPS>\r\n<CorrTPSAcc "
        "\r\n\tThrshld=\"1408;",
        "\" \r\n\tOutlet=\"1472\"/>\r\n<CorrTPSDec",
        "</CorrTPS>\r\n<mapPinjs>\r\n<Pinj1 \r\n\tGinj1=\"0;1;0;0;0;0;0;0\" "
        "\r\n\tGinj2=\"0;1;1;0;0;0;0;",
        "</mapPinjs>\r\n<mapSwappedInjs \r\n\t0=\"38\" \r\n\t1=\"6\" ",
        "<mapPinjSet \r\n\tPinj1=\"1;0;0;0;0;0\" \r\n\tPinj2=\"0;1;0;0;0;0\""}) {
    EXPECT_THAT(text, HasSubstr(piece));
  }
  EXPECT_THAT(text, testing::EndsWith("\r\n</Configuration_data>\r\n</GASECUConfiguration>\r\n"
                                      "<Notes \r\n\t\tText=\"say &quot;&lt;&amp;&gt;&apos;&quot;"
                                      "\r\nplease\"/>\r\n"));
}

TEST(ConfigurationFile, GivesTheBlockBack) {
  const ConfigurationBlock block = SampleConfiguration();
  ConfigurationBlock base{};
  base.fill(0xAAAA);
  for (const std::size_t map : {std::size_t{0}, std::size_t{1}}) {
    const LoadedConfiguration file =
        ReadConfigurationText(ConfigurationText(block, map, "\"<&>'\"\r\n"), base, map);
    EXPECT_TRUE(file.Usable() && file.damage.empty());
    EXPECT_THAT(file.remarks, testing::IsEmpty());
    EXPECT_EQ(file.notes, "\"<&>'\"\r\n");
    const std::size_t other_map = 538 + 18 * (1 - map);
    for (std::size_t i = 0; i < kBlockWords; ++i) {
      if (i == 70 || i == 71 || (i >= 76 && i < 80) || i >= 580 ||
          (i >= other_map && i < other_map + 18)) {
        EXPECT_EQ(file.given[i], 0) << i;
        EXPECT_EQ(file.block[i], 0xAAAA) << i;
      } else if (i > block_layout::kGridTimes && i < block_layout::kGridSpeeds) {
        EXPECT_NEAR(file.shown[i], block[i], 5) << "two decimals of a millisecond are kept";
      } else {
        EXPECT_EQ(file.shown[i], block[i]) << i;
      }
    }
  }
}

// The sample with another value in the first attribute of this name.
LoadedConfiguration ReadWith(const std::string& name, const std::string& value) {
  const std::string text = SampleText();
  const std::size_t begin = text.find("\t" + name + "=\"") + name.size() + 3;
  return ReadText(text.substr(0, begin) + value + text.substr(text.find('"', begin)));
}

TEST(ConfigurationFile, NumbersAreTakenAsTheirRulesSay) {
  struct Taken {
    std::string name;
    std::string value;
    std::uint16_t word;
    std::uint16_t loaded;
  };
  const Taken rows[] = {
      {"NCYLINDERS", " +7", 28, 7},
      {"NCYLINDERS", "70000", 28, 4464},
      {"NCYLINDERS", "-1", 28, 65535},
      {"NCYLINDERS", "99999999999999999999", 28, 65535},
      {"LAMBDA_INVERSE", "", 68, 0x8002},
      {"LAMBDA_OXYGENRANGE", "32769", 68, 0x8001},
      {"Ton", "1.2399", 82, 1239},
      {"Ton", "65.536", 82, 0},
      {"Ton", "1e-400", 82, 0},
      {"GridRow[0]", "2.01", 114, 200},
      {"GridRow[0]", "-0.01", 114, 65535},
      {"RPM", "-1", 98, 65535},
      {"CorrCyl", "1;2", 404, 1404},
      {"CorrCyl", "1;2;3;4;5;6;x", 407, 6},
      {"Outlet", "-3", 472, 65533},
      {"Ginj1", "7;0;0;0;0;0;0;-1", 538, 0x0681},
      {"Ginj1", "1", 538, 0x0601},
      {"0", "260", 574, 0x0604},
  };
  for (const Taken& row : rows) {
    const LoadedConfiguration file = ReadWith(row.name, row.value);
    EXPECT_EQ(file.block[row.word], row.loaded) << row.name << ' ' << row.value;
    EXPECT_TRUE(file.Usable()) << row.value;
  }
  EXPECT_EQ(ReadText(Replaced(SampleText(), "Ginj1=", "Other=")).block[538], 0x0602);
  EXPECT_EQ(ReadText(Replaced(SampleText(), "<CorrTPSDec", "<Other")).block[473], 1473);
}

TEST(ConfigurationFile, WhatIsNoNumberKeepsAScalarAndRefusesAList) {
  for (const char* text : {"4x", "4 ", "0x4", "4,0", "nan", "", "-", "+-4"}) {
    const LoadedConfiguration file = ReadWith("NCYLINDERS", text);
    EXPECT_EQ(file.block[28], 1028) << text;
    EXPECT_EQ(file.given[28], 0) << text;
    EXPECT_TRUE(file.Usable() && file.remarks.size() == 1) << text;
  }
  for (const char* token : {"1,23", "1.23ms", "nan", "-inf", "1e999", "3000000", "", "--1"}) {
    const LoadedConfiguration file = ReadWith("Ton", token + std::string(";2.00"));
    EXPECT_EQ(file.faults.size(), 1U) << token;
    EXPECT_EQ(file.block[82], 1230) << token;
    EXPECT_EQ(file.block[83], 2000) << "reading goes on";
  }
  for (const char* name : {"Nrows", "RPM", "CorrEco", "Outlet", "Ginj6", "0"}) {
    EXPECT_EQ(ReadWith(name, "12.5").faults.size(), 1U) << name;
  }
  for (const char* name : {"Nrows", "Outlet", "5"}) {
    EXPECT_EQ(ReadWith(name, "12;7").faults.size(), 1U) << name << " is no list";
  }
}

TEST(ConfigurationFile, WithoutItsHeadItIsNone) {
  const std::string text = SampleText();
  for (const char* version : {"1.0", "1.01", "01.00", "", " 1.00"}) {
    EXPECT_THAT(
        ReadWith("Version", version).faults,
        testing::ElementsAre("The version is \"" + std::string(version) + "\" and not \"1.00\""));
  }
  for (const std::string element : {"GASECUConfiguration", "Configuration_data", "CommonParams"}) {
    const LoadedConfiguration file = ReadText(Replaced(text, "<" + element, "<Other"));
    EXPECT_THAT(file.faults, testing::ElementsAre("There is no element " + element));
    EXPECT_EQ(file.block, SampleConfiguration());
  }
  EXPECT_FALSE(ReadText("").Usable());
  EXPECT_TRUE(ReadText(Replaced(text, "<Notes", "<Other")).Usable());
  EXPECT_EQ(ReadText(Replaced(text, "Golf", "B\xFCro, \u041B")).notes, "B\u00FCro, \u041B");
}

TEST(ConfigurationFile, WhatWasCutOffIsNotSound) {
  const std::string text = SampleText();
  const std::size_t end = text.find("</GASECUConfiguration>") + 22;
  for (std::size_t length = 0; length < text.size(); ++length) {
    const LoadedConfiguration file = ReadText(text.substr(0, length));
    const bool sound = file.Usable() && file.damage.empty();
    EXPECT_EQ(sound, (length >= end && length <= end + 2) || length >= text.size() - 2) << length;
  }
}

TEST(ConfigurationFile, TheProcessesLocaleHasNoSay) {
  struct Commas final : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::string text = SampleText();
  const std::locale before = std::locale::global(std::locale(std::locale(), new Commas));
  EXPECT_EQ(SampleText(), text);
  const LoadedConfiguration file = ReadText(text);
  std::locale::global(before);
  EXPECT_TRUE(file.Usable());
  EXPECT_EQ(file.block[block_layout::kGridTimes], 1230);
}

TEST(ConfigurationFile, IsWrittenAndReadOnDisk) {
  const TemporaryFolder folder;
  const std::filesystem::path path = folder.Path() / "storage" / "LPG" / "car.fob";
  Message problem;
  ASSERT_TRUE(WriteConfigurationFile(path, SampleConfiguration(), 0, "Golf", problem))
      << problem.English();
  EXPECT_TRUE(ReadConfigurationFile(path, {}, 0).Usable());
  EXPECT_EQ(ReadNotes(path), "Golf");
  // A file in place of a folder, a folder in place of a file.
  const std::filesystem::path parent = path.parent_path();
  EXPECT_FALSE(WriteConfigurationFile(path / "x.fob", SampleConfiguration(), 0, "", problem));
  EXPECT_THAT(problem.English(), testing::StartsWith("Cannot create " + PathText(path)));
  EXPECT_FALSE(WriteConfigurationFile(parent, SampleConfiguration(), 0, "", problem));
  EXPECT_THAT(problem.English(), testing::StartsWith("Cannot write " + PathText(parent)));
  const std::string long_notes(4U << 20U, 'x');
  EXPECT_FALSE(WriteConfigurationFile(path, SampleConfiguration(), 0, long_notes, problem));
  EXPECT_EQ(ReadNotes(path), "Golf");
  const std::filesystem::path large = folder.Path() / "large.fob";
  Message reason;
  ASSERT_TRUE(WriteWholeFile(large, SampleText() + std::string(4U << 20U, ' '), reason));
  EXPECT_THAT(ReadConfigurationFile(large, {}, 0).faults[0].English(),
              HasSubstr(": it is larger than 4 MB"));
  for (const std::filesystem::path& bad : {parent, folder.Path() / "none.fob", large}) {
    EXPECT_THAT(ReadConfigurationFile(bad, {}, 0).faults, testing::SizeIs(1));
    EXPECT_EQ(ReadNotes(bad), "");
  }
}

}  // namespace
}  // namespace zelorgas
