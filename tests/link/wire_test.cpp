// What each operation puts on the wire and makes of the answer, in both framings. The frames, their
// LRC and their CRC were worked out with another tool, not with the code under test.
#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <string>

#include "link/ModbusSerialPort.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

// The operations with their outcome as text: "words 20 400", "bits 101", "done", or the error.
std::string Outcome(ModbusMaster& m, ModbusResult result, const std::string& text) {
  return result == ModbusResult::kOk ? text : m.ErrorText(result);
}
std::string Text(const std::vector<std::uint16_t>& words) {
  std::string text = "words";
  for (const std::uint16_t word : words) text += " " + std::to_string(word);
  return text;
}
std::string Text(const std::vector<std::uint8_t>& bits) {
  std::string text = "bits ";
  for (const std::uint8_t bit : bits) text += bit == 0 ? "0" : bit == 1 ? "1" : "?";
  return text;
}
std::string ReadCoils(ModbusMaster& m, std::uint16_t start, std::uint16_t count) {
  std::vector<std::uint8_t> bits;
  const ModbusResult result = m.ReadCoils(ECU_SLAVE_ADDRESS, start, count, bits);
  return Outcome(m, result, Text(bits));
}
std::string ReadInputs(ModbusMaster& m, std::uint16_t start, std::uint16_t count) {
  std::vector<std::uint8_t> bits;
  const ModbusResult result = m.ReadDiscreteInputs(ECU_SLAVE_ADDRESS, start, count, bits);
  return Outcome(m, result, Text(bits));
}
std::string ReadHolding(ModbusMaster& m, std::uint16_t start, std::uint16_t count) {
  std::vector<std::uint16_t> words;
  const ModbusResult result = m.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, start, count, words);
  return Outcome(m, result, Text(words));
}
std::string ReadInput(ModbusMaster& m, std::uint16_t start, std::uint16_t count) {
  std::vector<std::uint16_t> words;
  const ModbusResult result = m.ReadInputRegisters(ECU_SLAVE_ADDRESS, start, count, words);
  return Outcome(m, result, Text(words));
}
std::string WriteCoil(ModbusMaster& m, std::uint16_t address, std::uint8_t on) {
  return Outcome(m, m.WriteSingleCoil(ECU_SLAVE_ADDRESS, address, on), "done");
}
std::string WriteRegister(ModbusMaster& m, std::uint16_t address, std::uint16_t value) {
  return Outcome(m, m.WriteSingleRegister(ECU_SLAVE_ADDRESS, address, value), "done");
}
std::string WriteRegisters(ModbusMaster& m, std::uint16_t start,
                           const std::vector<std::uint16_t>& values) {
  return Outcome(m, m.WriteMultipleRegisters(ECU_SLAVE_ADDRESS, start, values), "done");
}
std::string ReadFifo(ModbusMaster& m, std::uint16_t pointer) {
  std::vector<std::uint16_t> words;
  const ModbusResult result = m.ReadFifoQueue(ECU_SLAVE_ADDRESS, pointer, words);
  return Outcome(m, result, Text(words));
}
std::string ReadDeviceId(ModbusMaster& m, std::uint8_t code, std::uint8_t object) {
  DeviceIdentification id;
  const ModbusResult result = m.ReadDeviceIdentification(ECU_SLAVE_ADDRESS, code, object, id);
  std::string text = id.more_follows ? "more " : "last ";
  text += std::to_string(id.next_object) + ": ";
  for (const std::string& value : id.objects) text += value + "|";
  return Outcome(m, result, text);
}

struct Vector {
  std::string (*call)(ModbusMaster& m);
  std::string_view request;      // ASCII, without CR LF
  std::string_view request_crc;  // the two CRC bytes of the RTU frame
  std::string_view answer;
  std::string_view answer_crc;
  std::string_view outcome;
};

