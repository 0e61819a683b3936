#include <windows.h>

#include "platform/StandardStreams.h"

namespace zelorgas {
namespace {

// Only a console has a mode; the null device, which also counts as a character device, has none.
bool IsConsole(DWORD stream) {
  DWORD mode = 0;
  return ::GetConsoleMode(::GetStdHandle(stream), &mode) != 0;
}

}  // namespace

// Handles of closed streams are not given out again here.
void KeepStandardStreams() {}

// Output that nobody reads only fails here.
void OutliveTerminal() {}

bool StandardInputIsTerminal() { return IsConsole(STD_INPUT_HANDLE); }

bool StandardErrorIsTerminal() { return IsConsole(STD_ERROR_HANDLE); }

}  // namespace zelorgas
