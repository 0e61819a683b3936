// The bootloader's commands, exchange by exchange.
#include <gtest/gtest.h>

#include "firmware/UpdateBench.h"
#include "firmware/mbFlasher.h"

namespace zelorgas {
namespace {

constexpr std::uint32_t kStart = Bootloader::kApplicationStart;

// A flasher whose every exchange is tried once, with flash mode on and block 2 blank.
struct Flashing : UpdateBench {
  explicit Flashing(const std::vector<std::uint64_t>& lost_answers = {})
      : UpdateBench({.in_bootloader = true}) {
    EXPECT_TRUE(document.Link().Open(0, 0, 255));
    EXPECT_EQ(flasher.SetFlashMode(true), ModbusResult::kOk);
    EXPECT_EQ(flasher.Erase(2), 0U);
    for (const std::uint64_t ahead : lost_answers) {
      line.ArmFault({FaultKind::kDropAnswer}, ahead);
    }
    // Of each frame the function, the place, and the count or value.
    line.SetReportSink([this](const SimulatedLine::RequestReport& report) {
      const std::string frame(report.request.begin(), report.request.end());
      log += (log.empty() ? "" : " ") + frame.substr(3, 10);
    });
    pauses.clear();
  }
  // `size` bytes: a page half "a", half "b", and "c" behind it.
  std::uint32_t Write(std::size_t size, std::uint32_t address = kStart) {
    std::vector<std::uint8_t> bytes(size, 'c');
    for (std::size_t i = 0; i < std::min<std::size_t>(size, 256); ++i) bytes[i] = "ab"[i / 128];
    return flasher.Write(bytes, address);
  }

  std::string log;
  std::string pauses;
  mbFlasher flasher{&document.Link(), [this](std::chrono::milliseconds time) {
                      pauses += std::to_string(time.count()) + " behind " + log + "; ";
                    }};
};

struct CommandCase {
  std::uint32_t (*run)(mbFlasher&);
  std::uint32_t value;
  std::string exchanges;
  std::uint64_t result_exchange;
};
const CommandCase kCommandCases[] = {
    {[](auto& f) { return f.SupplyCheck(); }, 0, "0500040000 050004FF00 0400020002", 3},
    {[](auto& f) { return f.PreEraseValue(); }, 66, "0500050000 050005FF00 0400080002", 3},
    {[](auto& f) { return f.SecondPreEraseValue(); }, 1, "0500060000 050006FF00 0400040002", 3},
    {[](auto& f) { return f.BlockEnd(3); }, 0x17FFF, "0600830003 0500070000 050007FF00 0400060002",
     4},
    {[](auto& f) { return f.BlankCheck(3); }, 1, "0600830003 0500080000 050008FF00 0400020002", 4},
    {[](auto& f) { return f.Erase(1); }, 1, "0600830001 0500090000 050009FF00 0400020002", 4},
    {[](auto& f) { return f.BlockValue(3); }, 0xC000, "0600830003 05000B0000 05000BFF00 0400080002",
     4},
    {[](auto& f) { return f.Command14(); }, 0, "05000E0000 05000EFF00 0400020002", 3},
    {[](auto& f) { return f.StatusMask(); }, 0b00011,
     "050010FF00 05000C0000 05000CFF00 0200000005 0500100000", 4},
};

TEST(MbFlasher, EveryCommandHasItsExchangesAndItsValue) {
  for (const CommandCase& command : kCommandCases) {
    Flashing bench;
    EXPECT_EQ(command.run(bench.flasher), command.value) << command.exchanges;
    EXPECT_EQ(bench.log, command.exchanges);
    const bool settles = command.exchanges.find("0009") < 99 || command.exchanges.find("0010") < 9;
    EXPECT_EQ(bench.pauses.starts_with("50 behind 0"), settles) << bench.pauses;
    Flashing unlucky({command.result_exchange});
    EXPECT_EQ(command.run(unlucky.flasher), 255U) << command.exchanges;
    mbFlasher alone(nullptr, [](auto) { FAIL(); });
    EXPECT_EQ(command.run(alone), static_cast<std::uint32_t>(-1)) << command.exchanges;
  }
}

struct WriteCase {
  std::size_t size;
  int refused;                              // so many writes
  std::vector<std::uint64_t> lost_answers;  // to these exchanges
  std::uint32_t result;
  std::uint64_t exchanges;
  bool spoilt;
  std::string flash;  // the first bytes of the page's halves
};
const WriteCase kWriteCases[] = {
    {256, 0, {}, 0, 7, false, "ab"},
    {100, 0, {}, 0, 7, false, "a\xFF"},
    {256, 1, {}, 0, 12, true, "b\xFF"},  // the second half goes out as the first
    {256, 2, {}, 1, 12, true, "\xFF\xFF"},
    {256, 3, {}, 1, 12, true, "\xFF\xFF"},
    {256, 0, {7}, 0, 12, true, "ab"},  // and half a page behind it
    {256, 0, {7, 12}, 255, 12, true, "ab"},
    {100, 0, {7}, 255, 7, false, "a\xFF"},
    {512, 3, {}, 1, 17, true, "\xFF\xFF"},
    {512, 0, {7, 12, 17}, 255, 17, true, "ab"},
    // Nothing is done with what has not arrived.
    {256, 0, {1}, 255, 1, false, "\xFF\xFF"},
    {256, 0, {2}, 255, 2, false, "\xFF\xFF"},
    {256, 0, {3}, 255, 3, false, "\xFF\xFF"},
    {256, 0, {4}, 255, 4, false, "\xFF\xFF"},
};

TEST(MbFlasher, WritesAndGoesOnFromTheSecondHalfWhenThatFails) {
  for (const WriteCase& c : kWriteCases) {
    Flashing bench(c.lost_answers);
    bench.ecu.WithBootloader([&](Bootloader& boot) { boot.FailWrites(c.refused); });
    const std::uint64_t before = bench.line.RequestCount();
    const auto index = &c - kWriteCases;
    EXPECT_EQ(bench.Write(c.size), c.result) << index;
    EXPECT_EQ(bench.line.RequestCount() - before, c.exchanges) << index;
    EXPECT_EQ(bench.flasher.PageSpoilt(), c.spoilt) << index;
    EXPECT_EQ(bench.flasher.LinkFailure() == ModbusResult::kOk, c.lost_answers.empty());
    const std::vector<std::uint8_t> flash = bench.ecu.Flash();
    EXPECT_EQ(std::string({char(flash[0]), char(flash[128])}), c.flash) << index;
  }
  Flashing bench({14});
  EXPECT_EQ(bench.flasher.Write(std::vector<std::uint8_t>(256, 0xFF), kStart), 0U);
  EXPECT_EQ(bench.Write(256), 0U);
  EXPECT_EQ(bench.Write(44, mbFlasher::kKeepAddress), 0U);
  EXPECT_EQ(bench.log,
            "1000000002 0600820040 1000020040 1000420040 05000A0000 05000AFF00 0400020002 "
            "0600820040 1000020040 1000420040 05000A0000 05000AFF00 0400020002");
  EXPECT_EQ(bench.flasher.Erase(1), 255U) << "of whatever block was meant last";
  EXPECT_EQ(bench.log.substr(bench.log.size() - 10), "0600830001");
}

}  // namespace
}  // namespace zelorgas
