// Every operation: what it puts on the wire and makes of the answer in both framings, and what of
// an answer it refuses. The frames, their LRC and their CRC were worked out with another tool, not
// with the code under test.
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <sstream>
#include <string>
#include <utility>

#include "link/ModbusSerialPort.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;
using Unit = std::vector<std::uint8_t>;

// Function, start address (code), arguments; request and answer, each as an ASCII frame without its
// CR LF and the two CRC bytes of the RTU frame; what comes of it.
constexpr const char* kVectors[] = {
    "1 32 35 :0B0100200023B1 7CB3 :0B0105FF0055AA07EA 2A4B bits "
    "11111111000000001010101001010101111",
    "2 32 7 :0B0200200007CC 38A8 :0B0201559D 626F bits 1010101",
    "3 256 3 :0B0301000003EE 049D :0B0306001401908002C5 8E06 words 20 400 32770",
    "4 32 7 :0B0400200007CA B0A8 :0B040E010200270000E24000010000000096 CE27 words 258 39 0 "
    "57920 1 0 0",
    "5 34 1 :0B050022FF00CF 2C9A :0B050022FF00CF 2C9A",
    "5 34 2 :0B0500220000CE 6D6A :0B0500220000CE 6D6A",
    "6 370 123 :0B060172007B01 68A4 :0B060172007B01 68A4",
    "6 680 65531 :0B0602A8FFFB4B 094B :0B0602A8FFFB4B 094B",
    "16 307 51 1023 :0B100133000204003303FF76 2C59 :0B1001330002AF B091",
    "16 354 600 1200 1800 2400 3000 3600 :0B10016200060C025804B0070809600BB80E1009 0079 "
    ":0B10016200067C E083",
    "24 0 :0B180000DD 8207 :0B1800020000DB 80A2 words",
    "24 7 :0B180007D6 C3C5 :0B18001200080001000200030004FFFEFFFDFFFCFFFBCB 2259 words 1 2 3 4 "
    "65534 65533 65532 65531",
    "43 1 0 :0B2B0E0100BB E876 :0B2B0E0101000003000D5461726E7769636B204C74642E011F506574726F6C3C"
    "3D3E4741532045435520436F6E76657273696F6E206B6974020F535620302E333940485620312E3032BF 424F "
    "last 0: Tarnwick Ltd.|Petrol<=>GAS ECU Conversion kit|SV 0.39@HV 1.02|",
    "43 2 3 :0B2B0E0203B7 A887 :0B2B0E0202000001030A426F6F746C6F616465729F D984 last 0: "
    "Bootloader|",
    "43 1 2 :0B2B0E0102B9 69B7 :0B2B0E0101FF05010200B3 3FF6 more 5: |",
};

struct Vector {
  explicit Vector(const std::string& text) {
    std::istringstream in(text);
    in >> function >> start;
    for (int argument = 0; in >> argument;) {
      arguments.push_back(static_cast<std::uint16_t>(argument));
    }
    in.clear();
    in >> request >> request_crc >> answer >> answer_crc >> std::ws;
    std::getline(in, outcome);
  }

  int function = 0;
  std::uint16_t start = 0;
  std::vector<std::uint16_t> arguments;
  std::string request, request_crc, answer, answer_crc, outcome;
};

// The error's text, and every output that has changed: "words 20 400", "bits 101".
std::string Call(ModbusMaster& m, const Vector& v) {
  constexpr std::uint8_t kEcu = ECU_SLAVE_ADDRESS;
  const std::uint16_t argument = v.arguments.empty() ? std::uint16_t{0} : v.arguments[0];
  const auto byte = static_cast<std::uint8_t>(argument);
  std::vector<std::uint8_t> bits{9};
  std::vector<std::uint16_t> words{999};
  DeviceIdentification id{.more_follows = false, .next_object = 99, .objects = {}};
  const auto code = static_cast<std::uint8_t>(v.start);
  const ModbusResult result =
      v.function == 1    ? m.ReadCoils(kEcu, v.start, argument, bits)
      : v.function == 2  ? m.ReadDiscreteInputs(kEcu, v.start, argument, bits)
      : v.function == 3  ? m.ReadHoldingRegisters(kEcu, v.start, argument, words)
      : v.function == 4  ? m.ReadInputRegisters(kEcu, v.start, argument, words)
      : v.function == 5  ? m.WriteSingleCoil(kEcu, v.start, byte)
      : v.function == 6  ? m.WriteSingleRegister(kEcu, v.start, argument)
      : v.function == 16 ? m.WriteMultipleRegisters(kEcu, v.start, v.arguments)
      : v.function == 24 ? m.ReadFifoQueue(kEcu, v.start, words)
                         : m.ReadDeviceIdentification(kEcu, code, byte, id);
  std::string text = result == ModbusResult::kOk ? "" : m.ErrorText(result).English();
  if (words != std::vector<std::uint16_t>{999}) {
    text += "words";
    for (const std::uint16_t word : words) text += " " + std::to_string(word);
  }
  if (bits != Unit{9}) {
    text += "bits ";
    for (const std::uint8_t bit : bits) text += std::to_string(bit);
  }
  if (id.next_object != 99) {
    text += (id.more_follows ? "more " : "last ") + std::to_string(id.next_object) + ": ";
    for (const std::string& value : id.objects) text += value + "|";
  }
  return text;
}

