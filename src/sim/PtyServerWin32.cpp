#include "sim/LineServer.h"

namespace zelorgas {

std::unique_ptr<LineServer> OpenPtyServer(SimulatedLine&, Clock&, std::string& error) {
  error = "this system has no pseudo-terminals; name a serial port with --port";
  return nullptr;
}

}  // namespace zelorgas