const auto kVectors = std::to_array<Vector>({
    {[](ModbusMaster& m) { return ReadCoils(m, 32, 29); }, ":0B010020001DB7", "FD63",
     ":0B010401000010DF", "51E1", "bits 10000000000000000000000000001"},
    {[](ModbusMaster& m) { return ReadCoils(m, 32, 35); }, ":0B0100200023B1", "7CB3",
     ":0B0105FF0055AA07EA", "2A4B", "bits 11111111000000001010101001010101111"},
    {[](ModbusMaster& m) { return ReadCoils(m, 0, 1); }, ":0B0100000001F3", "FD60", ":0B010101F2",
     "9390", "bits 1"},
    {[](ModbusMaster& m) { return ReadInputs(m, 32, 7); }, ":0B0200200007CC", "38A8", ":0B0201559D",
     "626F", "bits 1010101"},
    {[](ModbusMaster& m) { return ReadInputs(m, 0, 5); }, ":0B0200000005EE", "B8A3", ":0B02011FD3",
     "E398", "bits 11111"},
    {[](ModbusMaster& m) { return ReadInputs(m, 32, 9); }, ":0B0200200009CA", "B96C",
     ":0B0202800170", "81B9", "bits 000000011"},
    {[](ModbusMaster& m) { return ReadHolding(m, 256, 3); }, ":0B0301000003EE", "049D",
     ":0B0306001401908002C5", "8E06", "words 20 400 32770"},
    {[](ModbusMaster& m) { return ReadHolding(m, 16384, 3); }, ":0B0340000003AF", "10A1",
     ":0B03061234ABCD00002E", "5CB8", "words 4660 43981 0"},
    {[](ModbusMaster& m) { return ReadHolding(m, 838, 1); }, ":0B0303460001A8", "6531",
     ":0B0302FFFFF2", "21F5", "words 65535"},
    {[](ModbusMaster& m) { return ReadInput(m, 32, 7); }, ":0B0400200007CA", "B0A8",
     ":0B040E010200270000E24000010000000096", "CE27", "words 258 39 0 57920 1 0 0"},
    {[](ModbusMaster& m) { return ReadInput(m, 43, 1); }, ":0B04002B0001C5", "4168",
     ":0B040200C827", "20A7", "words 200"},
    {[](ModbusMaster& m) { return ReadInput(m, 2, 2); }, ":0B0400020002ED", "D0A1",
     ":0B040400010000EC", "0044", "words 1 0"},
    {[](ModbusMaster& m) { return WriteCoil(m, 34, 1); }, ":0B050022FF00CF", "2C9A",
     ":0B050022FF00CF", "2C9A", "done"},
    {[](ModbusMaster& m) { return WriteCoil(m, 34, 2); }, ":0B0500220000CE", "6D6A",
     ":0B0500220000CE", "6D6A", "done"},
    {[](ModbusMaster& m) { return WriteCoil(m, 66, 1); }, ":0B050042FF00AF", "2C84",
     ":0B050042FF00AF", "2C84", "done"},
    {[](ModbusMaster& m) { return WriteRegister(m, 370, 123); }, ":0B060172007B01", "68A4",
     ":0B060172007B01", "68A4", "done"},
    {[](ModbusMaster& m) { return WriteRegister(m, 680, 0xFFFB); }, ":0B0602A8FFFB4B", "094B",
     ":0B0602A8FFFB4B", "094B", "done"},
    {[](ModbusMaster& m) { return WriteRegister(m, 16435, 0); }, ":0B06403300007C", "6CAF",
     ":0B06403300007C", "6CAF", "done"},
    {[](ModbusMaster& m) {
       return WriteRegisters(m, 307, {51, 1023});
     },
     ":0B100133000204003303FF76", "2C59", ":0B1001330002AF", "B091", "done"},
    {[](ModbusMaster& m) { return WriteRegisters(m, 0, {0x4000}); }, ":0B1000000001024000A2",
     "E930", ":0B1000000001E4", "0163", "done"},
    {[](ModbusMaster& m) {
       return WriteRegisters(m, 354, {600, 1200, 1800, 2400, 3000, 3600});
     },
     ":0B10016200060C025804B0070809600BB80E1009", "0079", ":0B10016200067C", "E083", "done"},
    {[](ModbusMaster& m) { return ReadFifo(m, 0); }, ":0B180000DD", "8207", ":0B1800020000DB",
     "80A2", "words"},
    {[](ModbusMaster& m) { return ReadFifo(m, 3); }, ":0B180003DA", "C206",
     ":0B18000A0004112233445566032047", "54FF", "words 4386 13124 21862 800"},
    {[](ModbusMaster& m) { return ReadFifo(m, 7); }, ":0B180007D6", "C3C5",
     ":0B18001200080001000200030004FFFEFFFDFFFCFFFBCB", "2259",
     "words 1 2 3 4 65534 65533 65532 65531"},
    {[](ModbusMaster& m) { return ReadDeviceId(m, 1, 0); }, ":0B2B0E0100BB", "E876",
     ":0B2B0E0101000003000D5461726E7769636B204C74642E011F506574726F6C3C3D3E4741532045435520436F6E76"
     "657273696F6E206B6974020F535620302E333940485620312E3032BF",
     "424F", "last 0: Tarnwick Ltd.|Petrol<=>GAS ECU Conversion kit|SV 0.39@HV 1.02|"},
    {[](ModbusMaster& m) { return ReadDeviceId(m, 2, 3); }, ":0B2B0E0203B7", "A887",
     ":0B2B0E0202000001030A426F6F746C6F616465729F", "D984", "last 0: Bootloader|"},
    {[](ModbusMaster& m) { return ReadDeviceId(m, 1, 2); }, ":0B2B0E0102B9", "69B7",
     ":0B2B0E0101FF05010200B3", "3FF6", "more 5: |"},
});

