// The transport-independent half of the ECU link: one operation a Modbus function. Each builds its
// request, runs it through the transport's Exchange for up to the attempt count, checks the fields
// that the response must echo, and unpacks it.
//
// Any thread may call any operation. An operation takes no lock of its own: each attempt runs under
// the link lock inside Exchange, so two threads may interleave between attempts, never inside one.
// Who needs several requests in a row without the polling in between pauses the worker first.
//
// Every operation takes the slave address first (ECU_SLAVE_ADDRESS) and returns a ModbusResult;
// failures come back as values, nothing throws. On any result but kOk the output is unchanged.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "link/LinkLock.h"
#include "link/ModbusResult.h"
#include "link/ModbusUnit.h"
#include "platform/Message.h"

namespace zelorgas {

class ModbusMaster {
 public:
  ModbusMaster() = default;
  ModbusMaster(const ModbusMaster&) = delete;
  ModbusMaster& operator=(const ModbusMaster&) = delete;
  virtual ~ModbusMaster() = default;

  // One attempt: sends `request` (a unit without framing), and puts at most response.size() bytes
  // of the answer's unit into `response`; `received_length` is how many. `expected_length` is the
  // length of a good answer, or an upper bound. Holds the link lock, the failure pause included.
  virtual ModbusResult Exchange(std::span<const std::uint8_t> request,
                                std::span<std::uint8_t> response, std::size_t expected_length,
                                std::size_t& received_length) = 0;

  // The fixed text of a result: "Time Out Error"; for an exception its code in decimal at the end.
  [[nodiscard]] virtual Message ErrorText(ModbusResult result) const;

  // How often an operation tries before it gives up; 1 while polling, 3 while a page writes. At
  // least one attempt is always made.
  void SetAttemptCount(std::uint16_t count) { attempt_count_ = count; }
  [[nodiscard]] std::uint16_t AttemptCount() const { return attempt_count_; }

  // `bits` becomes `quantity` bytes 0 or 1. Functions 1 and 2.
  ModbusResult ReadCoils(std::uint8_t slave, std::uint16_t start, std::uint16_t quantity,
                         std::vector<std::uint8_t>& bits);
  ModbusResult ReadDiscreteInputs(std::uint8_t slave, std::uint16_t start, std::uint16_t quantity,
                                  std::vector<std::uint8_t>& bits);

  // `registers` becomes `quantity` words. Functions 3 and 4.
  ModbusResult ReadHoldingRegisters(std::uint8_t slave, std::uint16_t start, std::uint16_t quantity,
                                    std::vector<std::uint16_t>& registers);
  ModbusResult ReadInputRegisters(std::uint8_t slave, std::uint16_t start, std::uint16_t quantity,
                                  std::vector<std::uint16_t>& registers);

  // Function 5; `on` is 1 for on, anything else is off.
  ModbusResult WriteSingleCoil(std::uint8_t slave, std::uint16_t address, std::uint8_t on);
  // Function 6.
  ModbusResult WriteSingleRegister(std::uint8_t slave, std::uint16_t address, std::uint16_t value);
  // Function 16. More than kMaxWriteRegisters values do not fit a request: nothing is sent, and the
  // result is the one a slave gives for it, exception 3 (illegal data value).
  ModbusResult WriteMultipleRegisters(std::uint8_t slave, std::uint16_t start,
                                      std::span<const std::uint16_t> values);

  // Function 24: the registers queued at FIFO pointer `pointer`. Their number is the FIFO count.
  ModbusResult ReadFifoQueue(std::uint8_t slave, std::uint16_t pointer,
                             std::vector<std::uint16_t>& registers);

  // Function 43 / MEI 14. `code` 1 asks for the basic objects, 2 for the regular ones, from
  // `object`.
  ModbusResult ReadDeviceIdentification(std::uint8_t slave, std::uint8_t code, std::uint8_t object,
                                        DeviceIdentification& identification);

  // Seconds from the last request's end to its answer's. Waits for an exchange under way.
  [[nodiscard]] virtual double LastTransactionSeconds() const = 0;

 protected:
  // The link lock, held for one attempt. The owner may take it again.
  [[nodiscard]] LinkLock& Lock() const { return lock_; }

 private:
  // Exchange with echo check and retries; `take` unpacks a response and says whether it was long
  // enough.
  template <typename Take>
  ModbusResult Transact(const ModbusRequest& request, Take take);

  mutable LinkLock lock_;
  std::atomic<std::uint16_t> attempt_count_{1};
};

}  // namespace zelorgas
