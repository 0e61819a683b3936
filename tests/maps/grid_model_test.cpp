// What the edits do to the ECU, the image and the model, cell by cell, and what undo makes of it.
#include <gmock/gmock.h>

#include <tuple>

#include "app/CommWorker.h"
#include "app/LinkSession.h"
#include "maps/GridModel.h"
#include "support/ConnectedDocument.h"
#include "support/ScriptedBoxes.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;

using Cells = std::vector<GridCell>;

Cells Rectangle(GridCell first, GridCell last) {
  Cells cells;
  for (GridCell at = first; at.row <= last.row; ++at.row) {
    for (at.column = first.column; at.column <= last.column; ++at.column) cells.push_back(at);
  }
  return cells;
}
const Cells kWholeGrid = Rectangle({0, 0}, {11, 11});

// Rows 4 to 6, columns 4 to 6 hold 100 101 102 / 103 104 105 / 106 107 108.
struct GridOnEcu : ConnectedDocument {
  GridOnEcu() {
    if (document.Link().Open(0, 0, 255)) document.Image().block = ecu.Block();
    for (const GridCell cell : area) Put(cell, static_cast<std::uint16_t>(100 + next++));
  }
  // Puts a word into the ECU, the image and the model.
  void Put(GridCell cell, std::uint16_t word) {
    ecu.SetRegister(cell.Register(), word);
    document.Image().StoreRegister(cell.Register(), word);
    grid.TakeImage(document.Image());
  }
  [[nodiscard]] int Word(GridCell cell) const { return ecu.Register(cell.Register()); }
  [[nodiscard]] std::string Words(const Cells& cells) const {
    std::string words;
    for (const GridCell cell : cells)
      words += (words.empty() ? "" : " ") + std::to_string(Word(cell));
    return words;
  }
  // The first cell of which the ECU, the image and the model do not say the same; empty for none.
  std::string Disagreement() {
    for (const GridCell cell : kWholeGrid) {
      if (document.Image().RegisterCopy(cell.Register()) != Word(cell) ||
          grid.Coefficients()[cell.row][cell.column] != Word(cell) / 100.0) {
        return std::to_string(cell.row) + ',' + std::to_string(cell.column);
      }
    }
    return {};
  }
  // All three attempts of the `ahead`-th write from now end so.
  void FailWrite(std::uint64_t ahead, Fault fault = {FaultKind::kException, 4}) {
    for (std::uint64_t i = 0; i < 3; ++i) line.ArmFault(fault, ahead + i);
  }

  const Cells area = Rectangle({4, 4}, {6, 6});
  int next = 0;
  ScriptedBoxes boxes;
  GridModel grid{document, boxes};
};

const std::string kUntouched = "100 101 102 103 104 105 106 107 108";

TEST(GridModel, EditsACellInPlace) {
  // What is typed, the word (0: nothing is written), and whether it was clamped.
  const std::string tiny = "0." + std::string(330, '0') + "1";
  const std::string huge = "1" + std::string(330, '0') + "e-1";
  const std::string endless = "1e" + std::string(30, '9');
  const std::tuple<const char*, int, bool> cases[] = {{tiny.c_str(), 70, true},
                                                      {huge.c_str(), 310, true},
                                                      {endless.c_str(), 310, true},
                                                      {"1.25", 125, false},
                                                      {"1.237", 123, false},
                                                      {"3.5", 310, true},
                                                      {"0.5", 70, true},
                                                      {" +3.1", 310, false},
                                                      {"1e-999", 70, true},
                                                      {"-1e999", 70, true},
                                                      {"1.2x", 0, false},
                                                      {"nan", 0, false},
                                                      {"--1", 0, false},
                                                      {"1,2", 120, false},
                                                      {"1,2,", 0, false},
                                                      {"", 0, false}};
  for (const auto& [text, word, clamped] : cases) {
    GridOnEcu on;
    const GridCell cell{3, 11};
    on.Put(cell, 100);
    int shown = 0;
    const auto show = [&](GridCell written) { shown = on.Word(written); };
    EXPECT_EQ(on.grid.EditCell(cell, text, {show, {}}).refused, word == 0);
    EXPECT_EQ(shown, word) << text << ": shown when the ECU has it";
    EXPECT_EQ(on.ecu.Register(370 + 16 * 3 + 11), word == 0 ? 100 : word);
    EXPECT_EQ(on.Disagreement(), "");
    EXPECT_EQ(on.boxes.informed, std::vector(clamped ? 1 : 0, std::string(kOutOfRangeInput)));
    EXPECT_EQ(on.grid.CanUndo(), word != 0);
    EXPECT_EQ(on.line.RequestCount(), word == 0 ? 0U : 1U);
  }
}

