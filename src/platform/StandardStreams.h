// The program's standard input, output and error. Called once, first thing in main.
#pragma once

namespace zelorgas {

// Makes sure that the three are open. Who starts a program with one of them closed would otherwise
// have the first port or file that it opens take its place, and messages would go down the line to
// the ECU. What is then written to a closed one fails, as it would have without this.
void KeepStandardStreams();

}  // namespace zelorgas
