// A line that goes wrong in every way, in both framings: each exchange ends in the right result
// within its time, and the first good answer afterwards is accepted.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "link/AsciiFrame.h"
#include "link/ModbusSerialPort.h"
#include "link/RtuFrame.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

using Frame = std::vector<std::uint8_t>;

constexpr std::uint16_t kCount = 32;  // the longest read in use: an answer of 139 characters
// The end time-out, the failure pause, and for RTU the per-byte part of the read time-out.
constexpr double kLongestMs = 2000 + 520;

class BadLine : public testing::TestWithParam<FramingMode> {
 protected:
  BadLine() {
    for (std::uint16_t i = 0; i < kCount; ++i) {
      words_.push_back(static_cast<std::uint16_t>(0x1111U * (i % 16U) + i));
    }
    unit_ = {ECU_SLAVE_ADDRESS, 3, 2 * kCount};
    for (const std::uint16_t word : words_) {
      unit_.push_back(static_cast<std::uint8_t>(word >> 8U));
      unit_.push_back(static_cast<std::uint8_t>(word & 0xFFU));
    }
    port_.SetFraming(GetParam());
    port_.SetDataBits(8);
    EXPECT_TRUE(port_.Open(1, 19200, 255));
  }

  [[nodiscard]] bool Ascii() const { return GetParam() == FramingMode::kAscii; }

  [[nodiscard]] Frame FrameOf(const Frame& unit) const {
    Frame frame;
    Ascii() ? EncodeAsciiFrame(unit, frame) : EncodeRtuFrame(unit, frame);
    return frame;
  }

  // Reads the registers while the line answers with `script` (after the echo, where there is one).
  ModbusResult Read(LineScript script) {
    line_.Answer(std::move(script), Ascii());
    got_.clear();
    const double started_ms = clock_.ElapsedMs();
    const ModbusResult result = port_.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, 256, kCount, got_);
    EXPECT_LE(clock_.ElapsedMs() - started_ms, kLongestMs);
    return result;
  }
  ModbusResult Read(Frame frame) { return Read(LineScript{At(5, std::move(frame))}); }

  // The exchange after a bad one.
  void ExpectNextIsGood(const std::string& after) {
    EXPECT_EQ(Read(FrameOf(unit_)), ModbusResult::kOk) << "after " << after;
    EXPECT_EQ(got_, words_) << "after " << after;
  }

  VirtualClock clock_;
  ScriptedPort line_{clock_};
  ModbusSerialPort port_{line_.Opener(), clock_};
  std::vector<std::uint16_t> words_;
  std::vector<std::uint16_t> got_;
  Frame unit_;
};

TEST_P(BadLine, NoSingleBitFlipGivesAWrongValue) {
  const Frame good = FrameOf(unit_);
  ASSERT_EQ(good.size(), Ascii() ? 139U : 69U);
  int refused = 0;
  for (std::size_t bit = 0; bit < good.size() * 8; ++bit) {
    Frame bad = good;
    bad[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
    const ModbusResult result = Read(bad);
    if (result == ModbusResult::kOk) {
      // A digit 0 that became no digit at all still counts as 0.
      EXPECT_TRUE(Ascii());
      EXPECT_EQ(got_, words_) << "bit " << bit;
    } else {
      EXPECT_TRUE(got_.empty());
      EXPECT_EQ(result, ModbusResult::kCrcError) << "bit " << bit;
      ++refused;
    }
  }
  EXPECT_GT(refused, Ascii() ? 700 : 551);
  ExpectNextIsGood("bit flips");
}

TEST_P(BadLine, EveryTruncationIsRefusedAndEverySplitAccepted) {
  const Frame good = FrameOf(unit_);
  for (std::size_t at = 0; at < good.size(); ++at) {
    const auto middle = good.begin() + static_cast<std::ptrdiff_t>(at);
    EXPECT_EQ(Read(Frame(good.begin(), middle)),
              at == 0 ? ModbusResult::kTimeOut : ModbusResult::kCrcError)
        << at;
    EXPECT_TRUE(got_.empty());
    // RTU ends a frame at a gap of 2 ms at this speed.
    for (const int gap_ms : {0, 1, Ascii() ? 700 : 1}) {
      EXPECT_EQ(
          Read(LineScript{At(5, {good.begin(), middle}), At(5 + gap_ms, {middle, good.end()})}),
          ModbusResult::kOk)
          << "split at " << at << ", " << gap_ms << " ms apart";
      EXPECT_EQ(got_, words_);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Framing, BadLine, testing::Values(FramingMode::kAscii, FramingMode::kRtu),
                         [](const auto& row) {
                           return row.param == FramingMode::kAscii ? "Ascii" : "Rtu";
                         });

}  // namespace
}  // namespace zelorgas