TEST(GridModel, UndoAndRedoRestoreEveryWordExactly) {
  GridOnEcu on;
  const GridCell cell{0, 0};
  // What the ECU had may lie outside the range.
  for (std::uint16_t word = 65; word <= 320; ++word) {
    on.Put(cell, word);
    on.grid.EditCell(cell, "1.237");
    on.grid.Undo();
    ASSERT_EQ(on.Word(cell), word);
    on.grid.Redo();
    ASSERT_EQ(on.Word(cell), 123);
  }
  on.grid.Undo();
  on.grid.EditCell(cell, "2");
  EXPECT_FALSE(on.grid.CanRedo()) << "a new edit ends the redo";

  // Of eleven steps ten are remembered.
  for (int i = 1; i <= 11; ++i) on.grid.Step(Cells{{4, 4}}, 1);
  for (int i = 1; i <= 10; ++i) EXPECT_EQ(on.grid.Undo().written, 1U);
  EXPECT_TRUE(on.grid.Undo().refused) << "the first edit stays";
  EXPECT_EQ(on.Word({4, 4}), 101);
}

TEST(GridModel, AFailureAtAnyCellLeavesThatCellAndItsUndoAlone) {
  for (std::size_t failing = 0; failing < 9; ++failing) {
    GridOnEcu on;
    const ConfigurationBlock before = on.ecu.Block();
    on.FailWrite(failing + 1);
    const GridResult result = on.grid.ModifyArea(on.area, {AreaMode::kAbsolute, 2.22});
    EXPECT_EQ(result.written, 8U);
    EXPECT_THAT(result.failed, ElementsAre(on.area[failing]));
    EXPECT_EQ(on.Disagreement(), "");

    // Half-way through, a cell cannot be given back; it is the next undo's.
    on.FailWrite(5);
    EXPECT_EQ(on.grid.Undo().written, 7U);
    EXPECT_EQ(on.Word(on.area[failing <= 4 ? 5 : 4]), 222);
    EXPECT_EQ(on.boxes.informed, std::vector(2, std::string(kParameterNotLoaded)));
    EXPECT_EQ(on.grid.Undo().written, 1U);
    EXPECT_EQ(on.ecu.Block(), before);
    EXPECT_FALSE(on.grid.CanUndo());
    EXPECT_EQ(on.grid.Redo().written, 8U) << "still one step";
  }
}

