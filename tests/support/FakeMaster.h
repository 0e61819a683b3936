// A master without a line: Exchange answers at once from register maps, so that tests of what
// stands above the link say what the ECU holds and which request fails, and see every request.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "link/ModbusMaster.h"

namespace zelorgas {

class FakeMaster final : public ModbusMaster {
 public:
  struct Request {
    std::uint8_t function;
    std::uint16_t start;  // for device identification: code and object
    std::uint16_t count;

    friend bool operator==(const Request&, const Request&) = default;
  };

  std::map<std::uint16_t, std::uint16_t> holding;
  std::map<std::uint16_t, std::uint16_t> input;
  // The objects that a device identification code gives from the requested object on.
  std::map<std::uint8_t, std::vector<std::string>> objects;
  std::vector<Request> requests;

  // Request number `index`, the first being 0, ends with `result`.
  void FailRequest(std::size_t index, ModbusResult result) {
    failing_ = index;
    failure_ = result;
  }

  ModbusResult Exchange(std::span<const std::uint8_t> request, std::span<std::uint8_t> response,
                        std::size_t, std::size_t& received_length) override {
    const std::size_t index = requests.size();
    requests.push_back({request[1], Word(request, 2), Word(request, 4)});
    if (failing_ == index) return failure_;
    const std::vector<std::uint8_t> answer = Answer(request);
    received_length = std::min(answer.size(), response.size());
    std::copy_n(answer.begin(), received_length, response.begin());
    return ModbusResult::kOk;
  }
  double LastTransactionSeconds() const override { return 0; }

 private:
  static std::uint16_t Word(std::span<const std::uint8_t> bytes, std::size_t at) {
    if (at + 1 >= bytes.size()) return 0;
    return static_cast<std::uint16_t>(bytes[at] << 8 | bytes[at + 1]);
  }

  std::vector<std::uint8_t> Answer(std::span<const std::uint8_t> request) {
    const Request asked = requests.back();
    switch (static_cast<ModbusFunction>(asked.function)) {
      case ModbusFunction::kWriteMultipleRegisters:
        for (std::uint16_t i = 0; i < asked.count; ++i) {
          holding[static_cast<std::uint16_t>(asked.start + i)] = Word(request, 7 + 2U * i);
        }
        return {request.begin(), request.begin() + 6};
      case ModbusFunction::kEncapsulatedInterface:
        requests.back() = {asked.function, static_cast<std::uint16_t>(request[3] << 8 | request[4]),
                           0};
        return Identification(request);
      default:
        return Registers(request, asked.function == 4 ? input : holding);
    }
  }

  std::vector<std::uint8_t> Registers(std::span<const std::uint8_t> request,
                                      std::map<std::uint16_t, std::uint16_t>& registers) const {
    const Request asked = requests.back();
    std::vector<std::uint8_t> answer{request[0], request[1],
                                     static_cast<std::uint8_t>(2 * asked.count)};
    for (std::uint16_t i = 0; i < asked.count; ++i) {
      const std::uint16_t word = registers[static_cast<std::uint16_t>(asked.start + i)];
      answer.push_back(static_cast<std::uint8_t>(word >> 8));
      answer.push_back(static_cast<std::uint8_t>(word & 0xFF));
    }
    return answer;
  }

  std::vector<std::uint8_t> Identification(std::span<const std::uint8_t> request) {
    const std::vector<std::string>& texts = objects[request[3]];
    std::vector<std::uint8_t> answer(request.begin(), request.begin() + 4);
    answer.insert(answer.end(), {0x82, 0, 0, static_cast<std::uint8_t>(texts.size())});
    std::uint8_t id = request[4];
    for (const std::string& text : texts) {
      answer.push_back(id++);
      answer.push_back(static_cast<std::uint8_t>(text.size()));
      answer.insert(answer.end(), text.begin(), text.end());
    }
    return answer;
  }

  std::optional<std::size_t> failing_;
  ModbusResult failure_ = ModbusResult::kOk;
};

}  // namespace zelorgas
