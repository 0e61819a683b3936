// The program's standard input, output and error.
#pragma once

namespace zelorgas {

// Called once, first thing in main: makes sure that the three are open. Who starts a program with
// one of them closed would otherwise have the first port or file that it opens take its place, and
// messages would go down the line to the ECU. What is then written to a closed one fails, as it
// would have without this.
void KeepStandardStreams();

// From here on the program goes on when nobody reads its output any more, or the terminal is
// closed: what it does to the ECU is worth more than what it has to say.
void OutliveTerminal();

// True when a person can be asked on standard input.
[[nodiscard]] bool StandardInputIsTerminal();
// True when a person sees standard error, and a line of it can be drawn over.
[[nodiscard]] bool StandardErrorIsTerminal();

}  // namespace zelorgas