TEST(GridModel, AWriteWhoseAnswersWereLostIsReadBackAndKeepsItsUndo) {
  // How many of the exchanges that look after the write fail too: none, all at first, the next
  // action's too.
  for (const std::uint64_t more : {0U, 3U, 6U}) {
    SCOPED_TRACE(more);
    GridOnEcu on;
    const auto lose = [&] {
      on.FailWrite(1, {FaultKind::kDropAnswer});
      for (std::uint64_t i = 0; i < more; ++i) on.line.ArmFault({FaultKind::kSilent, 1}, 4 + i);
    };
    lose();
    EXPECT_EQ(on.grid.EditCell({4, 4}, "2.5").written, more == 0 ? 1U : 0U);
    EXPECT_EQ(on.Word({4, 4}), 250);
    EXPECT_EQ(on.grid.Unsettled(), more > 0);
    if (more == 6) {
      EXPECT_TRUE(on.grid.Step(Cells{{4, 4}}, 1).refused) << "of what?";
      EXPECT_EQ(on.boxes.informed.size(), 2U);
    }
    EXPECT_EQ(on.grid.Step(Cells{{4, 4}}, 1).written, 1U);
    EXPECT_EQ(on.Word({4, 4}), 251) << "by what the ECU has";
    EXPECT_EQ(on.Disagreement(), "");

    lose();
    EXPECT_EQ(on.grid.Undo().written, more == 0 ? 1U : 0U);
    EXPECT_EQ(on.Word({4, 4}), 250);
    EXPECT_TRUE(on.grid.CanUndo());
    on.grid.Settle();
    EXPECT_EQ(on.grid.Unsettled(), more == 6);
    on.grid.Settle();
    EXPECT_EQ(on.Disagreement(), "");
    EXPECT_EQ(on.grid.Undo().written, 1U);
    EXPECT_EQ(on.Words(on.area), kUntouched);
    EXPECT_FALSE(on.grid.CanUndo());
    on.grid.Redo();
    EXPECT_EQ(on.grid.Redo().written, 1U);
    EXPECT_EQ(on.Word({4, 4}), 251);
  }
}

TEST(GridModel, WritesNothingMoreToAnotherEcu) {
  for (const bool noticed_by_the_polling : {false, true}) {
    GridOnEcu on;
    ASSERT_TRUE(on.document.PrepareWorker());
    CommWorker worker(on.document);
    worker.RunRound();
    const std::size_t before = on.ecu.WriteCount();
    if (noticed_by_the_polling) {
      on.ecu.SetSerial(654321);
      on.document.RequestRefresh();
      worker.RunRound();
      EXPECT_TRUE(on.document.AnotherEcu());
    } else {
      on.FailWrite(4, {FaultKind::kDropRequest});
    }
    const GridResult result =
        on.grid.Step(on.area, 1, {[&](GridCell) { on.ecu.SetSerial(2); }, {}});
    EXPECT_TRUE(result.another_ecu);
    EXPECT_EQ(result.written, noticed_by_the_polling ? 0U : 3U);
    EXPECT_EQ(on.ecu.WriteCount(), before + result.written);
    EXPECT_EQ(on.boxes.informed, std::vector{std::string(kAnotherEcuAnswers)});
    const auto centres = on.grid.WriteCentres(on.grid.Axes());
    EXPECT_EQ(centres.rows_written, !noticed_by_the_polling);
  }
}

TEST(GridModel, ALongActionStopsBetweenCellsAndKeepsWhatWasWritten) {
  GridOnEcu on;
  const std::string before = on.Words(kWholeGrid);
  const auto until = [&](std::size_t last) -> GridWatch {
    return {{}, [&on, last](std::size_t done, std::size_t) {
              EXPECT_TRUE(on.grid.EditCell({0, 0}, "2").refused) << "one action at a time";
              return done < last;
            }};
  };
  EXPECT_TRUE(on.grid.Step(kWholeGrid, 50, until(50)).cancelled);
  const std::string stepped = on.Words(kWholeGrid);
  EXPECT_TRUE(on.grid.Undo(until(20)).cancelled);
  EXPECT_EQ(on.Disagreement(), "");
  EXPECT_EQ(on.grid.Undo().written, 30U);
  EXPECT_EQ(on.Words(kWholeGrid), before);
  on.grid.Redo();
  EXPECT_EQ(on.Words(kWholeGrid), stepped);
  EXPECT_EQ(on.Disagreement(), "");
  EXPECT_FALSE(on.grid.Step(on.area, 1, until(9)).cancelled) << "nothing was left to cancel";
}

