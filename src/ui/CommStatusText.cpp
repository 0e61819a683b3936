#include "ui/CommStatusText.h"

#include <QCoreApplication>

namespace zelorgas {
namespace {

constexpr QRgb kYellow = 0xFFFFFF00;
constexpr QRgb kGreen = 0xFF00FF00;
constexpr QRgb kRed = 0xFFFF0000;

struct Words {
  Q_DECLARE_TR_FUNCTIONS(zelorgas::CommStatus)
};

}  // namespace

std::optional<CommStatusText> TextOfCommStatus(CommStatus status) {
  switch (status) {
    case CommStatus::kConnecting:
      return CommStatusText{Words::tr("Communication : Connecting..."), kYellow};
    case CommStatus::kLinkUp:
      return CommStatusText{Words::tr("Communication : Connection OK!"), kGreen};
    case CommStatus::kPortBusy:
      return CommStatusText{Words::tr("BUSY!"), kRed};
    case CommStatus::kNotConnected:
      return CommStatusText{Words::tr("Communication : Not connected!"), kRed};
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
      return Words::tr("The ECU does not answer yet. This page works again as soon as it does.");
    case CommStatus::kPortBusy:
      return Words::tr("The serial port is in use by another program.");
    case CommStatus::kNotConnected:
      return Words::tr("Not connected. Connect to the ECU on the Start page.");
    default:
      return {};
  }
}

}  // namespace zelorgas
