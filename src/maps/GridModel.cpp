#include "maps/GridModel.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/LinkSession.h"
#include "maps/DecimalNumber.h"
#include "maps/GridClipboard.h"

namespace zelorgas {
namespace {

using namespace block_layout;

constexpr double kCoefficientScale = 100;
constexpr double kMicrosecondsPerMs = 1000;

template <typename Convert>
void TakeCentres(std::span<const std::uint16_t> words, std::size_t used, AxisCentres& centres,
                 Convert convert) {
  const std::size_t count = std::min({used, words.size(), centres.size()});
  for (std::size_t i = 0; i < count; ++i) centres[i] = convert(words[i]);
}

double SpeedOf(std::uint16_t word) { return word; }
double TimeOf(std::uint16_t word) { return word / kMicrosecondsPerMs; }

using AxisWords = std::array<std::uint16_t, kGridSize>;

AxisWords WordsOf(const AxisCentres& centres, double scale) {
  AxisWords words{};
  for (std::size_t i = 0; i < kGridSize; ++i) words[i] = TruncatedWord(centres[i], scale);
  return words;
}

}  // namespace

void GridModel::SetRowCentres(std::span<const std::uint16_t> words, std::uint16_t rows) {
  TakeCentres(words, rows, axes_.times_ms, TimeOf);
}

void GridModel::SetColumnCentres(std::span<const std::uint16_t> words, std::uint16_t columns) {
  TakeCentres(words, columns, axes_.speeds_rpm, SpeedOf);
}

void GridModel::SetCoefficients(std::span<const std::uint16_t> words) {
  for (std::size_t row = 0; row < kGridSize; ++row) {
    for (std::size_t column = 0; column < kGridSize; ++column) {
      const std::size_t word = row * kGridAxisPoints + column;
      if (word < words.size()) matrix_[row][column] = words[word] / kCoefficientScale;
    }
  }
}

void GridModel::TakeImage(const EcuImage& image) {
  const std::span block(image.block);
  SetRowCentres(block.subspan(kGridTimes, kGridAxisPoints), block[kRowCount]);
  SetColumnCentres(block.subspan(kGridSpeeds, kGridAxisPoints), block[kColumnCount]);
  SetCoefficients(block.subspan(kGridCells, kGridAxisPoints * kGridAxisPoints));
}

std::string GridModel::CellText(GridCell cell) const {
  return cell.InGrid() ? CoefficientText(matrix_[cell.row][cell.column]) : std::string();
}

void GridModel::ShowLivePoint(double speed_rpm, double petrol_time_ms) {
  live_.MoveTo(Locate(axes_, speed_rpm, petrol_time_ms), document_.DocumentClock().Now());
}

void GridModel::ShowLivePoint(const EcuImage& image) {
  ShowLivePoint(SpeedOf(image.record.EngineSpeed()), TimeOf(image.PetrolTimeMicroseconds()));
}

std::vector<TrailPoint> GridModel::Trail() const {
  return live_.Trail(document_.DocumentClock().Now());
}

GridResult GridModel::EditCell(GridCell cell, std::string_view text, const GridWatch& watch) {
  const std::optional<double> value = ParseDecimal(text);
  if (!value || !cell.InGrid()) return {.refused = true};
  return Do({{cell.row, cell.column, *value}}, watch);
}

GridResult GridModel::ModifyArea(std::span<const GridCell> cells, AreaChange change,
                                 const GridWatch& watch) {
  last_change_ = change;
  return Do(ChangeArea(matrix_, ValidCells(cells), change), watch);
}

GridResult GridModel::Nudge(double percent, NudgeDirection direction, const GridWatch& watch) {
  const double signed_percent = direction == NudgeDirection::kDecrease ? -percent : percent;
  return Do(NudgeAround(matrix_, live_.Cell(), signed_percent), watch);
}

GridResult GridModel::Interpolate(std::span<const GridCell> cells, const GridWatch& watch) {
  return Do(InterpolateArea(matrix_, ValidCells(cells)), watch);
}

GridResult GridModel::Smooth(std::span<const GridCell> cells, const GridWatch& watch) {
  return Do(SmoothArea(matrix_, ValidCells(cells)), watch);
}

GridResult GridModel::SetEqual(std::span<const GridCell> cells, GridCell source,
                               const GridWatch& watch) {
  if (!source.InGrid()) return {.refused = true};
  return Do(SetAreaEqual(matrix_, ValidCells(cells), source), watch);
}

GridResult GridModel::Step(std::span<const GridCell> cells, int hundredths,
                           const GridWatch& watch) {
  return Do(StepArea(matrix_, ValidCells(cells), hundredths), watch);
}

GridResult GridModel::Paste(std::span<const GridCell> cells, std::string_view text,
                            const GridWatch& watch) {
  Message message;
  const std::optional<CItemStepList> points = PlaceBlock(text, ValidCells(cells), message);
  if (points) return Do(*points, watch);
  boxes_.Inform(message, MessageIcon::kExclamation);
  return {.refused = true};
}

std::string GridModel::Copy(std::span<const GridCell> cells) const {
  return CopyBlock(matrix_, ValidCells(cells));
}

GridResult GridModel::Undo(const GridWatch& watch) { return TakeBack(undo_, redo_, watch); }
GridResult GridModel::Redo(const GridWatch& watch) { return TakeBack(redo_, undo_, watch); }

void GridModel::ForgetEcu() {
  axes_ = DefaultAxes();
  matrix_ = DefaultCoefficients();
  live_.Forget();
  ForgetSteps();
}

void GridModel::ForgetSteps() {
  undo_.Clear();
  redo_.Clear();
}

GridModel::CentresResult GridModel::WriteCentres(const GridAxes& centres) {
  if (writing_) return {};
  CentresResult result;
  {
    LinkSession session(document_, LinkSession::Wait::kIdle);
    const AxisWords speeds = WordsOf(centres.speeds_rpm, 1);
    if (session.WriteRegisters(RegisterOfWord(kGridSpeeds), speeds) == ModbusResult::kOk) {
      result.columns_written = true;
      SetColumnCentres(speeds, kGridSize);
    }
    const AxisWords times = WordsOf(centres.times_ms, kMicrosecondsPerMs);
    if (session.WriteRegisters(RegisterOfWord(kGridTimes), times) == ModbusResult::kOk) {
      result.rows_written = true;
      SetRowCentres(times, kGridSize);
    }
  }
  if (!result.columns_written || !result.rows_written) TellFailure();
  return result;
}

GridResult GridModel::Do(const CItemStepList& points, const GridWatch& watch) {
  if (writing_ || points.empty()) return {.refused = true};
  Written written = WriteCells(points, Origin::kPerson, watch);
  if (!written.before.empty()) redo_.Clear();
  undo_.Push(std::move(written.before), ++actions_);
  Tell(written.result);
  return std::move(written.result);
}

GridResult GridModel::TakeBack(CUndoStack& from, CUndoStack& to, const GridWatch& watch) {
  if (writing_ || from.Empty()) return {.refused = true};
  const CUndoStack::Step step = from.Pop();
  Written written = WriteCells(step.points, Origin::kEcu, watch);
  from.Push(std::move(written.left), step.action);
  to.Push(std::move(written.before), step.action);
  Tell(written.result);
  return std::move(written.result);
}

GridModel::Written GridModel::WriteCells(const CItemStepList& points, Origin origin,
                                         const GridWatch& watch) {
  Written written;
  GridResult& result = written.result;
  writing_ = true;
  {
    LinkSession session(document_, LinkSession::Wait::kIdle);
    for (std::size_t i = 0; i < points.size(); ++i) {
      const C3Dpoint& point = points[i];
      if (result.cancelled) {
        written.left.push_back(point);
        continue;
      }
      // An undo puts back what the ECU had, in range or not.
      const ClampedCoefficient wanted = origin == Origin::kPerson
                                            ? ClampCoefficient(point.value)
                                            : ClampedCoefficient{point.value, false};
      result.clamped = result.clamped || wanted.clamped;
      const std::uint16_t word = TruncatedWord(wanted.value, kCoefficientScale);
      if (session.WriteRegister(point.Cell().Register(), word) == ModbusResult::kOk) {
        double& coefficient = matrix_[point.row][point.column];
        written.before.push_back({point.row, point.column, coefficient});
        coefficient = word / kCoefficientScale;
        ++result.written;
        if (watch.cell_written) watch.cell_written(point.Cell());
      } else {
        written.left.push_back(point);
        result.failed.push_back(point.Cell());
      }
      const bool go_on = !watch.keep_going || watch.keep_going(i + 1, points.size());
      result.cancelled = !go_on && i + 1 < points.size();
    }
  }
  writing_ = false;
  return written;
}

void GridModel::Tell(const GridResult& result) {
  if (!result.failed.empty()) TellFailure();
  if (result.clamped) boxes_.Inform(kOutOfRangeInput, MessageIcon::kExclamation);
}

void GridModel::TellFailure() {
  // When only the answer was lost the ECU has the new value all the same; the polling reads what it
  // has.
  document_.RequestRefresh();
  boxes_.Inform(kParameterNotLoaded, MessageIcon::kExclamation);
}

}  // namespace zelorgas
