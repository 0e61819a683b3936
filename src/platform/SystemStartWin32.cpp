#include <winsock2.h>
// The order matters: the first of them keeps the second from bringing the old sockets.
#include <commctrl.h>
#include <ole2.h>
#include <windows.h>

#include "platform/SystemStart.h"

namespace zelorgas {

SystemStart::SystemStart() {
  // Old systems lack some of the classes; the controls that there are work all the same.
  const INITCOMMONCONTROLSEX controls = {sizeof(INITCOMMONCONTROLSEX), ICC_WIN95_CLASSES};
  static_cast<void>(::InitCommonControlsEx(&controls));
  WSADATA sockets{};
  if (::WSAStartup(MAKEWORD(1, 1), &sockets) != 0) {
    failure_ = StartFailure::kSockets;
  } else if (FAILED(::OleInitialize(nullptr))) {
    failure_ = StartFailure::kOle;
  }
}

SystemStart::~SystemStart() {
  if (failure_ == StartFailure::kNone) ::OleUninitialize();
  if (failure_ != StartFailure::kSockets) ::WSACleanup();
}

}  // namespace zelorgas
