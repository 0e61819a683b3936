// The RTU framing against libmodbus: the same requests, byte for byte, as its client sends, and the
// same values out of the answers of its server.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <modbus.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "link/ModbusSerialPort.h"

namespace zelorgas {
namespace {

using Words = std::vector<std::uint16_t>;
using Bits = std::vector<std::uint8_t>;

constexpr int kBits = 300;
constexpr int kRegisters = 1000;

struct ContextDeleter {
  void operator()(modbus_t* context) const { modbus_free(context); }
};
struct MappingDeleter {
  void operator()(modbus_mapping_t* mapping) const { modbus_mapping_free(mapping); }
};

// libmodbus's server at the controlling end of a pty.
class RtuServer {
 public:
  RtuServer()
      : master_(posix_openpt(O_RDWR | O_NOCTTY)),
        context_(modbus_new_rtu("/dev/null", 19200, 'N', 8, 1)),
        mapping_(modbus_mapping_new(kBits, kBits, kRegisters, kRegisters)) {
    EXPECT_EQ(grantpt(master_), 0);
    EXPECT_EQ(unlockpt(master_), 0);
    path_ = ptsname(master_);
    // Raw from the start, and held open, so that the server's end never sees a hang-up.
    held_ = open(path_.c_str(), O_RDWR | O_NOCTTY);
    termios settings{};
    tcgetattr(held_, &settings);
    cfmakeraw(&settings);
    tcsetattr(held_, TCSANOW, &settings);
    modbus_set_slave(context_.get(), ECU_SLAVE_ADDRESS);
    modbus_set_socket(context_.get(), master_);
    for (int i = 0; i < kBits; ++i) {
      mapping_->tab_bits[i] = static_cast<std::uint8_t>(i % 3 == 0);
      mapping_->tab_input_bits[i] = static_cast<std::uint8_t>(i % 5 == 1);
    }
    for (int i = 0; i < kRegisters; ++i) {
      mapping_->tab_registers[i] = static_cast<std::uint16_t>(i * 40503);
      mapping_->tab_input_registers[i] = static_cast<std::uint16_t>(i * 257 + 5);
    }
  }
  RtuServer(const RtuServer&) = delete;
  RtuServer& operator=(const RtuServer&) = delete;
  ~RtuServer() {
    close(held_);
    close(master_);
  }

  [[nodiscard]] const std::string& Path() const { return path_; }

  // Answers one request of `client`, which runs on a thread of its own; gives the request's bytes.
  Bits Serve(const std::function<void()>& client) {
    std::jthread other(client);
    Bits query(MODBUS_RTU_MAX_ADU_LENGTH);
    const int length = modbus_receive(context_.get(), query.data());
    query.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    if (length > 0) modbus_reply(context_.get(), query.data(), length, mapping_.get());
    return query;
  }

 private:
  int master_;
  int held_ = -1;
  std::string path_;
  std::unique_ptr<modbus_t, ContextDeleter> context_;
  std::unique_ptr<modbus_mapping_t, MappingDeleter> mapping_;
};

class RtuPeer : public testing::Test {
 protected:
  using Ours = std::function<ModbusResult(ModbusMaster&)>;
  using Theirs = std::function<int(modbus_t*)>;

  // Both clients ask for the same.
  void Compare(const Ours& ours, const Theirs& theirs, int expected) {
    ModbusSerialPort port(SystemSerialPorts(*clock_), *clock_);
    port.SetDataBits(8);
    port.SetPortName(server_.Path());
    ASSERT_TRUE(port.Open(0, 19200, 0));
    ModbusResult result = ModbusResult::kTimeOut;
    const Bits our_query = server_.Serve([&] { result = ours(port); });
    EXPECT_EQ(result, ModbusResult::kOk);
    port.Close();

    const std::unique_ptr<modbus_t, ContextDeleter> peer(
        modbus_new_rtu(server_.Path().c_str(), 19200, 'N', 8, 1));
    modbus_set_slave(peer.get(), ECU_SLAVE_ADDRESS);
    ASSERT_EQ(modbus_connect(peer.get()), 0);
    int count = 0;
    const Bits their_query = server_.Serve([&] { count = theirs(peer.get()); });
    EXPECT_EQ(count, expected);
    modbus_close(peer.get());
    EXPECT_EQ(our_query, their_query);
    EXPECT_FALSE(our_query.empty());
  }

