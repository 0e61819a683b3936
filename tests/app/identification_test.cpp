#include "app/Identification.h"

#include <gtest/gtest.h>

#include "support/FakeMaster.h"

namespace zelorgas {

void PrintTo(const Version& version, std::ostream* out) {
  *out << int{version.major} << '.' << int{version.minor};
}

namespace {

using Step = IdentifyOutcome (*)(ModbusMaster&, EcuIdentity&);

constexpr std::string_view kNoTargetInfo = "Couldn't get target application info!";

TEST(Revision, IsReadFromBothPatterns) {
  const struct {
    std::string_view text;
    Version software, hardware;
  } cases[] = {
      {"SV 0.39@HV 1.2", {0, 39}, {1, 2}},
      {"SV0.39@HV1.2", {0, 39}, {1, 2}},
      {"SV  0.\t39@HV\n 1. 2", {0, 39}, {1, 2}},
      {"SV 0.39@HV 1.2 beta", {0, 39}, {1, 2}},
      {"SV 0.39@HV 1.2.9", {0, 39}, {1, 2}},
      {"SV +0.039@HV 001.-0", {0, 39}, {1, 0}},
      {"SV 255.255@HV 255.255", {255, 255}, {255, 255}},
      {"P042V0T39M1B17", {0, 39}, {0, 0}},
      {"P042V0T39M1B17-release", {0, 39}, {0, 0}},
      {"P 42V 1T 2M 3B 4", {1, 2}, {0, 0}},
      // Only the version has to fit a byte.
      {"P70000V0T36M256B99999999999", {0, 36}, {0, 0}},
  };
  for (const auto& c : cases) {
    const auto revision = ParseRevision(c.text);
    ASSERT_TRUE(revision) << c.text;
    EXPECT_EQ(revision->software, c.software) << c.text;
    EXPECT_EQ(revision->hardware, c.hardware) << c.text;
  }
}

TEST(Revision, OtherTextsAreNotUnderstood) {
  const std::string_view cases[] = {
      "",
      "SV 0.39@HV 1",
      "SV 0.39@HV 1.",
      "SV 0.39@HV 1.x",
      "SV 0.39",
      "SV 0 .39@HV 1.2",
      "SV 0.39 @HV 1.2",
      " SV 0.39@HV 1.2",
      "sv 0.39@hv 1.2",
      "SV 0.39@ HV 1.2",
      "SV 0.256@HV 1.2",
      "SV 0.39@HV 256.2",
      "SV 4294967296.39@HV 1.2",
      "SV 18446744073709551616.39@HV 1.2",
      "SV 0.-39@HV 1.2",
      "SV 0.- 39@HV 1.2",
      "SV 0.+-39@HV 1.2",
      "P042V0T39M1",
      "P042V0T39M1B",
      "P042V0T256M1B17",
      "P042V0 T39M1B17",
      "V0T39",
  };
  for (const std::string_view text : cases) EXPECT_FALSE(ParseRevision(text)) << text;
}

TEST(SerialNumber, HasAtLeastSixDigits) {
  EXPECT_EQ(FormatSerialNumber(0), "ECU000000");
  EXPECT_EQ(FormatSerialNumber(1234), "ECU001234");
  EXPECT_EQ(FormatSerialNumber(123456), "ECU123456");
  EXPECT_EQ(FormatSerialNumber(4294967295), "ECU4294967295");
}

class Identification : public testing::Test {
 protected:
  Identification() {
    ecu_.objects[1] = {"Tarnwick Ltd.", "Petrol<=>GAS ECU Conversion kit", "SV 0.39@HV 1.2"};
    ecu_.objects[2] = {"ZelorGAS ECU"};
    ecu_.input[32] = 0x0203;
    ecu_.input[33] = 0x0027;
    ecu_.input[35] = 0xE240;
    ecu_.input[36] = 0x0001;
    ecu_.holding[16384] = 0x1111;
    ecu_.holding[16385] = 0xFFFF;
    ecu_.holding[16386] = 3;
  }

