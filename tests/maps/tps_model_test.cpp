#include <gmock/gmock.h>

#include <tuple>

#include "config/Parameters.h"
#include "maps/TpsModel.h"
#include "support/ConnectedDocument.h"
#include "support/ScriptedBoxes.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;
using enum TpsQuantity;

constexpr auto kAcceleration = TpsTable::kAcceleration;
constexpr auto kDeceleration = TpsTable::kDeceleration;

struct TpsOnEcu : ConnectedDocument {
  TpsOnEcu() {
    if (document.Link().Open(0, 0, 255)) document.Image().block = ecu.Block();
  }
  ~TpsOnEcu() { EXPECT_EQ(ecu.Block(), document.Image().block); }

  int refreshed = 0;  // how often the controls were shown anew
  ScriptedBoxes boxes;
  TpsModel tps{document, boxes, [this] { ++refreshed; }};
};

TEST(TpsModel, WritesATableCellAsItsRowReadsIt) {
  const std::string whole = "\" is not a whole number from 0 to 65535!";
  const std::string with_sign = "\" is not a whole number from -32768 to 32767!";
  // What is typed where; the register and its word, and how that reads, or why there is none.
  const std::tuple<TpsTable, TpsQuantity, std::size_t, const char*, std::uint16_t, int, std::string>
      cases[] = {
          {kAcceleration, kThreshold, 0, "-300", 664, 0xFED4, "-300 %/s"},
          {kAcceleration, kThreshold, 15, " 12 %/s", 679, 12, "12 %/s"},
          {kAcceleration, kCorrection, 0, "-5", 680, 0xFFFB, "-5%"},
          {kAcceleration, kDuration, 1, "65535", 697, 65535, "65535"},
          {kDeceleration, kThreshold, 0, "+7", 729, 7, "7 %/s"},
          {kDeceleration, kCorrection, 3, "15%", 748, 15, "15%"},
          {kDeceleration, kDissolve, 0, "8", 777, 8, "8"},
          {kAcceleration, kThreshold, 0, "32768", 0, 0, "\"32768" + with_sign},
          {kAcceleration, kCorrection, 0, "5x", 0, 0, "\"5x" + with_sign},
          {kAcceleration, kCorrection, 0, "5 %/s", 0, 0, "\"5 %/s" + with_sign},
          {kAcceleration, kDuration, 0, "5%", 0, 0, "\"5%" + whole},
          {kAcceleration, kDuration, 0, "-5", 0, 0, "\"-5" + whole},
          {kAcceleration, kDissolve, 0, "1.5", 0, 0, "\"1.5" + whole},
      };
  for (const auto& [table, quantity, band, typed, reg, word, reads] : cases) {
    TpsOnEcu on;
    EXPECT_EQ(on.tps.EditCell(table, quantity, band, typed), reg != 0) << typed;
    EXPECT_EQ(reg != 0 ? on.ecu.Register(reg) : 0, word) << reg;
    EXPECT_EQ(reg != 0 ? on.tps.CellText(table, quantity, band) : on.boxes.informed.at(0), reads);
    EXPECT_EQ(on.refreshed, 1) << "in any case the control shows what the ECU has";
    EXPECT_EQ(on.line.RequestCount(), reg != 0 ? 1U : 0U);
    EXPECT_EQ(on.clock.ElapsedMs() >= 250, reg != 0);
  }
}

TEST(TpsModel, WritesSwitchesOutletsAndTheIdleSettings) {
  TpsOnEcu on;
  on.tps.EditOutlet(kAcceleration, "21");
  on.tps.EditOutlet(kDeceleration, "22");
  EXPECT_EQ(on.ecu.Register(728), 21);
  EXPECT_EQ(on.ecu.Register(793), 22);
  for (const bool enabled : {true, false}) {
    for (const TpsTable table : kTpsTables) {
      on.tps.SetEnabled(table, enabled);
      EXPECT_EQ(on.ecu.Register(table == kAcceleration ? 322 : 323), enabled ? 1 : 0);
      EXPECT_EQ(on.tps.Enabled(table), enabled);
    }
  }
  for (std::size_t i = 0; i < kIdleSettings.size(); ++i) {
    EXPECT_EQ(FindParameter(kIdleSettings[i].name)->Register(), kIdleSettings[i].reg);
    on.tps.EditIdle(i, "40");
    EXPECT_EQ(on.ecu.Register(kIdleSettings[i].reg), i == 2 ? 400 : 40);
    EXPECT_EQ(on.tps.IdleText(i), i == 2 ? "40.0" : "40");
  }
  for (const auto& [typed, word] :
       {std::pair{"1.26", 13}, {"1,25", 13}, {"1.24", 12}, {"6553.5", 65535}}) {
    on.tps.EditIdle(2, typed);
    EXPECT_EQ(on.ecu.Register(315), word) << typed;
  }
  EXPECT_FALSE(on.tps.EditIdle(2, "6553.6"));
  EXPECT_THAT(on.boxes.informed, ElementsAre("\"6553.6\" is not a number from 0 to 6553.5!"));
}

TEST(TpsModel, WritesBothEndPointsInOneRequestOrNothing) {
  TpsOnEcu on;
  EXPECT_FALSE(on.tps.WriteEndPoints("", "900"));
  EXPECT_TRUE(on.boxes.informed.empty());
  EXPECT_FALSE(on.tps.WriteEndPoints("100", " "));
  EXPECT_FALSE(on.tps.WriteEndPoints("9oo", "900"));
  EXPECT_THAT(on.boxes.informed, ElementsAre("\" \" is not a whole number from 0 to 65535!",
                                             "\"9oo\" is not a whole number from 0 to 65535!"));
  EXPECT_TRUE(on.tps.WriteEndPoints("100", "900"));
  EXPECT_EQ(on.line.RequestCount(), 1U);
  EXPECT_EQ(on.ecu.Register(307) * 1000 + on.ecu.Register(308), 100900);

  for (std::uint64_t i = 1; i <= 6; ++i) on.line.ArmFault({FaultKind::kException, 4}, i);
  EXPECT_FALSE(on.tps.WriteEndPoints("1", "2"));
  EXPECT_FALSE(on.tps.SetEnabled(kAcceleration, !on.tps.Enabled(kAcceleration)));
  EXPECT_EQ(on.boxes.informed.back(), kParameterNotLoaded);
  EXPECT_EQ(on.line.RequestCount(), 7U) << "three attempts each";
  EXPECT_EQ(on.ecu.Register(308), 900);
}

}  // namespace
}  // namespace zelorgas
