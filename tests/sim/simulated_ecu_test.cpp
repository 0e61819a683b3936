#include <gtest/gtest.h>

#include <array>
#include <set>

#include "sim/SimulatedEcu.h"
#include "support/VirtualClock.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;
using Unit = std::vector<std::uint8_t>;

std::uint16_t WordAt(const Unit& unit, std::size_t position) {
  return static_cast<std::uint16_t>(unit.at(position) << 8U | unit.at(position + 1));
}

class SimulatedEcuTest : public testing::Test {
 protected:
  // A request of address, function and two words; the answer must come.
  Unit Ask(SimulatedEcu& ecu, std::uint8_t function, unsigned first, unsigned second) {
    const Unit request{11,
                       function,
                       static_cast<std::uint8_t>(first >> 8U),
                       static_cast<std::uint8_t>(first),
                       static_cast<std::uint8_t>(second >> 8U),
                       static_cast<std::uint8_t>(second)};
    return ecu.Answer(request).value_or(Unit{});
  }
  std::uint16_t Input(SimulatedEcu& ecu, unsigned number) {
    return WordAt(Ask(ecu, 4, number, 1), 3);
  }
  // The registers that the FIFO gives at `pointer`.
  Unit Fifo(SimulatedEcu& ecu, std::uint8_t pointer) {
    return ecu.Answer(Unit{11, 24, 0, pointer}).value();
  }

  VirtualClock clock_;
};

TEST_F(SimulatedEcuTest, WhatItRefuses) {
  SimulatedEcu ecu(clock_);
  struct Case {
    const char* what;
    Unit request;
    std::uint8_t exception;
  };
  const std::array cases{
      Case{"a function it does not know", {11, 7, 0, 0, 0, 0}, 1},
      Case{"another MEI type", {11, 43, 13, 1, 0}, 1},
      Case{"a register before the block", {11, 3, 0, 255, 0, 1}, 2},
      Case{"a stretch that leaves the block", {11, 3, 3, 70, 0, 2}, 2},
      Case{"an unknown input register", {11, 4, 0, 39, 0, 1}, 2},
      Case{"a coil past the last of 0.39", {11, 1, 0, 32, 0, 36}, 2},
      Case{"an unknown input bit", {11, 2, 0, 32, 0, 8}, 2},
      Case{"a write to the board information", {11, 6, 0x40, 0, 0, 1}, 2},
      Case{"a FIFO pointer of 8", {11, 24, 0, 8}, 2},
      Case{"no registers", {11, 3, 1, 0, 0, 0}, 3},
      Case{"126 registers", {11, 3, 1, 0, 0, 126}, 3},
      Case{"a coil value in between", {11, 5, 0, 34, 0, 1}, 3},
      Case{"a byte count that does not fit", {11, 16, 1, 0, 0, 2, 2, 0, 1}, 3},
      Case{"fewer values than announced", {11, 16, 1, 0, 0, 2, 4, 0, 1}, 3},
      Case{"a request cut short", {11, 3, 1}, 3},
  };
  const ConfigurationBlock before = ecu.Block();
  for (const Case& c : cases) {
    const Unit expected{11, static_cast<std::uint8_t>(c.request[1] | 0x80U), c.exception};
    EXPECT_EQ(ecu.Answer(c.request), expected) << c.what;
  }
  EXPECT_EQ(ecu.Block(), before);
  EXPECT_EQ(ecu.WriteCount(), 0U);
  EXPECT_FALSE(ecu.Answer(Unit{12, 3, 1, 0, 0, 1})) << "another slave";
  EXPECT_FALSE(ecu.Answer(Unit{0, 6, 1, 0, 0, 1})) << "there is no broadcast";
}

TEST_F(SimulatedEcuTest, AWriteThatLeavesTheBlockChangesNothing) {
  SimulatedEcu ecu(clock_);
  ecu.SetRegister(838, 7);
  const Unit request{11, 16, 3, 70, 0, 2, 4, 0, 1, 0, 2};  // 838 and 839
  EXPECT_EQ(ecu.Answer(request), (Unit{11, 0x90, 2}));
  EXPECT_EQ(ecu.Register(838), 7);
}

TEST_F(SimulatedEcuTest, TheCoilsDependOnTheVersion) {
  const std::array<std::pair<std::uint8_t, unsigned>, 4> versions{
      {{36, 29}, {37, 29}, {38, 30}, {39, 35}}};
  for (const auto& [minor, count] : versions) {
    SimulatedEcu ecu(clock_, {.software_minor = minor});
    EXPECT_EQ(Ask(ecu, 1, 32, count)[1], 1) << int{minor};
    EXPECT_EQ(Ask(ecu, 1, 32, count + 1)[1], 0x81) << int{minor};
    // Both banks are cleared by one coil, which is another one from 0.39 on.
    const unsigned clear = minor == 39 ? 66 : 61;
    EXPECT_NE(ecu.ErrorCount(false, 1), 0);
    Ask(ecu, 5, clear == 66 ? 61 : 66, 0xFF00);
    EXPECT_NE(ecu.ErrorCount(false, 1), 0) << int{minor};
    Ask(ecu, 5, clear, 0);
    Ask(ecu, 5, clear, 0xFF00);
    EXPECT_EQ(ecu.ErrorCount(false, 1), 0) << int{minor};
    EXPECT_EQ(ecu.ErrorCount(true, 3), 0) << int{minor};
  }
}

