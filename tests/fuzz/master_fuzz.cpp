// Any bytes as the unit of an answer to every operation of the master: what comes back has the
// shape that was asked for, and nothing changes unless the result is Ok. The first byte chooses the
// operation, the second how much it asks for.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "link/ModbusMaster.h"

namespace {

using namespace zelorgas;

void Require(bool condition) {
  if (!condition) std::abort();
}

// Answers with given bytes, behind the fields that it must repeat when `repeating`.
class FuzzedMaster final : public ModbusMaster {
 public:
  FuzzedMaster(std::span<const std::uint8_t> answer, bool repeating)
      : answer_(answer.begin(), answer.end()), repeating_(repeating) {}

  ModbusResult Exchange(std::span<const std::uint8_t> request, std::span<std::uint8_t> response,
                        std::size_t, std::size_t& received_length) override {
    std::vector<std::uint8_t> answer = answer_;
    if (repeating_)
      std::copy_n(request.begin(), std::min(request.size(), answer.size()), answer.begin());
    received_length = std::min(answer.size(), response.size());
    std::copy_n(answer.begin(), received_length, response.begin());
    return ModbusResult::kOk;
  }
  [[nodiscard]] double LastTransactionSeconds() const override { return 0; }

 private:
  std::vector<std::uint8_t> answer_;
  bool repeating_;
};

template <typename Values, typename Read>
void CheckRead(std::size_t count, Read read) {
  const Values untouched(3, 7);
  Values values = untouched;
  const bool done = read(values) == ModbusResult::kOk;
  Require(done ? values.size() == count : values == untouched);
}

void Operate(FuzzedMaster& master, unsigned operation, std::uint16_t count) {
  using Bits = std::vector<std::uint8_t>;
  using Words = std::vector<std::uint16_t>;
  constexpr std::uint8_t kSlave = ECU_SLAVE_ADDRESS;
  switch (operation % 9) {
    case 0:
      return CheckRead<Bits>(count,
                             [&](Bits& bits) { return master.ReadCoils(kSlave, 0, count, bits); });
    case 1:
      return CheckRead<Bits>(
          count, [&](Bits& bits) { return master.ReadDiscreteInputs(kSlave, 0, count, bits); });
    case 2:
      return CheckRead<Words>(count, [&](Words& words) {
        return master.ReadHoldingRegisters(kSlave, 256, count, words);
      });
    case 3:
      return CheckRead<Words>(
          count, [&](Words& words) { return master.ReadInputRegisters(kSlave, 32, count, words); });
    case 4:
      static_cast<void>(master.WriteSingleCoil(kSlave, 34, 1));
      return;
    case 5:
      static_cast<void>(master.WriteSingleRegister(kSlave, 374, 125));
      return;
    case 6:
      static_cast<void>(master.WriteMultipleRegisters(kSlave, 256, Words(count, 1)));
      return;
    case 7: {
      Words words(3, 7);
      const bool done = master.ReadFifoQueue(kSlave, 0, words) == ModbusResult::kOk;
      Require(done ? words.size() <= 31 : words == Words(3, 7));
      return;
    }
    default: {
      DeviceIdentification identification;
      const bool done =
          master.ReadDeviceIdentification(kSlave, 1, 0, identification) == ModbusResult::kOk;
      Require(done || identification.objects.empty());
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  FuzzedMaster master(std::span(data, size).subspan(2), (data[0] & 0x80U) != 0);
  Operate(master, data[0] & 0x7FU, data[1]);
  return 0;
}