TEST(GridModel, WritesTheCentresOfEachAxisInOneRequest) {
  for (const int failing : {0, 1, 2}) {
    GridOnEcu on;
    const GridAxes before = on.grid.Axes();
    GridAxes wanted = DefaultAxes();
    wanted.speeds_rpm = {700, 0, 0, 5000, 100};
    wanted.times_ms[0] = 2.301;
    wanted.times_ms[11] = 65.535;
    if (failing > 0) on.FailWrite(static_cast<std::uint64_t>(failing));
    const auto [columns, rows] = on.grid.WriteCentres(wanted);
    EXPECT_EQ(on.ecu.Register(354) == 700, failing != 1);
    EXPECT_EQ(on.ecu.Register(338) == 2301 && on.ecu.Register(349) == 65535, failing != 2);
    EXPECT_EQ(on.ecu.Block(), on.document.Image().block);
    EXPECT_EQ(on.grid.Axes().speeds_rpm, (columns ? wanted : before).speeds_rpm);
    EXPECT_EQ(on.grid.Axes().times_ms, (rows ? wanted : before).times_ms);
    EXPECT_EQ(on.line.RequestCount(), failing == 0 ? 2U : 4U);
    EXPECT_EQ(on.boxes.informed.size(), failing == 0 ? 0U : 1U);
  }
}

TEST(GridModel, EditsOfAnAreaComputeTheirCellsAndAreUndone) {
  using Act = std::function<GridResult(GridModel&, const Cells&)>;
  const auto area = [](AreaMode mode, double value) -> Act {
    return [=](GridModel& grid, const Cells& a) { return grid.ModifyArea(a, {mode, value}); };
  };
  const Act between = [](GridModel& grid, const Cells& a) {
    grid.EditCell(a[4], "3");
    grid.EditCell(a[8], "2");
    return grid.Interpolate(a);
  };
  const Act smooth = [](GridModel& grid, const Cells& a) {
    grid.EditCell(a[4], "2");
    return grid.Smooth(Cells{a[4]});
  };
  const Act equal = [](GridModel& grid, const Cells& a) { return grid.SetEqual(a, a[7]); };
  const Act down = [](GridModel& grid, const Cells& a) { return grid.Step(a, -1); };
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  const std::tuple<Act, std::string, bool> cases[] = {
      {area(AreaMode::kPercentage, 15), "115 116 117 118 119 120 121 123 124", false},
      {area(AreaMode::kPercentage, -50), "70 70 70 70 70 70 70 70 70", true},
      {area(AreaMode::kPercentage, -30), "70 70 71 72 72 73 74 74 75", false},
      {area(AreaMode::kLinear, 2.05), "305 306 307 308 309 310 310 310 310", true},
      {area(AreaMode::kAbsolute, 1.15), "115 115 115 115 115 115 115 115 115", false},
      {area(AreaMode::kLinear, kNone), "70 70 70 70 70 70 70 70 70", true},
      {between, "100 101 102 103 127 151 106 153 200", false},
      {smooth, "100 101 102 103 128 105 106 107 108", false},
      {equal, "107 107 107 107 107 107 107 107 107", false},
      {down, "99 100 101 102 103 104 105 106 107", false},
  };
  for (const auto& [act, words, clamped] : cases) {
    GridOnEcu on;
    EXPECT_EQ(act(on.grid, on.area).clamped, clamped) << words;
    EXPECT_EQ(on.Words(on.area), words);
    EXPECT_EQ(on.Disagreement(), "") << words;
    EXPECT_EQ(on.boxes.informed.size(), clamped ? 1U : 0U) << words;
    while (on.grid.CanUndo()) on.grid.Undo();
    EXPECT_EQ(on.Words(on.area), kUntouched);
  }
  GridOnEcu on;
  on.grid.Step(Cells{{4, 4}, {12, 0}, {4, 4}, {0, 12}}, 1);
  EXPECT_EQ(on.line.RequestCount(), 1U) << "each cell once, those of the grid";
  for (const std::uint16_t bound : {std::uint16_t{70}, std::uint16_t{310}}) {
    for (const GridCell cell : on.area) on.Put(cell, bound);
    EXPECT_FALSE(on.grid.Smooth(Cells{{5, 5}}).clamped) << "by what the arithmetic lost";
    EXPECT_EQ(on.Word({5, 5}), bound);
  }
}

