// What the communication worker reports to the main view: WM_COMM_STATUS with two numbers.
#pragma once

#include <cstdint>

namespace zelorgas {

inline constexpr unsigned WM_COMM_STATUS = 0x401;  // WM_USER + 1

// The message's wParam and lParam as one value.
enum class CommStatus : std::uint8_t {
  kLiveData,      // 0, 0: live data updated
  kFullRead,      // 0, 1: full read finished
  kConnecting,    // 1, 0: link lost or not yet up
  kLinkUp,        // 1, 1
  kPortBusy,      // 1, 2: the port could not be opened
  kNotConnected,  // 1, 3: worker stopped
  kEcuRestarted,  // 2, 0
  kAnotherEcu,    // 2, 1: not the one that was connected to; it is not polled, nor written to
};

[[nodiscard]] constexpr unsigned WParam(CommStatus status) {
  if (status <= CommStatus::kFullRead) return 0;
  return status >= CommStatus::kEcuRestarted ? 2 : 1;
}
[[nodiscard]] constexpr unsigned LParam(CommStatus status) {
  switch (status) {
    case CommStatus::kFullRead:
    case CommStatus::kLinkUp:
    case CommStatus::kAnotherEcu:
      return 1;
    case CommStatus::kPortBusy:
      return 2;
    case CommStatus::kNotConnected:
      return 3;
    default:
      return 0;
  }
}

class StatusSink {
 public:
  virtual ~StatusSink() = default;
  // Posts and returns at once; any thread. Posts of one thread arrive in order.
  virtual void Post(CommStatus status) = 0;
};

}  // namespace zelorgas
