#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

#include "platform/StandardStreams.h"

namespace zelorgas {

void KeepStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) >= 0) continue;
    // The lowest free descriptor is this one, as those below are open. The wrong direction: every
    // use fails.
    const int direction = stream == STDIN_FILENO ? O_WRONLY : O_RDONLY;
    // Without /dev/null the program can only go on as it was started.
    static_cast<void>(::open("/dev/null", direction));
  }
}

void OutliveTerminal() {
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
  static_cast<void>(std::signal(SIGHUP, SIG_IGN));
}

bool StandardInputIsTerminal() { return ::isatty(STDIN_FILENO) == 1; }

bool StandardErrorIsTerminal() { return ::isatty(STDERR_FILENO) == 1; }

}  // namespace zelorgas
