// Serves a simulated line to another process, in real time, over a real serial port. Serve runs on
// one thread; Stop may be called from any other and from a signal handler.
#pragma once

#include <memory>
#include <string>

#include "platform/SerialDevice.h"
#include "sim/SimulatedLine.h"

namespace zelorgas {

class LineServer {
 public:
  LineServer() = default;
  LineServer(const LineServer&) = delete;
  LineServer& operator=(const LineServer&) = delete;
  virtual ~LineServer() = default;

  // The name by which the client opens its end.
  [[nodiscard]] virtual const std::string& Path() const = 0;
  // Serves until Stop, or until the port is gone.
  virtual void Serve() = 0;
  virtual void Stop() = 0;
};

// On a pseudo-terminal, whose other end stays while clients come and go. Null with the reason in
// `error` when the system has none to give. `line` and `clock` outlive the server.
[[nodiscard]] std::unique_ptr<LineServer> OpenPtyServer(SimulatedLine& line, Clock& clock,
                                                        std::string& error);

// On an open serial port, whose cable leads to the client; `name` is the port's.
[[nodiscard]] std::unique_ptr<LineServer> ServeSerialDevice(SimulatedLine& line, Clock& clock,
                                                            std::unique_ptr<SerialDevice> device,
                                                            std::string name);

}  // namespace zelorgas
