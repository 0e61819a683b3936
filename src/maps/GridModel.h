// The correction grid as the program holds it and as a person changes it: coefficients, cell
// centres, the live cell, undo and redo. Every change goes to the ECU at once, cell by cell, and
// only what the ECU has taken is taken here and into the image. A cell whose write got no answer is
// read back: the ECU may have done it. After a failure everything is read from the ECU once more.
// Used by the user-interface thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/ClpgecuDoc.h"
#include "app/LinkSession.h"
#include "app/MessageBoxes.h"
#include "maps/CUndoStack.h"
#include "maps/GridAxes.h"
#include "maps/GridEdits.h"
#include "maps/GridResult.h"
#include "maps/LiveMarker.h"
#include "platform/Message.h"

namespace zelorgas {

inline constexpr FixedText kOutOfRangeInput =
    FixedText::Of("A value, out of the permitted range, is input!");

enum class NudgeDirection : std::uint8_t { kIncrease, kDecrease };

class GridModel {
 public:
  // `document` and `boxes` outlive the model.
  GridModel(ClpgecuDoc& document, MessageBoxes& boxes) : document_(document), boxes_(boxes) {}

  // What the ECU holds, from the image's words. The counts in use say how many of the centres are
  // taken; the others stay.
  void SetRowCentres(std::span<const std::uint16_t> words, std::uint16_t rows);
  void SetColumnCentres(std::span<const std::uint16_t> words, std::uint16_t columns);
  // Rows of 16 words.
  void SetCoefficients(std::span<const std::uint16_t> words);
  // All three of a new image.
  void TakeImage(const EcuImage& image);

  [[nodiscard]] const GridAxes& Axes() const { return axes_; }
  [[nodiscard]] const GridMatrix& Coefficients() const { return matrix_; }
  [[nodiscard]] std::string CellText(GridCell cell) const;
  [[nodiscard]] std::string RowHeader(std::size_t row) const {
    return TimeText(axes_.times_ms[row]);
  }
  [[nodiscard]] std::string ColumnHeader(std::size_t column) const {
    return SpeedText(axes_.speeds_rpm[column]);
  }

  // Moves the marker to where the engine runs, now by the document's clock.
  void ShowLivePoint(double speed_rpm, double petrol_time_ms);
  void ShowLivePoint(const EcuImage& image);
  [[nodiscard]] LiveMarker& Live() { return live_; }
  // The trail as it is now.
  [[nodiscard]] std::vector<TrailPoint> Trail() const;

  // The edits. All are one step of Undo, with those of their cells that the ECU has taken. A value
  // out of range is written as the nearer bound; that, and cells that failed, is told at the end.
  // A text that is no number changes nothing, without a word.
  GridResult EditCell(GridCell cell, std::string_view text, const GridWatch& watch = {});
  GridResult ModifyArea(std::span<const GridCell> cells, AreaChange change,
                        const GridWatch& watch = {});
  // What the dialog opens with: the change that was made last.
  [[nodiscard]] AreaChange LastAreaChange() const { return last_change_; }
  GridResult Nudge(double percent, NudgeDirection direction, const GridWatch& watch = {});
  GridResult Interpolate(std::span<const GridCell> cells, const GridWatch& watch = {});
  GridResult Smooth(std::span<const GridCell> cells, const GridWatch& watch = {});
  // `source` is as a rule the cell with the cursor.
  GridResult SetEqual(std::span<const GridCell> cells, GridCell source,
                      const GridWatch& watch = {});
  GridResult Step(std::span<const GridCell> cells, int hundredths, const GridWatch& watch = {});
  // A block that cannot be pasted is refused with a message that says why.
  GridResult Paste(std::span<const GridCell> cells, std::string_view text,
                   const GridWatch& watch = {});
  [[nodiscard]] std::string Copy(std::span<const GridCell> cells) const;

  // Give the cells of the newest step back what they had. What could not be given back, or was left
  // when the person cancelled, stays the newest step.
  GridResult Undo(const GridWatch& watch = {});
  GridResult Redo(const GridWatch& watch = {});
  [[nodiscard]] bool CanUndo() const { return !undo_.Empty() || InDoubt(undo_); }
  [[nodiscard]] bool CanRedo() const { return !redo_.Empty() || InDoubt(redo_); }

  // True while nobody knows whether the ECU has done a write, as it did not answer any more. Settle
  // asks it once it answers again; until then an edit is refused as a failure, and the first undo
  // or redo afterwards does nothing else.
  [[nodiscard]] bool Unsettled() const { return !in_doubt_.empty(); }
  void Settle() { static_cast<void>(AskWhatIsInDoubt()); }
  // Everything as at the start: the cells, centres and steps were another ECU's.
  void ForgetEcu();
  // Nothing can be taken back any more: the ECU has another configuration.
  void ForgetSteps();

  // Writes the columns' centres, then the rows', each in one request. An axis whose request failed
  // keeps its centres; that is told at the end.
  struct CentresResult {
    bool columns_written = false;
    bool rows_written = false;
  };
  CentresResult WriteCentres(const GridAxes& centres);

 private:
  struct Action {
    // Where its points come from, and stay while they are not written; null: the person.
    CUndoStack* from = nullptr;
    CUndoStack* to = nullptr;  // where what the cells had before goes
    std::uint64_t number = 0;
  };
  struct Write {
    C3Dpoint point{};
    std::uint16_t word = 0;
    double before = 0;
    Action action{};
  };
  // Runs when no write is in doubt any more, so that the points follow from what the ECU has.
  using Plan = std::function<CItemStepList()>;

  GridResult Do(const Plan& plan, const GridWatch& watch);
  GridResult TakeBack(CUndoStack& from, CUndoStack& to, const GridWatch& watch);
  GridResult WriteCells(const CItemStepList& points, const Action& action, const GridWatch& watch);
  void WriteCell(LinkSession& session, const Write& write, const GridWatch& watch,
                 GridResult& result);
  void TakeWritten(const Write& write, const GridWatch& watch, GridResult& result);
  static void TakeFailed(const Write& write, GridResult& result);
  static void Leave(const C3Dpoint& point, const Action& action);
  // Reads the cells in doubt. False when the ECU does not answer, or is another one.
  bool ReadBack(LinkSession& session, const GridWatch& watch, GridResult& result);
  // The same in a turn on the link of its own.
  GridResult AskWhatIsInDoubt();
  [[nodiscard]] bool InDoubt(const CUndoStack& stack) const;
  // False, the person being told when it is for a write in doubt, while nothing may be written.
  bool Ready();
  void Tell(const GridResult& result);
  void TellFailure();

  ClpgecuDoc& document_;
  MessageBoxes& boxes_;

  GridAxes axes_ = DefaultAxes();
  GridMatrix matrix_ = DefaultCoefficients();
  AreaChange last_change_;
  CUndoStack undo_;
  CUndoStack redo_;
  std::uint64_t actions_ = 0;
  std::vector<Write> in_doubt_;  // of one action, the last one
  bool writing_ = false;
  LiveMarker live_;
};

}  // namespace zelorgas