  FakeMaster ecu_;
  EcuIdentity identity_;
};

TEST_F(Identification, StepsFillTheIdentity) {
  for (const Step step :
       {ReadBasicIdentification, ReadModel, ReadVersions, ReadSerialNumber, ReadBoardInformation}) {
    ASSERT_TRUE(step(ecu_, identity_).Ok());
  }
  EXPECT_EQ(identity_.vendor, kVendorName);
  EXPECT_EQ(identity_.product, kProductCode);
  EXPECT_EQ(identity_.revision, "SV 0.39@HV 1.2");
  EXPECT_EQ(identity_.software, (Version{0, 39}));
  EXPECT_EQ(identity_.hardware, (Version{2, 3}));
  EXPECT_FALSE(identity_.bootloader);
  EXPECT_EQ(identity_.serial, 123456U);
  EXPECT_EQ(identity_.board, (std::array<std::uint16_t, 3>{0x1111, 0xFFFF, 3}));
  const std::vector<FakeMaster::Request> expected{
      {43, 0x0100, 0}, {43, 0x0203, 0}, {4, 32, 2}, {4, 35, 2}, {3, 16384, 3}};
  EXPECT_EQ(ecu_.requests, expected);
}

TEST_F(Identification, UnexpectedBasicObjectsAreNamed) {
  const std::string vendor(kVendorName);
  const std::string product(kProductCode);
  const std::string revision = "SV 0.39@HV 1.2";
  const struct {
    std::vector<std::string> objects;
    std::string_view message;
  } cases[] = {
      {{}, kNoTargetInfo},
      {{vendor, product}, kNoTargetInfo},
      {{vendor, product, revision, "more"}, kNoTargetInfo},
      {{"TARNWICK Ltd.", product, revision}, "Unrecognized Vendor Name!"},
      {{"Tarnwick Ltd", product, revision}, "Unrecognized Vendor Name!"},
      {{"Tarnwick Ltd. ", product, "junk"}, "Unrecognized Vendor Name!"},
      {{vendor, "Petrol<=>Gas ECU Conversion kit", "junk"}, "Unrecognized Product Code!"},
      {{vendor, product, "SV 0.39@HV 1"}, "Could not get revision number!"},
  };
  for (const auto& c : cases) {
    ecu_.objects[1] = c.objects;
    identity_.vendor = "as before";
    const IdentifyOutcome outcome = ReadBasicIdentification(ecu_, identity_);
    EXPECT_EQ(outcome.message, c.message);
    EXPECT_EQ(outcome.result, ModbusResult::kOk);
    EXPECT_EQ(identity_.vendor, "as before");
  }
}

TEST_F(Identification, LinkFailureOfEachStepHasItsMessage) {
  const struct {
    Step step;
    std::string_view message;
  } cases[] = {
      {ReadBasicIdentification,
       "Couldn't establish connection with GASECU!\n"
       "Please check out cables and power supply!"},
      {ReadModel, kNoTargetInfo},
      {ReadVersions, kNoTargetInfo},
      {ReadSerialNumber, kNoTargetInfo},
      {ReadBoardInformation, "Error while loading installation information!\nPlease try again!"},
  };
  for (const auto& c : cases) {
    identity_.software = {0, 39};
    identity_.hardware = {9, 9};
    ecu_.FailRequest(ecu_.requests.size(), ModbusResult::kCrcError);
    const IdentifyOutcome outcome = c.step(ecu_, identity_);
    EXPECT_EQ(outcome.message, c.message);
    EXPECT_EQ(outcome.result, ModbusResult::kCrcError);
    EXPECT_EQ(identity_.hardware, (Version{9, 9}));
    EXPECT_FALSE(identity_.serial);
    EXPECT_FALSE(identity_.board);
  }
}

TEST_F(Identification, ModelTextDecidesTheBootloader) {
  const struct {
    std::vector<std::string> objects;
    bool bootloader;
  } cases[] = {
      {{"Bootloader"}, true},
      {{"Bootloader", "v2"}, true},
      {{"bootloader"}, false},
      {{"Application", "Bootloader"}, false},
  };
  for (const auto& c : cases) {
    ecu_.objects[2] = c.objects;
    ASSERT_TRUE(ReadModel(ecu_, identity_).Ok());
    EXPECT_EQ(identity_.bootloader, c.bootloader) << c.objects.front();
  }
  ecu_.objects[2].clear();
  EXPECT_EQ(ReadModel(ecu_, identity_).message, kNoTargetInfo);
}

// The revision text decides about the hardware version, the register about what comes after.
TEST_F(Identification, OldSoftwareSaysLess) {
  const struct {
    Version revision;
    std::uint16_t register_33;
    Version hardware;  // from 4.5 in the revision text and 2.3 in the register
    bool serial, board;
  } cases[] = {
      {{0, 11}, 0x000B, {0, 5}, false, false}, {{0, 12}, 0x000C, {2, 3}, true, false},
      {{0, 19}, 0x0013, {2, 3}, true, false},  {{0, 20}, 0x0014, {2, 3}, true, true},
      {{1, 39}, 0x0127, {0, 5}, false, true},  {{0, 11}, 0x0027, {0, 5}, true, true},
      {{0, 39}, 0x000B, {2, 3}, false, false},
  };
  for (const auto& c : cases) {
    EcuIdentity identity;
    identity.software = c.revision;
    identity.hardware = {4, 5};
    ecu_.input[33] = c.register_33;
    ASSERT_TRUE(ReadVersions(ecu_, identity).Ok());
    ASSERT_TRUE(ReadSerialNumber(ecu_, identity).Ok());
    ASSERT_TRUE(ReadBoardInformation(ecu_, identity).Ok());
    const std::string name = testing::PrintToString(c.register_33);
    EXPECT_EQ(identity.hardware, c.hardware) << name;
    EXPECT_EQ(identity.serial.has_value(), c.serial) << name;
    EXPECT_EQ(identity.board.has_value(), c.board) << name;
  }
}

}  // namespace
}  // namespace zelorgas
