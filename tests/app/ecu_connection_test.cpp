#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/EcuConnection.h"
#include "support/ConnectedDocument.h"
#include "support/MemorySettings.h"
#include "support/ScriptedBoxes.h"

namespace zelorgas {
namespace {

using Outcome = EcuConnection::Outcome;
using testing::ElementsAre;

class UpdateRecorder final : public FirmwareUpdate {
 public:
  std::string started;
  // What the update does to the ECU, and how it ends.
  std::function<End()> run = [] { return End::kUntouched; };
  End Start(bool in_bootloader) override {
    started += in_bootloader ? "bootloader " : "update ";
    return run();
  }
};

struct Connecting : ConnectedDocument {
  explicit Connecting(const SimulatedEcuOptions& options = {}) : ConnectedDocument(options) {
    document.Link().SetPortName("/dev/ttyUSB7");
    connection.SetIdentifiedHook([this] { identified = document.Link().IsOpen(); });
  }
  ~Connecting() { connection.Disconnect(); }

  // Connects and fails with just this message, leaving the port closed.
  void ExpectRefused(const std::string& message, ModbusResult link_result) {
    EXPECT_EQ(connection.Connect(), Outcome::kFailed) << message;
    EXPECT_THAT(boxes.said, ElementsAre("error: " + message));
    EXPECT_EQ(connection.FailureResult(), link_result) << message;
    EXPECT_FALSE(document.Link().IsOpen()) << message;
    EXPECT_FALSE(document.HasWorker()) << message;
    EXPECT_FALSE(identified) << message;
  }
  [[nodiscard]] std::string StoredPort() const {
    return settings.ReadString("Settings", "COMMPORT", "none");
  }

  ScriptedBoxes boxes;
  MemorySettings settings;
  UpdateRecorder update;
  EcuConnection connection{document, boxes, settings, update};
  bool identified = false;
};

constexpr const char* kNoTarget = "Couldn't get target application info!";
constexpr const char* kNoBoard = "Error while loading installation information!\nPlease try again!";
const std::string kNewer =
    "You have got a newer firmware version!\nPlease install the latest ZelorGAS version to get "
    "installed controller supported.";
const std::string kObsolete =
    "question: ZelorGAS has detected an obsolete firmware version!\nPlease download the latest "
    "firmware version to have a possibility to use new features.\n";
const std::string kReplace = "Do you want to replace the existing firmware version? ";

TEST(EcuConnection, ConnectsAndLeavesWhatItFound) {
  Connecting c;
  ASSERT_EQ(c.connection.Connect(), Outcome::kConnected);
  EXPECT_TRUE(c.document.HasWorker());
  EXPECT_TRUE(c.identified);
  EXPECT_EQ(c.document.Image().FirmwareIdentification(), '\'');
  EXPECT_EQ(c.connection.Identity().hardware, (Version{1, 2}));
  EXPECT_EQ(c.connection.Identity().serial, 123456U);
  EXPECT_EQ(c.StoredPort(), "/dev/ttyUSB7");
  EXPECT_TRUE(c.boxes.said.empty());
  c.connection.Disconnect();
  EXPECT_FALSE(c.document.HasWorker());
  EXPECT_FALSE(c.document.Link().IsOpen());
  EXPECT_EQ(c.connection.Identity().vendor, "");
}

TEST(EcuConnection, AFailureAtAnyRequestIsToldOnceAndLeavesThePortClosed) {
  std::uint64_t request = 0;
  for (const char* const message :
       {"Couldn't establish connection with GASECU!\nPlease check out cables and power supply!",
        kNoTarget, kNoTarget, kNoTarget, kNoBoard}) {
    Connecting c;
    c.line.ArmFault({FaultKind::kDropAnswer}, ++request);
    c.ExpectRefused(message, ModbusResult::kTimeOut);
    EXPECT_EQ(c.StoredPort(), request == 1 ? "none" : "/dev/ttyUSB7");
  }
  Connecting whole;
  ASSERT_EQ(whole.connection.Connect(false), Outcome::kConnected);
  EXPECT_EQ(whole.line.RequestCount(), request);
  EXPECT_FALSE(whole.document.HasWorker());
}

TEST(EcuConnection, AnEcuThatIsNotOursOrABusyPort) {
  const std::pair<SimulatedEcuOptions, std::string> cases[] = {
      {{.vendor = "Another Ltd."}, "Unrecognized Vendor Name!"},
      {{.vendor = "TARNWICK Ltd."}, "Unrecognized Vendor Name!"},
      {{.product = "Petrol<=>GAS ECU Conversion Kit"}, "Unrecognized Product Code!"},
      {{.revision = "SV 0.39@HV 1"}, "Could not get revision number!"},
      {{.software_major = 1, .software_minor = 0}, kNewer},
      {{.software_minor = 40}, kNewer},
  };
  for (const auto& [options, message] : cases) {
    Connecting(options).ExpectRefused(message, ModbusResult::kOk);
  }
  Connecting({.has_board_information = false}).ExpectRefused(kNoBoard, ExceptionResult(2));
  Connecting c;
  c.line.SetPlugged(false);
  c.ExpectRefused("Sorry! The specified COM port is busy!", ModbusResult::kOk);
  EXPECT_EQ(c.StoredPort(), "none");
}

TEST(EcuConnection, TheVersionGate) {
  const std::string too_old = kObsolete +
                              "Current firmware version is \"00.35\" while this configuration "
                              "utility requires at least version \"00.36\"!\n" +
                              kReplace;
  const std::string offer = kObsolete + kReplace;
  const struct {
    std::uint8_t minor;
    bool answer;
    Outcome outcome;
    std::vector<std::string> said;
    std::string update;
  } cases[] = {
      {39, false, Outcome::kConnected, {}, ""},
      {38, false, Outcome::kConnected, {offer}, ""},
      {36, true, Outcome::kConnected, {offer}, "update "},
      {35, false, Outcome::kDeclined, {too_old}, ""},
      {35, true, Outcome::kFirmwareUpdate, {too_old}, "update "},
  };
  for (const auto& test : cases) {
    Connecting c({.software_minor = test.minor});
    c.boxes.answer = test.answer;
    EXPECT_EQ(c.connection.Connect(), test.outcome) << int{test.minor};
    EXPECT_EQ(c.boxes.said, test.said);
    EXPECT_EQ(c.update.started, test.update);
    EXPECT_EQ(c.connection.Identity().software.minor, test.minor) << "also when it is refused";
    EXPECT_EQ(c.connection.FailureResult(), ModbusResult::kOk) << "the link is not to blame";
    EXPECT_EQ(c.document.Link().IsOpen(), test.outcome != Outcome::kDeclined) << int{test.minor};
  }
}

TEST(EcuConnection, GoesOnAfterAnUpdateByWhatItHasLeft) {
  using End = FirmwareUpdate::End;
  Connecting updated({.in_bootloader = true});
  updated.update.run = [&] {
    updated.ecu.Restart();
    return End::kUpdated;
  };
  EXPECT_EQ(updated.connection.Connect(), Outcome::kConnected);
  EXPECT_EQ(updated.connection.Identity().serial, 123456U);
  EXPECT_EQ(updated.update.started, "bootloader ");
  Connecting broken({.software_minor = 38});
  broken.boxes.answer = true;
  broken.update.run = [] { return End::kNotRunning; };
  EXPECT_EQ(broken.connection.Connect(), Outcome::kFirmwareUpdate);
  EXPECT_FALSE(broken.document.HasWorker());
}

}  // namespace
}  // namespace zelorgas
