#include "config/Parameters.h"

#include <gtest/gtest.h>

#include <utility>

namespace zelorgas {
namespace {

TEST(Parameters, LieWhereTheEcuKeepsThem) {
  const std::pair<std::string_view, std::uint16_t> cases[] = {
      {"TEMP_COLD_ENG", 256},      {"FREQ_GAS_INJ", 271},
      {"NCYLINDERS", 284},         {"PRESSURE_SENSOR_TPYE", 288},
      {"RPM_RATIO", 291},          {"L2_INSTALLED", 303},
      {"MAP_INSTALLED", 304},      {"TPS0", 307},
      {"RETIDLE_PG_RPM", 314},     {"LAMBDA_INVERSE", 324},
      {"LAMBDA_OXYGENRANGE", 324}, {"RPM_RATIO_MUL", 325},
      {"TOFF_HOLDFREQ_INJ", 328},  {"TONINJ_MIN", 331},
  };
  for (const auto& [name, register_number] : cases) {
    const Parameter* parameter = FindParameter(name);
    ASSERT_NE(parameter, nullptr) << name;
    EXPECT_EQ(parameter->Register(), register_number) << name;
  }
  for (const char* name : {"rpm_ratio", "RPM_RATI", ""}) EXPECT_EQ(FindParameter(name), nullptr);
}

TEST(Parameters, FieldsShareAWordWithoutTouchingEachOther) {
  const Parameter& inverse = *FindParameter("LAMBDA_INVERSE");
  const Parameter& range = *FindParameter("LAMBDA_OXYGENRANGE");
  ConfigurationBlock block;
  block.fill(0x5555);
  block[68] = 0x8003;
  EXPECT_EQ(GetParameter(block, inverse), 1);
  EXPECT_EQ(GetParameter(block, range), 3);
  // A value that is too large loses its upper bits, not its neighbour's.
  SetParameter(block, inverse, 2);
  EXPECT_EQ(block[68], 0x0003);
  SetParameter(block, range, 0x8001);
  EXPECT_EQ(block[68], 0x0001);
  SetParameter(block, *FindParameter("TPSMAX"), 0xFFFF);
  EXPECT_EQ(block[52], 0xFFFF);
  EXPECT_EQ(block[51] & block[53], 0x5555);
}

TEST(Parameters, MistypedNamesFindTheirNearest) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"RPM_RATOI", "RPM_RATIO"},
      {"ncylinders", "NCYLINDERS"},
      {"PRESSURE_SENSOR_TYPE", "PRESSURE_SENSOR_TPYE"},
      {"LAMBDAINVERSE", "LAMBDA_INVERSE"},
      {"XNOZZLEDIAM", "NOZZLEDIAM"},
  };
  for (const auto& [typed, meant] : cases) {
    const auto nearest = NearestParameterNames(typed, 3);
    ASSERT_EQ(nearest.size(), 3U) << typed;
    EXPECT_EQ(nearest.front(), meant) << typed;
  }
  EXPECT_EQ(NearestParameterNames("", 1000).size(), 75U);
  EXPECT_EQ(NearestParameterNames("", 1).front(), "TPS0");
}

}  // namespace
}  // namespace zelorgas
