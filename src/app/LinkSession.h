// A page's turn on the link: holds the polling, takes the image lock and lets every request try
// three times at least; gives all of it back when it goes out of scope, on whatever path. Nothing
// else pauses the worker. Used by the thread that runs the procedure (the user interface, the
// command line).
#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string_view>

#include "app/ClpgecuDoc.h"
#include "platform/Message.h"

namespace zelorgas {

// What a person reads when a write of the configuration did not get through.
inline constexpr FixedText kParameterNotLoaded =
    FixedText::Of("The parameter could not be loaded into the target system!");

inline constexpr FixedText kAnotherEcuAnswers =
    FixedText::Of("Another ECU answers than the one that was connected to!");

// Lets every exchange be tried three times at least; undoes it when it goes.
class MoreAttempts {
 public:
  static constexpr std::uint16_t kAttempts = 3;

  explicit MoreAttempts(ModbusMaster& master);
  MoreAttempts(const MoreAttempts&) = delete;
  MoreAttempts& operator=(const MoreAttempts&) = delete;
  ~MoreAttempts() { master_.SetAttemptCount(before_); }

 private:
  ModbusMaster& master_;
  const std::uint16_t before_;
};

class LinkSession {
 public:
  // What has to pass between the request to pause and the first exchange.
  enum class Wait : std::uint8_t {
    kIdle,          // the worker reports that it is held
    kGrace,         // 250 ms, and what the worker then still needs for its exchange
    kIdleAndGrace,  // both, one after the other
  };
  static constexpr std::chrono::milliseconds kGracePeriod{250};

  LinkSession(ClpgecuDoc& document, Wait wait);
  LinkSession(const LinkSession&) = delete;
  LinkSession& operator=(const LinkSession&) = delete;
  ~LinkSession() = default;

  [[nodiscard]] ModbusSerialPort& Link() { return document_.Link(); }
  [[nodiscard]] EcuImage& Image() { return document_.Image(); }

  // Asks the ECU on the line who it is. With kOk, `same` says whether it is the one that was
  // connected to: the cable may have been moved to another car while a person was asked something.
  // With any other result `same` stays as it is.
  ModbusResult CheckEcu(bool& same);

  // Write holding registers of the ECU with function 6 or 16; what it has taken is in the image
  // then. On a failure the image keeps its words. Nothing is sent, and the result is kLockTimeOut,
  // once the polling has found another ECU.
  ModbusResult WriteRegister(std::uint16_t reg, std::uint16_t value);
  ModbusResult WriteRegisters(std::uint16_t first, std::span<const std::uint16_t> values);
  // What a register holds. With kOk it is in the image too, and in `value`.
  ModbusResult ReadRegister(std::uint16_t reg, std::uint16_t& value);

 private:
  // The held polling and the locked image.
  class Turn {
   public:
    Turn(ClpgecuDoc& document, Wait wait);
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn();

   private:
    void WaitUntilIdle();

    ClpgecuDoc& document_;
  };

  ClpgecuDoc& document_;
  const Turn turn_;
  const MoreAttempts attempts_;  // given back first
};

}  // namespace zelorgas
