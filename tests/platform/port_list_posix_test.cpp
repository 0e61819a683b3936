#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/PortScanLinux.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

// The device folders of a machine, in a folder of the test's own.
class Machine : public testing::Test {
 protected:
  Machine() {
    fs::create_directories(root_ / "dev");
    fs::create_directories(root_ / "sys/class/tty");
  }

  void Write(const fs::path& path, const std::string& text) {
    fs::create_directories((root_ / path).parent_path());
    std::ofstream(root_ / path) << text;
  }
  void AddNode(const std::string& name) { Write("dev/" + name, ""); }
  // A port on the device folder `device`, below sys/devices.
  void AddPort(const std::string& name, const std::string& device) {
    AddNode(name);
    const fs::path folder = root_ / "sys/devices" / device / "tty" / name;
    fs::create_directories(folder);
    fs::create_symlink("../..", folder / "device");
    fs::create_symlink(folder, root_ / "sys/class/tty" / name);
  }
  void SetType(const std::string& name, const std::string& type) {
    Write("sys/class/tty/" + name + "/type", type);
  }
  // "name|product" of each port, the root left out.
  std::vector<std::string> Scan() {
    std::vector<std::string> found;
    for (const SerialPortInfo& port : ScanSerialPorts(root_)) {
      found.push_back("/" + fs::relative(port.name, root_).string() + "|" + port.product);
    }
    return found;
  }

  const TemporaryFolder folder_;
  const fs::path& root_ = folder_.Path();
};

using testing::ElementsAre;

TEST_F(Machine, UsbAdaptersBearTheirProductTextAndNotTheirHubs) {
  Write("sys/devices/usb1/idVendor", "1d6b\n");
  Write("sys/devices/usb1/product", "Root Hub\n");
  Write("sys/devices/usb1/1-1/idVendor", "1111\n");
  Write("sys/devices/usb1/1-1/product", "Cable \x01Mark 2\nsecond line\n");
  Write("sys/devices/usb1/1-2/idVendor", "2222\n");
  AddPort("ttyUSB10", "usb1/1-1/1-1:1.0/ttyUSB10");
  AddPort("ttyUSB2", "usb1/1-2/1-2:1.0/ttyUSB2");
  AddPort("ttyACM0", "usb1/1-1/1-1:1.1");
  EXPECT_THAT(Scan(), ElementsAre("/dev/ttyACM0|Cable Mark 2", "/dev/ttyUSB2|",
                                  "/dev/ttyUSB10|Cable Mark 2"));
}

TEST_F(Machine, OnBoardPortsCountOnlyWithHardware) {
  AddPort("ttyS0", "pnp0/00:03");
  SetType("ttyS0", "4\n");
  AddPort("ttyS1", "platform/serial8250/1");
  SetType("ttyS1", "0\n");
  AddPort("ttyS2", "platform/serial8250/2");
  fs::create_directories(root_ / "sys/bus/platform/drivers/serial8250");
  fs::create_symlink(root_ / "sys/bus/platform/drivers/serial8250",
                     root_ / "sys/devices/platform/serial8250/2/driver");
  AddPort("ttyAMA0", "platform/uart");
  EXPECT_THAT(Scan(), ElementsAre("/dev/ttyAMA0|", "/dev/ttyS0|"));
}

}  // namespace
}  // namespace zelorgas