TEST(GridModel, NudgesTheCellsAroundTheLivePoint) {
  // The live cell, and the block around it.
  const std::array<GridCell, 3> cases[] = {{{{0, 0}, {0, 0}, {1, 1}}},
                                           {{{0, 11}, {0, 10}, {1, 11}}},
                                           {{{11, 11}, {10, 10}, {11, 11}}},
                                           {{{4, 7}, {3, 6}, {5, 8}}}};
  for (const auto& [live, first, last] : cases) {
    GridOnEcu on;
    for (const GridCell cell : kWholeGrid) on.Put(cell, 200);
    const GridAxes& axes = on.grid.Axes();
    on.grid.ShowLivePoint(axes.speeds_rpm[live.column], axes.times_ms[live.row]);
    EXPECT_EQ(on.grid.Nudge(10, NudgeDirection::kIncrease).written, Rectangle(first, last).size());
    for (const GridCell cell : Rectangle(first, last)) {
      EXPECT_EQ(on.Word(cell), cell == live ? 220 : 210);
    }
    on.grid.Undo();
    on.grid.Nudge(5, NudgeDirection::kDecrease);
    EXPECT_EQ(on.Word(live), 190);
  }
}

TEST(GridModel, CopiesAndPastesBlocks) {
  const std::string block = "The pasted block has ";
  const std::string room = "; from the selected cell on there is room for ";
  const std::string lengths = "The rows of the pasted text differ in length: ";
  const std::string field = " of the pasted text: \"";
  const std::tuple<const char*, Cells, std::string, std::string> cases[] = {
      {"1.5\t1.6\r\n1,7\t 1.8 \r\n", {{5, 5}}, "", "100 101 102 103 150 160 106 170 180"},
      {"2\n", {{4, 6}, {4, 4}}, "", "200 101 200 103 104 105 106 107 108"},
      {"0\t9", {{4, 4}}, std::string(kOutOfRangeInput), "70 310 102 103 104 105 106 107 108"},
      {" \n", {{4, 4}}, "There is nothing to paste!", kUntouched},
      {"1", {}, "Select the cell at which the pasted block begins!", kUntouched},
      {"1\t2\n3", {{4, 4}}, lengths + "row 1 has 2 cells, row 2 has 1!", kUntouched},
      {"1\t2\n3\tx", {{4, 4}}, "Row 2, column 2" + field + "x\" is not a number!", kUntouched},
      {"1\t2", {{4, 11}}, block + "1 row and 2 columns" + room + "8 and 1!", kUntouched},
      {"1\n2", {{11, 0}}, block + "2 rows and 1 column" + room + "1 and 12!", kUntouched},
  };
  for (const auto& [text, at, message, words] : cases) {
    GridOnEcu on;
    EXPECT_EQ(on.grid.Paste(at, text).refused, words == kUntouched) << text;
    EXPECT_EQ(on.boxes.informed.empty() ? "" : on.boxes.informed.back(), message);
    EXPECT_EQ(on.line.RequestCount() == 0, words == kUntouched) << text;
    EXPECT_EQ(on.Words(on.area), words) << text;
  }
  GridOnEcu on;
  EXPECT_EQ(on.grid.Copy(Cells{{5, 6}, {4, 5}}), "1.01\t1.02\n1.04\t1.05\n");
}

}  // namespace
}  // namespace zelorgas