  std::unique_ptr<Clock> clock_ = MakeSteadyClock();
  RtuServer server_;
};

template <typename Value>
using OurRead = ModbusResult (ModbusMaster::*)(std::uint8_t, std::uint16_t, std::uint16_t,
                                               std::vector<Value>&);
template <typename Value>
using TheirRead = int (*)(modbus_t*, int, int, Value*);

TEST_F(RtuPeer, AllReads) {
  const auto compare = [this]<typename Value>(OurRead<Value> ours, TheirRead<Value> theirs,
                                              int start, int count) {
    SCOPED_TRACE(std::to_string(start) + " " + std::to_string(count));
    std::vector<Value> our_values;
    std::vector<Value> their_values(static_cast<std::size_t>(count));
    Compare(
        [&](ModbusMaster& master) {
          return (master.*ours)(ECU_SLAVE_ADDRESS, static_cast<std::uint16_t>(start),
                                static_cast<std::uint16_t>(count), our_values);
        },
        [&](modbus_t* peer) { return theirs(peer, start, count, their_values.data()); }, count);
    EXPECT_EQ(our_values, their_values);
  };
  for (const auto& [start, count] : {std::pair(0, 1), {7, 8}, {32, 35}, {1, 250}}) {
    compare(&ModbusMaster::ReadCoils, &modbus_read_bits, start, count);
    compare(&ModbusMaster::ReadDiscreteInputs, &modbus_read_input_bits, start, count);
  }
  for (const auto& [start, count] : {std::pair(0, 1), {256, 32}, {875, 125}}) {
    compare(&ModbusMaster::ReadHoldingRegisters, &modbus_read_registers, start, count);
    compare(&ModbusMaster::ReadInputRegisters, &modbus_read_input_registers, start, count);
  }
}

TEST_F(RtuPeer, AllWrites) {
  for (const std::uint8_t on : Bits{1, 0}) {
    Compare([&](ModbusMaster& master) { return master.WriteSingleCoil(ECU_SLAVE_ADDRESS, 34, on); },
            [&](modbus_t* peer) { return modbus_write_bit(peer, 34, on); }, 1);
  }
  for (const std::uint16_t value : Words{0, 125, 65535}) {
    Compare(
        [&](ModbusMaster& master) {
          return master.WriteSingleRegister(ECU_SLAVE_ADDRESS, 374, value);
        },
        [&](modbus_t* peer) { return modbus_write_register(peer, 374, value); }, 1);
  }
  for (const int count : {1, 2, 32, 123}) {
    Words words(static_cast<std::size_t>(count), 0xA55A);
    words.back() = 1;
    Compare(
        [&](ModbusMaster& master) {
          return master.WriteMultipleRegisters(ECU_SLAVE_ADDRESS, 256, words);
        },
        [&](modbus_t* peer) { return modbus_write_registers(peer, 256, count, words.data()); },
        count);
  }
}

TEST_F(RtuPeer, AnException) {
  ModbusSerialPort port(SystemSerialPorts(*clock_), *clock_);
  port.SetDataBits(8);
  port.SetPortName(server_.Path());
  ASSERT_TRUE(port.Open(0, 19200, 0));
  ModbusResult result = ModbusResult::kOk;
  Words words;
  server_.Serve(
      [&] { result = port.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, kRegisters, 1, words); });
  constexpr std::uint8_t kIllegalDataAddress = 2;
  EXPECT_EQ(result, ExceptionResult(kIllegalDataAddress));
  EXPECT_TRUE(words.empty());
}

}  // namespace
}  // namespace zelorgas
