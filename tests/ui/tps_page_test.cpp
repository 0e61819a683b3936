#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include "ui/CCellTable.h"
#include "ui/FastClock.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;

struct TpsPage {
  TpsPage() : bench(clock) {
    EXPECT_TRUE(bench.Connect());
    bench.OpenTab("TPS corrections");
  }

  [[nodiscard]] CCellTable& Table(const char* name) const { return bench.Find<CCellTable>(name); }
  [[nodiscard]] std::uint16_t InEcu(std::uint16_t reg) {
    return bench.simulated.Ecu().Register(reg);
  }
  bool Settle() {
    QCoreApplication::processEvents();
    return UiBench::WaitFor([this] { return !bench.control.Busy(); });
  }
  void TypeInCell(CCellTable& table, TableCell cell, const char* text) {
    table.setFocus();
    table.MoveCursor(cell);
    for (const char* key = text; *key != 0; ++key) {
      QTest::keyClick(QApplication::focusWidget(), *key);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(Settle());
  }
  void TypeInField(const char* name, const char* text) {
    auto& field = bench.Find<QLineEdit>(name);
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(Settle());
  }

  FastClock clock;
  UiBench bench;
};

TEST(TpsPage, SwitchesAndFieldsHaveTheirRegisters) {
  TpsPage page;
  page.bench.Click("tps_deceleration_enable");
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(page.InEcu(323), 0);
  EXPECT_EQ(page.InEcu(322), 1);
  page.TypeInField("tps_deceleration_outlet", "8");
  page.TypeInField("retidle_duration", "1.26");
  page.TypeInField("redrpm_diss", "11");
  EXPECT_EQ(page.InEcu(793), 8);
  EXPECT_EQ(page.InEcu(315), 13);
  EXPECT_EQ(page.InEcu(320), 11);
  EXPECT_EQ(page.bench.Find<QLineEdit>("retidle_duration").text(), "1.3");
}

TEST(TpsPage, EndPointsAreWrittenTogetherOrNotAtAll) {
  TpsPage page;
  auto& closed = page.bench.Find<QLineEdit>("tps0_end_point");
  auto& full = page.bench.Find<QLineEdit>("tpsmax_end_point");
  EXPECT_EQ(closed.text(), "51");
  const auto type = [](QLineEdit& field, const char* text) {
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, text);
  };
  const std::size_t writes = page.bench.simulated.Ecu().WriteCount();
  type(closed, "60");
  type(full, "");
  page.bench.Click("write_end_points_button");
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(page.bench.simulated.Ecu().WriteCount(), writes);
  full.setFocus();
  QTest::keyClick(&full, Qt::Key_Escape);
  EXPECT_EQ(full.text(), "980");
  EXPECT_EQ(closed.text(), "60");
  page.bench.simulated.SetEcuUnplugged(true);
  ASSERT_TRUE(page.bench.WaitForState(UiBench::kConnecting));
  EXPECT_EQ(closed.text(), "51") << "what was typed went with the link";
  page.bench.simulated.SetEcuUnplugged(false);
  ASSERT_TRUE(page.bench.WaitForState(UiBench::kConnected));
  type(closed, "60");
  type(full, "1O01");
  page.bench.Click("write_end_points_button");
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(closed.text(), "60") << "a typo in the other one";
  type(full, "1001");
  page.bench.Click("write_end_points_button");
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(page.InEcu(307), 60);
  EXPECT_EQ(page.InEcu(308), 1001);
}

TEST(TpsPage, AFailedEditIsUndoneBeforeTheEyes) {
  TpsPage page;
  page.bench.simulated.SetEcuUnplugged(true);
  page.TypeInCell(page.Table("tps_acceleration_table"), {1, 0}, "25");
  EXPECT_EQ(page.Table("tps_acceleration_table").Text({1, 0}), "10%");
  auto& enabled = page.bench.Find<QCheckBox>("tps_acceleration_enable");
  page.bench.Click("tps_acceleration_enable");
  EXPECT_TRUE(page.Settle());
  EXPECT_TRUE(enabled.isChecked());
  EXPECT_THAT(page.bench.boxes.informed, ElementsAre(kParameterNotLoaded, kParameterNotLoaded));
}

}  // namespace
}  // namespace zelorgas
