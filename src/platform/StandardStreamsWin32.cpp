#include <windows.h>

#include "platform/StandardStreams.h"

namespace zelorgas {

// Handles of closed streams are not given out again here.
void KeepStandardStreams() {}

bool StandardInputIsTerminal() {
  // Only a console has a mode; the null device, which also counts as a character device, has none.
  DWORD mode = 0;
  return ::GetConsoleMode(::GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
}

}  // namespace zelorgas
