#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/EcuConnection.h"
#include "support/ConnectedDocument.h"
#include "support/MemorySettings.h"
#include "support/ScriptedBoxes.h"

namespace zelorgas {
namespace {

using Outcome = EcuConnection::Outcome;

class UpdateRecorder final : public FirmwareUpdate {
 public:
  std::string started;
  void Start(bool in_bootloader) override { started += in_bootloader ? "bootloader " : "update "; }
};

struct Connecting {
  explicit Connecting(SimulatedEcuOptions options = {})
      : ecu(clock, options), document(SimulatedPort(line, clock), clock, status) {
    document.Link().SetPortName("/dev/ttyUSB7");
  }
  ~Connecting() { connection.Disconnect(); }

  VirtualClock clock;
  SimulatedEcu ecu;
  SimulatedLine line{ecu, clock, {.paced = false}};
  StatusRecorder status;
  ClpgecuDoc document;
  ScriptedBoxes boxes;
  MemorySettings settings;
  UpdateRecorder update;
  EcuConnection connection{document, boxes, settings, update};
};

constexpr const char* kObsolete =
    "ZelorGAS has detected an obsolete firmware version!\nPlease download the latest firmware "
    "version to have a possibility to use new features.\n";
constexpr const char* kReplace = "Do you want to replace the existing firmware version? ";

TEST(EcuConnection, ConnectsAndLeavesWhatItFound) {
  Connecting c;
  ASSERT_EQ(c.connection.Connect(), Outcome::kConnected);
  EXPECT_TRUE(c.document.HasWorker());
  EXPECT_EQ(c.document.Image().FirmwareIdentification(), '\'');
  EXPECT_EQ(c.connection.Identity().hardware, (Version{1, 2}));
  EXPECT_EQ(c.connection.Identity().serial, 123456U);
  EXPECT_EQ(c.settings.ReadString("Settings", "COMMPORT", ""), "/dev/ttyUSB7");
  EXPECT_TRUE(c.boxes.said.empty());
  c.connection.Disconnect();
  EXPECT_FALSE(c.document.HasWorker());
  EXPECT_FALSE(c.document.Link().IsOpen());
  EXPECT_EQ(c.connection.Identity().vendor, "");
}

TEST(EcuConnection, AFailureAtAnyRequestIsToldOnceAndLeavesThePortClosed) {
  Connecting whole;
  const std::uint64_t before = whole.line.RequestCount();
  ASSERT_EQ(whole.connection.Connect(false), Outcome::kConnected);
  const std::uint64_t requests = whole.line.RequestCount() - before;
  ASSERT_GE(requests, 5U);
  for (std::uint64_t request = 1; request <= requests; ++request) {
    Connecting c;
    c.line.ArmFault({FaultKind::kDropAnswer}, request);
    EXPECT_EQ(c.connection.Connect(), Outcome::kFailed) << request;
    ASSERT_EQ(c.boxes.said.size(), 1U) << request;
    EXPECT_EQ(c.boxes.said[0].substr(0, 7), "error: ");
    EXPECT_EQ(c.connection.FailureResult(), ModbusResult::kTimeOut);
    EXPECT_FALSE(c.document.Link().IsOpen());
    EXPECT_FALSE(c.document.HasWorker());
  }
}

TEST(EcuConnection, ABusyPort) {
  Connecting c;
  c.line.SetPlugged(false);
  EXPECT_EQ(c.connection.Connect(), Outcome::kFailed);
  EXPECT_THAT(c.boxes.said, testing::ElementsAre("error: Sorry! The specified COM port is busy!"));
  EXPECT_EQ(c.settings.ReadString("Settings", "COMMPORT", "none"), "none");
}

TEST(EcuConnection, AnEcuThatIsNotOurs) {
  struct Case {
    SimulatedEcuOptions ecu;
    std::string said;
  };
  const std::string wrong_vendor = "error: Unrecognized Vendor Name!";
  const std::vector<Case> cases{
      {{.vendor = "Another Ltd."}, wrong_vendor},
      {{.vendor = "TARNWICK Ltd."}, wrong_vendor},
      {{.product = "Petrol<=>GAS ECU Conversion Kit"}, "error: Unrecognized Product Code!"},
      {{.revision = "SV 0.39@HV 1"}, "error: Could not get revision number!"},
      {{.has_board_information = false},
       "error: Error while loading installation information!\nPlease try again!"},
  };
  for (const Case& test : cases) {
    Connecting c(test.ecu);
    EXPECT_EQ(c.connection.Connect(), Outcome::kFailed) << test.said;
    EXPECT_THAT(c.boxes.said, testing::ElementsAre(test.said));
    EXPECT_FALSE(c.document.Link().IsOpen()) << test.said;
    EXPECT_FALSE(c.document.HasWorker()) << test.said;
  }
}

TEST(EcuConnection, TheVersionGate) {
  struct Case {
    Version version;
    bool answer;
    Outcome outcome;
    std::string said;
    std::string update;
  };
  const std::string newer =
      "error: You have got a newer firmware version!\nPlease install the latest ZelorGAS version "
      "to get installed controller supported.";
  const std::string too_old = std::string("question: ") + kObsolete +
                              "Current firmware version is \"00.35\" while this configuration "
                              "utility requires at least version \"00.36\"!\n" +
                              kReplace;
  const std::string offer = std::string("question: ") + kObsolete + kReplace;
  const std::vector<Case> cases{
      {{1, 0}, false, Outcome::kFailed, newer, ""},
      {{0, 40}, false, Outcome::kFailed, newer, ""},
      {{0, 39}, false, Outcome::kConnected, "", ""},
      {{0, 38}, false, Outcome::kConnected, offer, ""},
      {{0, 36}, true, Outcome::kConnected, offer, "update "},
      {{0, 35}, false, Outcome::kDeclined, too_old, ""},
      {{0, 35}, true, Outcome::kFirmwareUpdate, too_old, "update "},
  };
  for (const Case& test : cases) {
    Connecting c({.software_major = test.version.major, .software_minor = test.version.minor});
    c.boxes.answer = test.answer;
    EXPECT_EQ(c.connection.Connect(), test.outcome) << int{test.version.minor};
    EXPECT_EQ(c.boxes.said.empty() ? "" : c.boxes.said[0], test.said);
    EXPECT_EQ(c.update.started, test.update);
    EXPECT_EQ(c.connection.Identity().software, test.version) << "it is known whom we refuse";
    EXPECT_EQ(c.connection.FailureResult(), ModbusResult::kOk) << "the link is not to blame";
    const bool closed = test.outcome == Outcome::kFailed || test.outcome == Outcome::kDeclined;
    EXPECT_EQ(c.document.Link().IsOpen(), !closed) << int{test.version.minor};
  }
}

TEST(EcuConnection, AnEcuInItsBootloaderIsHandedOver) {
  Connecting c({.in_bootloader = true});
  EXPECT_EQ(c.connection.Connect(), Outcome::kFirmwareUpdate);
  EXPECT_EQ(c.update.started, "bootloader ");
  EXPECT_FALSE(c.document.HasWorker());
  bool told_to_stay = false;
  c.ecu.WithBootloader([&](Bootloader& boot) { told_to_stay = boot.Coil(2); });
  EXPECT_TRUE(told_to_stay);
}

}  // namespace
}  // namespace zelorgas
