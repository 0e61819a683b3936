#include "cli/Commands.h"

namespace zelorgas {

ExitStatus RunPorts(CliSession& session, std::span<const std::string> arguments) {
  if (!arguments.empty()) return session.UsageError("ports takes no arguments");
  const std::vector<SerialPortInfo> ports = session.Environment().list_ports();
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject().Key("ports").BeginArray();
    for (const SerialPortInfo& port : ports) {
      document.BeginObject().Key("name").String(port.name);
      document.Key("product").String(port.product).EndObject();
    }
    document.EndArray().EndObject();
    session.Print(document);
    return ExitStatus::kDone;
  }
  for (const SerialPortInfo& port : ports) {
    session.Print(port.product.empty() ? port.name : port.name + "\t" + port.product);
  }
  return ExitStatus::kDone;
}

}  // namespace zelorgas
