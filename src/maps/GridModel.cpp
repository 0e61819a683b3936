#include "maps/GridModel.h"

#include <algorithm>
#include <array>
#include <utility>

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
  return Do([&] { return CItemStepList{{cell.row, cell.column, *value}}; }, watch);
}

GridResult GridModel::ModifyArea(std::span<const GridCell> cells, AreaChange change,
                                 const GridWatch& watch) {
  last_change_ = change;
  return Do([&] { return ChangeArea(matrix_, ValidCells(cells), change); }, watch);
}

GridResult GridModel::Nudge(double percent, NudgeDirection direction, const GridWatch& watch) {
  const double signed_percent = direction == NudgeDirection::kDecrease ? -percent : percent;
  return Do([&] { return NudgeAround(matrix_, live_.Cell(), signed_percent); }, watch);
}

GridResult GridModel::Interpolate(std::span<const GridCell> cells, const GridWatch& watch) {
  return Do([&] { return InterpolateArea(matrix_, ValidCells(cells)); }, watch);
}

GridResult GridModel::Smooth(std::span<const GridCell> cells, const GridWatch& watch) {
  return Do([&] { return SmoothArea(matrix_, ValidCells(cells)); }, watch);
}

GridResult GridModel::SetEqual(std::span<const GridCell> cells, GridCell source,
                               const GridWatch& watch) {
  if (!source.InGrid()) return {.refused = true};
  return Do([&] { return SetAreaEqual(matrix_, ValidCells(cells), source); }, watch);
}

GridResult GridModel::Step(std::span<const GridCell> cells, int hundredths,
                           const GridWatch& watch) {
  return Do([&] { return StepArea(matrix_, ValidCells(cells), hundredths); }, watch);
}

GridResult GridModel::Paste(std::span<const GridCell> cells, std::string_view text,
                            const GridWatch& watch) {
  Message message;
  const std::optional<CItemStepList> points = PlaceBlock(text, ValidCells(cells), message);
  if (points) return Do([&] { return *points; }, watch);
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
  in_doubt_.clear();
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

GridResult GridModel::Do(const Plan& plan, const GridWatch& watch) {
  if (!Ready()) return {.refused = true};
  const CItemStepList points = plan();
  if (points.empty()) return {.refused = true};
  return WriteCells(points, {nullptr, &undo_, ++actions_}, watch);
}

GridResult GridModel::TakeBack(CUndoStack& from, CUndoStack& to, const GridWatch& watch) {
  // What was in doubt may be what the person wants taken back once more: that is seen first.
  const bool in_doubt = Unsettled();
  if (!Ready() || in_doubt || from.Empty()) return {.refused = true};
  const CUndoStack::Step step = from.Pop();
  return WriteCells(step.points, {&from, &to, step.action}, watch);
}

GridResult GridModel::WriteCells(const CItemStepList& points, const Action& action,
                                 const GridWatch& watch) {
  GridResult result;
  writing_ = true;
  {
    LinkSession session(document_, LinkSession::Wait::kIdle);
    for (std::size_t i = 0; i < points.size(); ++i) {
      const C3Dpoint& point = points[i];
      result.another_ecu = result.another_ecu || document_.AnotherEcu();
      if (result.cancelled || result.another_ecu) {
        Leave(point, action);
        continue;
      }
      // An undo puts back what the ECU had, in range or not.
      const ClampedCoefficient wanted = action.from == nullptr
                                            ? ClampCoefficient(point.value)
                                            : ClampedCoefficient{point.value, false};
      result.clamped = result.clamped || wanted.clamped;
      const std::uint16_t word = TruncatedWord(wanted.value, kCoefficientScale);
      WriteCell(session, {point, word, matrix_[point.row][point.column], action}, watch, result);
      const bool go_on = !watch.keep_going || watch.keep_going(i + 1, points.size());
      result.cancelled = !go_on && i + 1 < points.size();
    }
  }
  writing_ = false;
  for (const Write& write : in_doubt_) result.failed.push_back(write.point.Cell());
  Tell(result);
  return result;
}

void GridModel::WriteCell(LinkSession& session, const Write& write, const GridWatch& watch,
                          GridResult& result) {
  // Behind a write without an answer the cable may lead to another car.
  if (Unsettled() && !ReadBack(session, watch, result)) return TakeFailed(write, result);
  const ModbusResult written = session.WriteRegister(write.point.Cell().Register(), write.word);
  if (written == ModbusResult::kOk) return TakeWritten(write, watch, result);
  if (IsException(written)) return TakeFailed(write, result);
  in_doubt_.push_back(write);
  static_cast<void>(ReadBack(session, watch, result));
}

void GridModel::TakeWritten(const Write& write, const GridWatch& watch, GridResult& result) {
  const C3Dpoint& point = write.point;
  matrix_[point.row][point.column] = write.word / kCoefficientScale;
  if (write.action.from == nullptr) redo_.Clear();
  write.action.to->Push({{point.row, point.column, write.before}}, write.action.number);
  ++result.written;
  if (watch.cell_written) watch.cell_written(point.Cell());
}

void GridModel::TakeFailed(const Write& write, GridResult& result) {
  Leave(write.point, write.action);
  result.failed.push_back(write.point.Cell());
}

void GridModel::Leave(const C3Dpoint& point, const Action& action) {
  if (action.from != nullptr) action.from->Push({point}, action.number);
}

bool GridModel::ReadBack(LinkSession& session, const GridWatch& watch, GridResult& result) {
  bool same = true;
  if (session.CheckEcu(same) != ModbusResult::kOk) return false;
  result.another_ecu = !same;
  while (same && !in_doubt_.empty()) {
    const Write write = in_doubt_.front();
    std::uint16_t held = 0;
    if (session.ReadRegister(write.point.Cell().Register(), held) != ModbusResult::kOk) {
      return false;
    }
    in_doubt_.erase(in_doubt_.begin());
    if (held == write.word) {
      TakeWritten(write, watch, result);
    } else {
      matrix_[write.point.row][write.point.column] = held / kCoefficientScale;
      TakeFailed(write, result);
    }
  }
  return same;
}

GridResult GridModel::AskWhatIsInDoubt() {
  GridResult result;
  if (writing_ || !Unsettled()) return result;
  writing_ = true;
  {
    LinkSession session(document_, LinkSession::Wait::kIdle);
    static_cast<void>(ReadBack(session, {}, result));
  }
  writing_ = false;
  return result;
}

bool GridModel::InDoubt(const CUndoStack& stack) const {
  return std::ranges::any_of(in_doubt_,
                             [&](const Write& write) { return write.action.from == &stack; });
}

bool GridModel::Ready() {
  if (writing_) return false;
  GridResult result = AskWhatIsInDoubt();
  if (!Unsettled()) return true;
  for (const Write& write : in_doubt_) result.failed.push_back(write.point.Cell());
  Tell(result);
  return false;
}

void GridModel::Tell(const GridResult& result) {
  if (result.another_ecu) {
    // The worker finds out as well, and says so to who connects.
    document_.RequestRefresh();
    boxes_.Inform(kAnotherEcuAnswers, MessageIcon::kExclamation);
  } else if (!result.failed.empty()) {
    TellFailure();
  }
  if (result.clamped) boxes_.Inform(kOutOfRangeInput, MessageIcon::kExclamation);
}

void GridModel::TellFailure() {
  // When only the answer was lost the ECU has the new value all the same; the polling reads what it
  // has.
  document_.RequestRefresh();
  boxes_.Inform(kParameterNotLoaded, MessageIcon::kExclamation);
}

}  // namespace zelorgas
