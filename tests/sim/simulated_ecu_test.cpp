#include <gtest/gtest.h>

#include <utility>

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

TEST_F(SimulatedEcuTest, WhatItRefusesChangesNothing) {
  SimulatedEcu ecu(clock_);
  const std::pair<Unit, std::uint8_t> cases[] = {
      {{11, 7, 0, 0, 0, 0}, 1},                   // a function it does not know
      {{11, 43, 13, 1, 0}, 1},                    // another MEI type
      {{11, 43, 14, 4, 9}, 2},                    // an unknown object by itself
      {{11, 3, 0, 255, 0, 1}, 2},                 // a register before the block
      {{11, 3, 3, 70, 0, 2}, 2},                  // a stretch that leaves the block
      {{11, 16, 3, 70, 0, 2, 4, 0, 1, 0, 2}, 2},  // the same, written
      {{11, 4, 0, 39, 0, 1}, 2},                  // an unknown input register
      {{11, 2, 0, 32, 0, 8}, 2},                  // an unknown input bit
      {{11, 6, 0x40, 0, 0, 1}, 2},                // the board information, written
      {{11, 24, 0, 8}, 2},                        // a FIFO pointer of 8
      {{11, 3, 1, 0, 0, 0}, 3},                   // no registers
      {{11, 3, 1, 0, 0, 126}, 3},                 // too many
      {{11, 5, 0, 34, 0, 1}, 3},                  // neither on nor off
      {{11, 16, 1, 0, 0, 2, 2, 0, 1}, 3},         // a byte count that does not fit
      {{11, 16, 1, 0, 0, 2, 4, 0, 1}, 3},         // fewer values than announced
      {{11, 3, 1}, 3},                            // cut short
  };
  const ConfigurationBlock before = ecu.Block();
  for (const auto& [request, exception] : cases) {
    const Unit expected{11, static_cast<std::uint8_t>(request[1] | 0x80U), exception};
    EXPECT_EQ(ecu.Answer(request), expected) << testing::PrintToString(request);
  }
  EXPECT_EQ(ecu.Block(), before);
  EXPECT_EQ(ecu.WriteCount(), 0U);
  EXPECT_FALSE(ecu.Answer(Unit{12, 3, 1, 0, 0, 1})) << "another slave";
  EXPECT_FALSE(ecu.Answer(Unit{0, 6, 1, 0, 0, 1})) << "there is no broadcast";
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

}  // namespace
}  // namespace zelorgas
