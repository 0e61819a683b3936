#include "app/EcuConnection.h"

#include <mutex>

#include "app/PortListModel.h"
#include "app/Settings.h"

namespace zelorgas {
namespace {

constexpr FixedText kNewerFirmware = FixedText::Of(
    "You have got a newer firmware version!\nPlease install the latest ZelorGAS version to get "
    "installed controller supported.");
constexpr FixedText kObsoleteFirmware = FixedText::Of(
    "ZelorGAS has detected an obsolete firmware version!\nPlease download the latest firmware "
    "version to have a possibility to use new features.");
constexpr FixedText kVersionRequired = FixedText::Of(
    "Current firmware version is \"%1\" while this configuration utility requires at least version "
    "\"%2\"!");
constexpr FixedText kReplaceQuestion =
    FixedText::Of("Do you want to replace the existing firmware version? ");

constexpr Version kOldestSupported{0, 36};
constexpr Version kNewestSupported{0, 39};
constexpr std::uint8_t kWithoutOffer = 39;  // minor versions below are offered an update

}  // namespace

EcuConnection::EcuConnection(ClpgecuDoc& document, MessageBoxes& boxes, SettingsStore& settings,
                             FirmwareUpdate& update)
    : document_(document), boxes_(boxes), settings_(settings), update_(update) {}

EcuConnection::Outcome EcuConnection::Connect(bool start_worker) {
  const Outcome identified = Identify(/*offer_update=*/true);
  if (identified != Outcome::kConnected) return identified;
  document_.ClearRestartMarker();
  if (start_worker && identified_hook_) identified_hook_();
  if (start_worker && !document_.StartWorker()) return Fail(kPortBusy);
  return Outcome::kConnected;
}

EcuConnection::Outcome EcuConnection::Identify(bool offer_update) {
  identity_ = {};
  failure_result_ = ModbusResult::kOk;
  ModbusSerialPort& link = document_.Link();
  if (!link.IsOpen() && !document_.OpenLink()) {
    document_.Post(CommStatus::kPortBusy);
    return Fail(kPortBusy);
  }
  EcuIdentity found;
  if (const auto step = ReadBasicIdentification(link, found); !step.Ok()) return Fail(step);
  StorePort();
  if (const auto step = ReadModel(link, found); !step.Ok()) return Fail(step);
  if (found.bootloader) {
    identity_ = found;
    return EnterBootloader();
  }
  if (const auto step = ReadVersions(link, found); !step.Ok()) return Fail(step);
  identity_ = found;
  KeepIdentity();
  const Gate gate = CheckVersion(offer_update);
  if (gate.outcome != Outcome::kConnected) return gate.outcome;
  // The ECU may be another one than before the update that was offered.
  if (gate.identify_again) return Identify(/*offer_update=*/false);
  if (const auto step = ReadSerialNumber(link, identity_); !step.Ok()) return Fail(step);
  ForgetAnotherEcu();
  KeepIdentity();
  if (const auto step = ReadBoardInformation(link, identity_); !step.Ok()) {
    return Fail(step);
  }
  return Outcome::kConnected;
}

void EcuConnection::Disconnect() {
  document_.StopWorker();
  document_.Link().Close();
  identity_ = {};
}

EcuConnection::Outcome EcuConnection::Fail(FixedText message) {
  document_.Link().Close();
  boxes_.Inform(message, MessageIcon::kError);
  return Outcome::kFailed;
}

EcuConnection::Outcome EcuConnection::Fail(const IdentifyOutcome& step) {
  failure_result_ = step.result;
  return Fail(step.message);
}

EcuConnection::Outcome EcuConnection::StartUpdate(bool in_bootloader) {
  if (update_.Start(in_bootloader) != FirmwareUpdate::End::kUpdated) {
    return Outcome::kFirmwareUpdate;
  }
  return Identify(/*offer_update=*/false);
}

void EcuConnection::StorePort() {
  const ModbusSerialPort& link = document_.Link();
  // Next time the person means the car's.
  if (link.PortName() == kSimulatedPortName) return;
  Settings(settings_).SetPort(link.PortName().empty() ? "COM" + std::to_string(link.PortNumber())
                                                      : link.PortName());
}

EcuConnection::Outcome EcuConnection::EnterBootloader() {
  // Without it the bootloader starts the application after a while. Whether it has taken it shows
  // when the update prepares the link.
  static_cast<void>(document_.Link().WriteSingleCoil(ECU_SLAVE_ADDRESS, kStayInBootloaderCoil, 1));
  return StartUpdate(true);
}

void EcuConnection::ForgetAnotherEcu() {
  if (identity_.serial && identity_.serial == serial_) return;
  serial_ = identity_.serial;
  document_.ImageLock();
  document_.Image() = {};
  document_.ImageUnlock();
}

void EcuConnection::KeepIdentity() {
  document_.ImageLock();
  document_.Image().software = identity_.software;
  document_.Image().hardware = identity_.hardware;
  document_.Image().serial = identity_.serial;
  document_.ImageUnlock();
}

EcuConnection::Gate EcuConnection::CheckVersion(bool offer_update) {
  const Version found = identity_.software;
  if (found > kNewestSupported) return {Fail(kNewerFirmware)};
  const bool supported = found >= kOldestSupported;
  if (supported && (found.minor >= kWithoutOffer || !offer_update)) return {Outcome::kConnected};
  Message question = kObsoleteFirmware;
  if (!supported) {
    question.Append("\n",
                    {kVersionRequired, FormatVersion(found), FormatVersion(kOldestSupported)});
  }
  question.Append("\n", kReplaceQuestion);
  const bool update = boxes_.Ask(question);
  if (supported) {
    // With a firmware that still works the connection goes on either way.
    if (update && update_.Start(false) == FirmwareUpdate::End::kNotRunning) {
      return {Outcome::kFirmwareUpdate};
    }
    return {.outcome = Outcome::kConnected, .identify_again = update};
  }
  if (update) return {StartUpdate(false)};
  document_.Link().Close();
  return {Outcome::kDeclined};
}

}  // namespace zelorgas
