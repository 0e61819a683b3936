#include "ui/CommStatusText.h"

#include <QCoreApplication>

namespace zelorgas {
namespace {

constexpr QRgb kYellow = 0xFFFFFF00;
constexpr QRgb kGreen = 0xFF00FF00;
constexpr QRgb kRed = 0xFFFF0000;

QString Tr(const char* text) { return QCoreApplication::translate("CommStatus", text); }

}  // namespace

std::optional<CommStatusText> TextOfCommStatus(CommStatus status) {
  switch (status) {
    case CommStatus::kConnecting:
      return CommStatusText{Tr("Communication : Connecting..."), kYellow};
    case CommStatus::kLinkUp:
      return CommStatusText{Tr("Communication : Connection OK!"), kGreen};
    case CommStatus::kPortBusy:
      return CommStatusText{Tr("BUSY!"), kRed};
    case CommStatus::kNotConnected:
      return CommStatusText{Tr("Communication : Not connected!"), kRed};
    case CommStatus::kLiveData:
    case CommStatus::kFullRead:
    case CommStatus::kEcuRestarted:
    case CommStatus::kAnotherEcu:
      break;
  }
  return std::nullopt;
}

QString WhyPagesAreDisabled(CommStatus status) {
  switch (status) {
    case CommStatus::kConnecting:
      return Tr("The ECU does not answer yet. This page works again as soon as it does.");
    case CommStatus::kPortBusy:
      return Tr("The serial port is in use by another program.");
    case CommStatus::kNotConnected:
      return Tr("Not connected. Connect to the ECU on the Start page.");
    default:
      return {};
  }
}

}  // namespace zelorgas
