// The steps by themselves. What a person is told when they fail, and who is refused, is in
// ecu_connection_test.cpp.
#include "app/Identification.h"

#include <gtest/gtest.h>

#include <utility>

#include "link/ModbusSerialPort.h"
#include "support/EcuOnLine.h"

namespace zelorgas {
namespace {

std::string Text(Version version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor);
}

TEST(Revision, IsReadFromBothPatternsAndFromNothingElse) {
  const std::pair<std::string_view, std::string> understood[] = {
      {"SV 0.39@HV 1.2", "0.39 1.2"},
      {"SV0.39@HV1.2", "0.39 1.2"},
      {"SV  0.\t39@HV\n 1. 2.9 beta", "0.39 1.2"},
      {"SV +0.039@HV 001.-0", "0.39 1.0"},
      {"SV 255.255@HV 255.255", "255.255 255.255"},
      {"P042V0T39M1B17-release", "0.39 0.0"},
      {"P 42V 1T 2M 3B 4", "1.2 0.0"},
      // Only a number's lowest byte counts.
      {"P70000V256T292M256B99999999999", "0.36 0.0"},
      {"SV 0.-1@HV 4294967297.258", "0.255 1.2"},
  };
  for (const auto& [text, versions] : understood) {
    const auto revision = ParseRevision(text);
    ASSERT_TRUE(revision) << text;
    EXPECT_EQ(Text(revision->software) + " " + Text(revision->hardware), versions) << text;
  }
  for (const std::string_view text :
       {"", "SV 0.39@HV 1", "SV 0.39@HV 1.x", "SV 0.39", "SV 0 .39@HV 1.2", " SV 0.39@HV 1.2",
        "sv 0.39@hv 1.2", "SV 0.39@ HV 1.2", "SV 0.- 39@HV 1.2", "SV 0.+-39@HV 1.2", "P042V0T39M1B",
        "P042V0 T39M1B17", "V0T39"}) {
    EXPECT_FALSE(ParseRevision(text)) << text;
  }
  EXPECT_EQ(FormatSerialNumber(1234), "ECU001234");
  EXPECT_EQ(FormatSerialNumber(4294967295), "ECU4294967295");
}

struct Identification : testing::Test {
  Identification() {
    link.SetFraming(FramingMode::kAscii);
    EXPECT_TRUE(link.Open(1, 19200, 255));
  }
  // The ECU identifies itself with `objects`.
  void Answer(const std::vector<std::string>& objects) {
    line.instead = [objects](const EcuOnLine::Unit& request) {
      EcuOnLine::Unit answer(request.begin(), request.begin() + 4);
      answer.insert(answer.end(), {0x82, 0, 0, static_cast<std::uint8_t>(objects.size())});
      for (const std::string& object : objects) {
        answer.insert(answer.end(), {0, static_cast<std::uint8_t>(object.size())});
        answer.insert(answer.end(), object.begin(), object.end());
      }
      return answer;
    };
  }

  VirtualClock clock;
  EcuOnLine line{clock};
  ModbusSerialPort link{line.port.Opener(), clock};
};

TEST_F(Identification, TheNumberOfObjectsAndTheModelText) {
  const std::string vendor(kVendorName);
  const std::string product(kProductCode);
  const struct {
    IdentifyOutcome (*step)(ModbusMaster&, EcuIdentity&);
    std::vector<std::string> objects;
    std::string_view message;
    bool bootloader;
  } cases[] = {
      {ReadBasicIdentification, {}, kNoTargetInfo, false},
      {ReadBasicIdentification, {vendor, product}, kNoTargetInfo, false},
      {ReadBasicIdentification, {vendor, product, "SV 0.39@HV 1.2", "m"}, kNoTargetInfo, false},
      {ReadBasicIdentification, {vendor, product, "SV 0.39@HV 1.2"}, "", false},
      {ReadModel, {}, kNoTargetInfo, false},
      {ReadModel, {"Bootloader", "v2"}, "", true},
      {ReadModel, {"bootloader"}, "", false},
      {ReadModel, {"App", "Bootloader"}, "", false},
  };
  for (const auto& c : cases) {
    EcuIdentity identity;
    Answer(c.objects);
    EXPECT_EQ(c.step(link, identity).message, c.message);
    EXPECT_EQ(identity.bootloader, c.bootloader);
  }
}

// The revision text decides about the hardware version, the register about what comes after.
TEST_F(Identification, OldSoftwareSaysLess) {
  const struct {
    Version revision, in_register;
    std::string hardware;  // from 4.5 in the revision text and 1.2 in the register
    bool serial, board;
  } cases[] = {
      {{0, 11}, {0, 11}, "0.5", false, false}, {{0, 12}, {0, 12}, "1.2", true, false},
      {{0, 19}, {0, 19}, "1.2", true, false},  {{0, 20}, {0, 20}, "1.2", true, true},
      {{1, 39}, {1, 39}, "0.5", false, true},  {{0, 11}, {0, 39}, "0.5", true, true},
      {{0, 39}, {0, 11}, "1.2", false, false},
  };
  for (const auto& c : cases) {
    EcuIdentity identity;
    identity.software = c.revision;
    identity.hardware = {4, 5};
    SimulatedEcu ecu(
        clock, {.software_major = c.in_register.major, .software_minor = c.in_register.minor});
    line.instead = [&](const EcuOnLine::Unit& request) { return ecu.Answer(request); };
    ASSERT_TRUE(ReadVersions(link, identity).Ok());
    ASSERT_TRUE(ReadSerialNumber(link, identity).Ok());
    ASSERT_TRUE(ReadBoardInformation(link, identity).Ok());
    const std::string name = Text(c.revision) + " " + Text(c.in_register);
    EXPECT_EQ(Text(identity.hardware), c.hardware) << name;
    EXPECT_EQ(identity.serial.has_value(), c.serial) << name;
    EXPECT_EQ(identity.board.has_value(), c.board) << name;
  }
}

}  // namespace
}  // namespace zelorgas