TEST_F(SimulatedEcuTest, AReaderThatFollowsTheFifoSeesEveryRecordOnce) {
  SimulatedEcu ecu(clock_);
  EXPECT_EQ(WordAt(Fifo(ecu, 0), 4), 0) << "nothing yet";
  std::uint8_t pointer = 0;
  std::vector<std::uint16_t> speeds;
  // Between two reads 0 to 7 records come.
  for (const int records : {1, 3, 0, 7, 2, 6, 5, 7, 7, 1}) {
    clock_.Sleep(milliseconds{100 * records});
    const Unit answer = Fifo(ecu, pointer);
    ASSERT_EQ(WordAt(answer, 4), 4 * records);
    ASSERT_EQ(answer.size(), 6U + 8U * static_cast<unsigned>(records));
    pointer = static_cast<std::uint8_t>((pointer + records) % 8);
    for (int i = 0; i < records; ++i) {
      speeds.push_back(WordAt(answer, static_cast<std::size_t>(6 + 8 * i + 6)));
    }
  }
  // The same drive, read one record at a time.
  VirtualClock other_clock;
  SimulatedEcu other(other_clock);
  for (std::size_t i = 0; i < speeds.size(); ++i) {
    other_clock.Sleep(milliseconds{100});
    const Unit answer = other.Answer(Unit{11, 24, 0, static_cast<std::uint8_t>(i % 8)}).value();
    ASSERT_EQ(WordAt(answer, 4), 4);
    EXPECT_EQ(WordAt(answer, 12), speeds[i]) << i;
  }
}

TEST_F(SimulatedEcuTest, TheDriveMovesEveryGaugeAndWandersThroughTheMap) {
  SimulatedEcu ecu(clock_);
  std::set<std::pair<int, int>> cells;
  std::array<std::set<int>, 8> record_bytes;
  std::array<std::set<int>, 6> inputs;
  constexpr std::array<unsigned, 6> kInputs{43, 71, 72, 73, 74, 75};
  std::uint8_t pointer = 0;
  for (int i = 0; i < 3000; ++i) {  // five minutes
    clock_.Sleep(milliseconds{100});
    const Unit answer = Fifo(ecu, pointer);
    pointer = static_cast<std::uint8_t>((pointer + 1) % 8);
    for (std::size_t byte = 0; byte < 8; ++byte) record_bytes[byte].insert(answer.at(6 + byte));
    for (std::size_t k = 0; k < kInputs.size(); ++k) inputs[k].insert(Input(ecu, kInputs[k]));
    cells.emplace(Input(ecu, 71) / 2000, WordAt(answer, 12) / 600);
  }
  EXPECT_GT(cells.size(), 50U);
  for (std::size_t byte = 0; byte < 8; ++byte) {
    EXPECT_GT(record_bytes[byte].size(), 3U) << "byte " << byte;
  }
  for (std::size_t k = 0; k < kInputs.size(); ++k) {
    EXPECT_GT(inputs[k].size(), 1U) << "input register " << kInputs[k];
  }
  EXPECT_GT(inputs[0].size(), 10U);
}

TEST_F(SimulatedEcuTest, WhatTheLiveRegistersSayOfAGivenEngine) {
  SimulatedEcu ecu(clock_);
  EngineState engine;
  engine.speed_rpm = 3010;
  engine.petrol_time_us = 5000;  // the cell of 4 ms and 3000 1/min: 1.50
  engine.throttle_percent = -3;
  engine.manifold_bar = 0.7;
  engine.coolant_celsius = -12;
  engine.gas_celsius = 31;
  engine.battery_volts = 13.9;
  engine.lambda1_volts = 0.45;
  engine.lambda2_volts = 0.66;
  engine.gas_pressure_bar = 1.27;
  engine.gas_level_percent = 60;
  engine.on_gas = true;
  engine.mode = 2;
  ecu.PinEngine(engine);
  clock_.Sleep(milliseconds{100});
  EXPECT_EQ(Fifo(ecu, 0), (Unit{11, 24, 0, 10, 0, 4, 33, 45, 139, 244, 7, 31, 0x0B, 0xC2}));
  EXPECT_EQ(Ask(ecu, 4, 71, 6),
            (Unit{11, 4, 12, 0x13, 0x88, 0x1D, 0x4C, 0, 0xFD, 0, 2, 0, 1, 0, 60}));
  EXPECT_EQ(Input(ecu, 43), 127);
  EXPECT_EQ(Input(ecu, 47), 5000);
  EXPECT_EQ(Input(ecu, 50), 5150) << "the fourth cylinder differs a little";
  EXPECT_EQ(Input(ecu, 51), 0) << "the car has no fifth";
  EXPECT_EQ(Input(ecu, 53), 7500);
  EXPECT_EQ(Ask(ecu, 2, 32, 7)[3], 0x0F);
  engine.on_gas = false;
  ecu.PinEngine(engine);
  EXPECT_EQ(Input(ecu, 72), 0);
  EXPECT_EQ(Ask(ecu, 1, 36, 1)[3], 0);
}