// ":0B03...LL" and a CRC to the RTU frame's bytes.
Unit RtuBytes(std::string_view ascii, std::string_view crc) {
  const std::string digits = std::string(ascii.substr(1, ascii.size() - 3)) + std::string(crc);
  Unit bytes(digits.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    std::from_chars(&digits[2 * i], &digits[2 * i] + 2, bytes[i], 16);
  }
  return bytes;
}

TEST(ModbusMaster, FramesOfEveryFunction) {
  for (const FramingMode framing : {FramingMode::kAscii, FramingMode::kRtu}) {
    for (const char* const text : kVectors) {
      const Vector v(text);
      VirtualClock clock;
      ScriptedPort line(clock);
      const auto frame = [&](std::string_view ascii, std::string_view crc) {
        return framing == FramingMode::kRtu ? RtuBytes(ascii, crc)
                                            : Bytes(std::string(ascii) + "\r\n");
      };
      line.on_request = [&](std::span<const std::uint8_t> request) {
        LineScript script{{milliseconds{5}, frame(v.answer, v.answer_crc)}};
        const bool echo = framing == FramingMode::kAscii;
        if (echo)
          script.insert(script.begin(), {milliseconds{0}, {request.begin(), request.end()}});
        return script;
      };
      ModbusSerialPort port(line.Opener(), clock);
      port.SetFraming(framing);
      ASSERT_TRUE(port.Open(1, 19200, 2));
      EXPECT_EQ(Call(port, v), v.outcome);
      EXPECT_EQ(line.written.back(), frame(v.request, v.request_crc));
    }
  }
}

// Answers with a ready-made unit.
class UnitMaster final : public ModbusMaster {
 public:
  Unit answer;
  int exchanges = 0;

  ModbusResult Exchange(std::span<const std::uint8_t>, std::span<std::uint8_t> response,
                        std::size_t, std::size_t& received_length) override {
    received_length = std::min(answer.size(), response.size());
    std::copy_n(answer.begin(), received_length, response.begin());
    ++exchanges;
    return ModbusResult::kOk;
  }
  double LastTransactionSeconds() const override { return 0; }
};

TEST(ModbusMaster, AnAnswerThatIsTooShortOrToSomethingElseLeavesTheOutputAlone) {
  const std::string invalid = "invalid returned device response";
  for (const char* const text : kVectors) {
    const Vector v(text);
    UnitMaster master;
    const Unit good = RtuBytes(v.answer, "");
    for (std::size_t length = 0; length < good.size(); ++length) {
      master.answer.assign(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(length));
      EXPECT_EQ(Call(master, v), invalid) << v.answer << " cut to " << length;
    }
    const bool write = v.function == 5 || v.function == 6 || v.function == 16;
    for (std::size_t i = 0; i < (write ? 6U : v.function == 43 ? 4U : 2U); ++i) {
      master.answer = good;
      master.answer[i] ^= 0x01U;
      EXPECT_EQ(Call(master, v), invalid) << v.answer << " byte " << i;
    }
  }
  const std::pair<const char*, Unit> counts_past_the_end[] = {
      {"24 0", {11, 24, 0, 4, 0xFF, 0xFF, 0x12, 0x34}},
      {"43 1 0", {11, 43, 14, 1, 1, 0, 0, 2, 0, 2, 'O', 'k', 1}},
      {"43 1 0", {11, 43, 14, 1, 1, 0, 0, 1, 0, 200, 'O', 'k'}},
  };
  for (const auto& [call, answer] : counts_past_the_end) {
    UnitMaster master;
    master.answer = answer;
    EXPECT_EQ(Call(master, Vector(call)), invalid);
  }
}

TEST(ModbusMaster, ZeroRegistersAreAskedForAndTooManyAreNotSent) {
  UnitMaster master;
  master.answer = {11, 3, 0};
  std::vector<std::uint16_t> words{999};
  EXPECT_EQ(master.ReadHoldingRegisters(11, 256, 0, words), ModbusResult::kOk);
  EXPECT_TRUE(words.empty());
  master.answer = {11, 16, 1, 0, 0, 127};
  const std::vector<std::uint16_t> values(128);
  EXPECT_EQ(master.WriteMultipleRegisters(11, 256, values), ExceptionResult(3));
  EXPECT_EQ(master.exchanges, 1);
  EXPECT_EQ(master.WriteMultipleRegisters(11, 256, std::span(values).first(127)),
            ModbusResult::kOk);
}

}  // namespace
}  // namespace zelorgas
