// A page's turn on the link: holds the polling, takes the image lock and lets every request try
// three times; gives all of it back when it goes out of scope, on whatever path. Nothing else
// pauses the worker. Used by the thread that runs the procedure (the user interface, the command
// line).
#pragma once

#include <chrono>
#include <cstdint>

#include "app/ClpgecuDoc.h"

namespace zelorgas {

class LinkSession {
 public:
  // What has to pass between the request to pause and the first exchange.
  enum class Wait : std::uint8_t {
    kIdle,          // the worker reports that it is held
    kGrace,         // 250 ms
    kIdleAndGrace,  // both, one after the other
  };
  static constexpr std::chrono::milliseconds kGracePeriod{250};
  static constexpr std::uint16_t kAttempts = 3;

  LinkSession(ClpgecuDoc& document, Wait wait);
  LinkSession(const LinkSession&) = delete;
  LinkSession& operator=(const LinkSession&) = delete;
  ~LinkSession();

  [[nodiscard]] ModbusSerialPort& Link() { return document_.Link(); }
  [[nodiscard]] EcuImage& Image() { return document_.Image(); }

 private:
  void WaitUntilIdle();

  ClpgecuDoc& document_;
};

}  // namespace zelorgas
