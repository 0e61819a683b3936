// The operations over a transport that answers with ready-made units: echo check, lengths, retries,
// texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>

#include "link/ModbusMaster.h"

namespace zelorgas {
namespace {

using Unit = std::vector<std::uint8_t>;

class UnitMaster final : public ModbusMaster {
 public:
  std::function<ModbusResult(const Unit& request, Unit& answer)> on_exchange;
  int exchanges = 0;
  std::size_t expected = 0;

  ModbusResult Exchange(std::span<const std::uint8_t> request, std::span<std::uint8_t> response,
                        std::size_t expected_length, std::size_t& received_length) override {
    ++exchanges;
    expected = expected_length;
    Unit answer;
    const ModbusResult result = on_exchange({request.begin(), request.end()}, answer);
    received_length = std::min(answer.size(), response.size());
    std::copy_n(answer.begin(), received_length, response.begin());
    return result;
  }
  double LastTransactionSeconds() const override { return 0; }

  void AnswerWith(Unit unit) {
    on_exchange = [unit](const Unit&, Unit& answer) {
      answer = unit;
      return ModbusResult::kOk;
    };
  }
};

// One operation of each function, with the answer that satisfies it.
struct Operation {
  const char* name;
  Unit answer;
  std::size_t echoed;  // leading bytes that must repeat the request's
  std::size_t needed;  // shortest answer that holds what was asked
  std::function<ModbusResult(ModbusMaster&)> call;
};

std::vector<std::uint8_t> bits{9};
std::vector<std::uint16_t> words{999};
DeviceIdentification identification;

const std::vector<Operation> kOperations{
    {"ReadCoils",
     {11, 1, 2, 0x01, 0x02},
     2,
     5,
     [](ModbusMaster& m) { return m.ReadCoils(11, 32, 10, bits); }},
    {"ReadDiscreteInputs",
     {11, 2, 1, 0x55},
     2,
     4,
     [](ModbusMaster& m) { return m.ReadDiscreteInputs(11, 32, 7, bits); }},
    {"ReadHoldingRegisters",
     {11, 3, 4, 0, 1, 0x80, 2},
     2,
     7,
     [](ModbusMaster& m) { return m.ReadHoldingRegisters(11, 256, 2, words); }},
    {"ReadInputRegisters",
     {11, 4, 2, 0, 1},
     2,
     5,
     [](ModbusMaster& m) { return m.ReadInputRegisters(11, 43, 1, words); }},
    {"WriteSingleCoil",
     {11, 5, 0, 34, 0xFF, 0},
     6,
     6,
     [](ModbusMaster& m) { return m.WriteSingleCoil(11, 34, 1); }},
    {"WriteSingleRegister",
     {11, 6, 1, 114, 0, 123},
     6,
     6,
     [](ModbusMaster& m) { return m.WriteSingleRegister(11, 370, 123); }},
    {"WriteMultipleRegisters",
     {11, 16, 1, 51, 0, 2},
     6,
     6,
     [](ModbusMaster& m) {
       return m.WriteMultipleRegisters(11, 307, std::array<std::uint16_t, 2>{51, 1023});
     }},
    {"ReadFifoQueue",
     {11, 24, 0, 4, 0, 1, 0x12, 0x34},
     2,
     8,
     [](ModbusMaster& m) { return m.ReadFifoQueue(11, 3, words); }},
    {"ReadDeviceIdentification",
     {11, 43, 14, 2, 2, 0, 0, 1, 3, 2, 'O', 'k'},
     4,
     12,
     [](ModbusMaster& m) { return m.ReadDeviceIdentification(11, 2, 3, identification); }},
};

TEST(ModbusMaster, AnyEchoedByteThatDiffersIsAnInvalidResponse) {
  for (const Operation& operation : kOperations) {
    UnitMaster master;
    master.AnswerWith(operation.answer);
    EXPECT_EQ(operation.call(master), ModbusResult::kOk) << operation.name;
    for (std::size_t i = 0; i < operation.echoed; ++i) {
      Unit wrong = operation.answer;
      wrong[i] ^= 0x01U;
      master.AnswerWith(wrong);
      EXPECT_EQ(operation.call(master), ModbusResult::kInvalidResponse)
          << operation.name << " byte " << i;
    }
  }
}

TEST(ModbusMaster, AnAnswerTooShortIsInvalidAndLeavesTheOutputAlone) {
  for (const Operation& operation : kOperations) {
    UnitMaster master;
    for (std::size_t length = 0; length < operation.needed; ++length) {
      bits = {9};
      words = {999};
      identification = {};
      master.AnswerWith(Unit(operation.answer.begin(),
                             operation.answer.begin() + static_cast<std::ptrdiff_t>(length)));
      EXPECT_EQ(operation.call(master), ModbusResult::kInvalidResponse)
          << operation.name << " with " << length << " bytes";
      EXPECT_EQ(bits, std::vector<std::uint8_t>{9});
      EXPECT_EQ(words, std::vector<std::uint16_t>{999});
      EXPECT_TRUE(identification.objects.empty());
    }
  }
}

TEST(ModbusMaster, TheByteCountOfAReadIsNotLookedAt) {
  UnitMaster master;
  master.AnswerWith({11, 3, 77, 0x12, 0x34});
  EXPECT_EQ(master.ReadHoldingRegisters(11, 256, 1, words), ModbusResult::kOk);
  EXPECT_EQ(words, std::vector<std::uint16_t>{0x1234});
}

TEST(ModbusMaster, CountsThatPointPastTheAnswer) {
  UnitMaster master;
  master.AnswerWith({11, 24, 0, 4, 0xFF, 0xFF, 0x12, 0x34});
  EXPECT_EQ(master.ReadFifoQueue(11, 0, words), ModbusResult::kInvalidResponse);
  master.AnswerWith({11, 43, 14, 1, 1, 0, 0, 2, 0, 2, 'O', 'k', 1});
  EXPECT_EQ(master.ReadDeviceIdentification(11, 1, 0, identification),
            ModbusResult::kInvalidResponse);
  master.AnswerWith({11, 43, 14, 1, 1, 0, 0, 1, 0, 200, 'O', 'k'});
  EXPECT_EQ(master.ReadDeviceIdentification(11, 1, 0, identification),
            ModbusResult::kInvalidResponse);
}

TEST(ModbusMaster, ZeroRegistersAreAskedForAndTooManyAreNotSent) {
  UnitMaster master;
  master.AnswerWith({11, 3, 0});
  EXPECT_EQ(master.ReadHoldingRegisters(11, 256, 0, words), ModbusResult::kOk);
  EXPECT_TRUE(words.empty());
  EXPECT_EQ(master.expected, 3U);

  const std::vector<std::uint16_t> values(128);
  EXPECT_EQ(master.WriteMultipleRegisters(11, 256, values), ExceptionResult(3));
  EXPECT_EQ(master.exchanges, 1);
}

TEST(ModbusMaster, TriesAsOftenAsItIsTold) {
  UnitMaster master;
  int good_from = 3;
  master.on_exchange = [&](const Unit&, Unit& answer) {
    answer = {11, 6, 1, 114, 0, 123};
    return master.exchanges < good_from ? ModbusResult::kTimeOut : ModbusResult::kOk;
  };
  EXPECT_EQ(master.WriteSingleRegister(11, 370, 123), ModbusResult::kTimeOut);
  EXPECT_EQ(master.exchanges, 1);

  master.SetAttemptCount(3);
  EXPECT_EQ(master.WriteSingleRegister(11, 370, 123), ModbusResult::kOk);
  EXPECT_EQ(master.exchanges, 3) << "two more";

  good_from = 100;
  EXPECT_EQ(master.WriteSingleRegister(11, 370, 123), ModbusResult::kTimeOut);
  EXPECT_EQ(master.exchanges, 6);

  master.SetAttemptCount(0);
  EXPECT_EQ(master.WriteSingleRegister(11, 370, 123), ModbusResult::kTimeOut);
  EXPECT_EQ(master.exchanges, 7) << "one attempt is always made";
}

TEST(ModbusMaster, ErrorTexts) {
  const UnitMaster master;
  struct Case {
    std::uint16_t value;
    const char* text;
  };
  const auto cases = std::to_array<Case>({
      {0, "Ok"},
      {1, "Time Out Error"},
      {2, "invalid returned device response"},
      {3, "crc error"},
      {8, "Write communication error"},
      {9, "Read communication error"},
      {10, "Comm port not opened"},
      {11, "Critical section lock time-out error"},
      {0x8002, "Modbus device return an exception code2"},
      {0x80FF, "Modbus device return an exception code255"},
      {4, "Modbus device return an exception code-32764"},
  });
  for (const Case& c : cases) {
    EXPECT_EQ(master.ErrorText(static_cast<ModbusResult>(c.value)), c.text) << c.value;
  }
}

}  // namespace
}  // namespace zelorgas