// ":0B03...LL" and a CRC to the RTU frame's bytes.
std::vector<std::uint8_t> RtuBytes(std::string_view ascii, std::string_view crc) {
  const std::string digits = std::string(ascii.substr(1, ascii.size() - 3)) + std::string(crc);
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    unsigned value = 0;
    std::from_chars(digits.data() + i, digits.data() + i + 2, value, 16);
    bytes.push_back(static_cast<std::uint8_t>(value));
  }
  return bytes;
}

TEST(Wire, AsciiFramesOfEveryFunction) {
  for (const Vector& vector : kVectors) {
    VirtualClock clock;
    ScriptedPort line(clock);
    line.on_request = [&](std::span<const std::uint8_t> request) {
      return LineScript{{milliseconds{0}, {request.begin(), request.end()}},
                        {milliseconds{5}, Bytes(std::string(vector.answer) + "\r\n")}};
    };
    ModbusSerialPort port(line.Opener(), clock);
    port.SetFraming(FramingMode::kAscii);
    ASSERT_TRUE(port.Open(1, 19200, 2));
    EXPECT_EQ(vector.call(port), vector.outcome);
    EXPECT_EQ(line.written.back(), Bytes(std::string(vector.request) + "\r\n"));
  }
}

TEST(Wire, RtuFramesOfEveryFunction) {
  for (const Vector& vector : kVectors) {
    VirtualClock clock;
    ScriptedPort line(clock);
    line.on_request = [&](std::span<const std::uint8_t>) {
      return LineScript{{milliseconds{5}, RtuBytes(vector.answer, vector.answer_crc)}};
    };
    ModbusSerialPort port(line.Opener(), clock);
    ASSERT_TRUE(port.Open(1, 19200, 2));
    EXPECT_EQ(vector.call(port), vector.outcome);
    EXPECT_EQ(line.written.back(), RtuBytes(vector.request, vector.request_crc));
  }
}

}  // namespace
}  // namespace zelorgas