TEST_F(SimulatedEcuTest, ASeedIsADriveAndValuesAreThoseOfTheRequestsTime) {
  SimulatedEcu ecu(clock_, {.seed = 5});
  SimulatedEcu twin(clock_, {.seed = 5});
  SimulatedEcu other(clock_, {.seed = 6});
  const Clock::TimePoint later = clock_.Now() + std::chrono::seconds{40};
  const Unit request{11, 4, 0, 71, 0, 16};
  const Unit ahead = ecu.AnswerAt(request, later).value();
  EXPECT_NE(ahead, ecu.Answer(request));
  clock_.SleepUntil(later);
  EXPECT_EQ(ahead, ecu.Answer(request));
  EXPECT_EQ(ahead, twin.Answer(request));
  EXPECT_NE(ahead, other.Answer(request));
}

TEST_F(SimulatedEcuTest, TheBootloaderHasAMapOfItsOwn) {
  SimulatedEcu ecu(clock_, {.software_minor = 38, .in_bootloader = true});
  const auto refused = [](const Unit& answer) { return answer.at(1) > 0x80 && answer.at(2) == 2; };
  EXPECT_TRUE(refused(Ask(ecu, 3, 256, 1)));
  EXPECT_TRUE(refused(Ask(ecu, 3, 131, 2)));
  EXPECT_TRUE(refused(Ask(ecu, 4, 32, 1)));
  EXPECT_TRUE(refused(Ask(ecu, 2, 4, 2)));
  EXPECT_TRUE(refused(Ask(ecu, 5, 13, 0xFF00)));
  EXPECT_TRUE(refused(ecu.Answer(Unit{11, 24, 0, 0}).value()));
  EXPECT_EQ(Ask(ecu, 3, 0, 100)[1], 3);
  EXPECT_EQ(Ask(ecu, 5, 2, 0xFF00)[1], 5);
  const auto id = TakeDeviceIdentification(ecu.Answer(Unit{11, 43, 14, 2, 2}).value());
  ASSERT_TRUE(id);
  EXPECT_EQ(id->objects, (std::vector<std::string>{"P42V0T38M1B7", "Bootloader"}));
  ecu.Restart();
  EXPECT_EQ(Ask(ecu, 3, 256, 1)[1], 3) << "its application is whole and starts";
}

TEST_F(SimulatedEcuTest, TheGasTimeFollowsTheMap) {
  SimulatedEcu ecu(clock_);
  clock_.Sleep(std::chrono::seconds{60});
  ASSERT_EQ(Input(ecu, 75), 1) << "warm: on gas";
  const int before = Input(ecu, 72);
  for (std::uint16_t cell = 370; cell < 626; ++cell) {
    ecu.SetRegister(cell, static_cast<std::uint16_t>(2 * ecu.Register(cell)));
  }
  EXPECT_NEAR(Input(ecu, 72), 2 * before, 2);
}

TEST_F(SimulatedEcuTest, ARestartIsFlaggedUntilSomebodyClearsIt) {
  SimulatedEcu ecu(clock_);
  EXPECT_TRUE(ecu.Coil(43)) << "since power-on";
  Ask(ecu, 5, 43, 0);
  EXPECT_FALSE(ecu.Coil(43));
  ecu.SetRegister(300, 77);
  ecu.Restart();
  EXPECT_TRUE(ecu.Coil(43));
  EXPECT_EQ(ecu.Register(300), 77);
}

TEST_F(SimulatedEcuTest, IdentificationByCodeAndObject) {
  SimulatedEcu ecu(clock_, {.software_minor = 7, .hardware_major = 3, .hardware_minor = 4});
  struct Case {
    std::uint8_t code;
    std::uint8_t object;
    std::string objects;
  };
  const std::array cases{
      Case{1, 0, "Tarnwick Ltd.|Petrol<=>GAS ECU Conversion kit|SV 0.7@HV 3.4|"},
      Case{1, 2, "SV 0.7@HV 3.4|"},
      Case{2, 3, "Sequential injection|"},
      Case{4, 1, "Petrol<=>GAS ECU Conversion kit|"},
      Case{1, 9, "Tarnwick Ltd.|Petrol<=>GAS ECU Conversion kit|SV 0.7@HV 3.4|"},
  };
  for (const Case& c : cases) {
    const auto id =
        TakeDeviceIdentification(ecu.Answer(Unit{11, 43, 14, c.code, c.object}).value_or(Unit{}));
    ASSERT_TRUE(id);
    std::string objects;
    for (const std::string& object : id->objects) objects += object + "|";
    EXPECT_EQ(objects, c.objects) << int{c.code} << " from " << int{c.object};
  }
  EXPECT_EQ(ecu.Answer(Unit{11, 43, 14, 4, 9}), (Unit{11, 0xAB, 2}));
}

}  // namespace
}  // namespace zelorgas
