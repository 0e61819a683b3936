#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <string_view>
#include <system_error>

#include "platform/PortList.h"
#include "platform/PortOrder.h"
#include "platform/PortScanLinux.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

// Names that only adapters have, for systems that do not show their devices in sysfs (containers).
constexpr std::array<std::string_view, 3> kAdapterPrefixes = {"ttyUSB", "ttyACM", "rfcomm"};

// The first line of a small file, without control characters; empty when it cannot be read.
std::string FirstLine(const fs::path& path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  std::erase_if(line, [](char c) { return static_cast<unsigned char>(c) < ' '; });
  return line;
}

// The kernel keeps entries for serial ports that a board may have. The type number of one without
// hardware is 0; where there is no type, such an entry still has the placeholder driver.
bool HasHardware(const fs::path& entry) {
  std::error_code error;
  if (!fs::exists(entry / "device", error)) return false;
  const std::string type = FirstLine(entry / "type");
  if (!type.empty()) return type != "0";
  const fs::path driver = fs::read_symlink(entry / "device" / "driver", error);
  return driver.filename() != "serial8250";
}

// The text of the USB device that the port belongs to. Further up are the hubs, which have texts of
// their own: the search ends at the first device with a vendor number.
std::string ProductOf(const fs::path& entry) {
  std::error_code error;
  fs::path folder = fs::canonical(entry / "device", error);
  while (!error && folder.has_relative_path()) {
    if (fs::exists(folder / "idVendor", error)) return FirstLine(folder / "product");
    folder = folder.parent_path();
  }
  return {};
}

template <typename Visit>
void ForEachEntry(const fs::path& folder, Visit visit) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    visit(entry->path());
  }
}

struct PortBefore {
  bool operator()(const std::string& a, const std::string& b) const { return ComesBefore(a, b); }
};

}  // namespace

std::vector<SerialPortInfo> ScanSerialPorts(const fs::path& root) {
  const fs::path devices = root / "dev";
  std::map<std::string, std::string, PortBefore> products;  // by name
  ForEachEntry(root / "sys/class/tty", [&](const fs::path& entry) {
    std::error_code error;
    const std::string name = entry.filename().string();
    if (HasHardware(entry) && fs::exists(devices / name, error)) products[name] = ProductOf(entry);
  });
  ForEachEntry(devices, [&](const fs::path& entry) {
    const std::string name = entry.filename().string();
    const bool adapter = std::any_of(kAdapterPrefixes.begin(), kAdapterPrefixes.end(),
                                     [&](auto prefix) { return name.starts_with(prefix); });
    if (adapter) products.try_emplace(name);
  });
  std::vector<SerialPortInfo> ports;
  ports.reserve(products.size());
  for (const auto& [name, product] : products) {
    ports.push_back({(devices / name).string(), product});
  }
  return ports;
}

std::vector<SerialPortInfo> ListSerialPorts() { return ScanSerialPorts("/"); }

}  // namespace zelorgas
