// What the operating system wants done once before the program uses it: common controls, sockets
// and OLE on Windows, nothing elsewhere. Made and destroyed by the user-interface thread, around
// everything else that it does.
#pragma once

#include <cstdint>

namespace zelorgas {

enum class StartFailure : std::uint8_t { kNone, kSockets, kOle };

class SystemStart {
 public:
  // Ends with the first part that fails.
  SystemStart();
  SystemStart(const SystemStart&) = delete;
  SystemStart& operator=(const SystemStart&) = delete;
  // Undoes what has been done.
  ~SystemStart();  // NOLINT(performance-trivially-destructible): not on Windows

  // What failed; the program cannot go on then.
  [[nodiscard]] StartFailure Failure() const { return failure_; }

 private:
  StartFailure failure_ = StartFailure::kNone;
};

}  // namespace zelorgas
