#include "config/Parameters.h"

#include <gmock/gmock.h>

#include <set>

namespace zelorgas {
namespace {

TEST(Parameters, NamesAreUniqueAndBitsDoNotOverlap) {
  ASSERT_EQ(Parameters().size(), 75U);
  std::set<std::string_view> names;
  std::set<std::pair<unsigned, unsigned>> bits;
  std::set<unsigned> words;
  for (const Parameter& parameter : Parameters()) {
    EXPECT_TRUE(names.insert(parameter.name).second) << parameter.name;
    words.insert(parameter.word);
    for (unsigned bit = 0; bit < parameter.bits; ++bit) {
      EXPECT_TRUE(bits.emplace(parameter.word, parameter.first_bit + bit).second) << parameter.name;
    }
  }
  // Every bit of words 0 to 75 but those of 70 and 71 belongs to a parameter.
  EXPECT_EQ(bits.size(), 74U * 16U);
  EXPECT_EQ(words.count(70) + words.count(71), 0U);
  EXPECT_EQ(*words.rbegin(), 75U);
}

TEST(Parameters, LieWhereTheEcuKeepsThem) {
  const struct {
    std::string_view name;
    std::uint16_t register_number;
  } cases[] = {
      {"TEMP_COLD_ENG", 256},
      {"FREQ_GAS_INJ", 271},
      {"NCYLINDERS", 284},
      {"PRESSURE_SENSOR_TPYE", 288},
      {"ONOFF_PRESSURE_SENSOR_TPYE", 289},
      {"RPM_RATIO", 291},
      {"L2_INSTALLED", 303},
      {"MAP_INSTALLED", 304},
      {"TPS0", 307},
      {"RETIDLE_PG_RPM", 314},
      {"LAMBDA_INVERSE", 324},
      {"LAMBDA_OXYGENRANGE", 324},
      {"RPM_RATIO_MUL", 325},
      {"TOFF_HOLDFREQ_INJ", 328},
      {"TONINJ_MIN", 331},
  };
  for (const auto& c : cases) {
    const Parameter* parameter = FindParameter(c.name);
    ASSERT_NE(parameter, nullptr) << c.name;
    EXPECT_EQ(parameter->Register(), c.register_number) << c.name;
  }
  EXPECT_EQ(FindParameter("rpm_ratio"), nullptr);
  EXPECT_EQ(FindParameter("RPM_RATI"), nullptr);
  EXPECT_EQ(FindParameter(""), nullptr);
}

TEST(Parameters, LambdaFieldsShareAWordWithoutTouchingEachOther) {
  const Parameter& inverse = *FindParameter("LAMBDA_INVERSE");
  const Parameter& range = *FindParameter("LAMBDA_OXYGENRANGE");
  EXPECT_EQ(inverse.MaxValue(), 1);
  EXPECT_EQ(range.MaxValue(), 0x7FFF);

  ConfigurationBlock block{};
  SetParameter(block, inverse, 1);
  SetParameter(block, range, 2);
  EXPECT_EQ(block[68], 0x8002);
  SetParameter(block, range, 0x7FFF);
  SetParameter(block, inverse, 0);
  EXPECT_EQ(block[68], 0x7FFF);
  block[68] = 0x8003;
  EXPECT_EQ(GetParameter(block, inverse), 1);
  EXPECT_EQ(GetParameter(block, range), 3);
  // A value that is too large loses its upper bits, not its neighbour's.
  SetParameter(block, inverse, 2);
  EXPECT_EQ(block[68], 0x0003);
  SetParameter(block, range, 0x8001);
  EXPECT_EQ(block[68], 0x0001);
}

TEST(Parameters, SettingAWholeWordLeavesItsNeighbours) {
  ConfigurationBlock block;
  block.fill(0x5555);
  SetParameter(block, *FindParameter("TPSMAX"), 0xFFFF);
  EXPECT_EQ(block[52], 0xFFFF);
  EXPECT_EQ(block[51], 0x5555);
  EXPECT_EQ(block[53], 0x5555);
  EXPECT_EQ(GetParameter(block, *FindParameter("TPSMAX")), 0xFFFF);
}

TEST(Parameters, MistypedNamesFindTheirNearest) {
  const struct {
    std::string_view typed, meant;
  } cases[] = {
      {"RPM_RATOI", "RPM_RATIO"},
      {"ncylinders", "NCYLINDERS"},
      {"PRESSURE_SENSOR_TYPE", "PRESSURE_SENSOR_TPYE"},
      {"LAMBDAINVERSE", "LAMBDA_INVERSE"},
      {"TPS_MAX", "TPSMAX"},
      {"XNOZZLEDIAM", "NOZZLEDIAM"},
  };
  for (const auto& c : cases) {
    const auto nearest = NearestParameterNames(c.typed, 3);
    ASSERT_EQ(nearest.size(), 3U) << c.typed;
    EXPECT_EQ(nearest.front(), c.meant) << c.typed;
  }
  EXPECT_EQ(NearestParameterNames("", 1000).size(), 75U);
  EXPECT_EQ(NearestParameterNames("", 1).front(), "TPS0");
}

}  // namespace
}  // namespace zelorgas
