#include "ui/CStatusLine.h"

#include <QHBoxLayout>

#include "ui/CommStatusText.h"
#include "ui/IdentityText.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kQualityMs = 1000;

}  // namespace

CStatusLine::CStatusLine(UiContext& context, QWidget* parent) : QWidget(parent), context_(context) {
  setObjectName("status_line");
  setAccessibleName(tr("Status"));
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(6, 2, 0, 2);
  layout->setSpacing(fontMetrics().height() * 2 / 3);

  badge_ = new CStatusBadge(this);
  badge_->setObjectName("communication_state");
  badge_->setToolTip(tr("State of the link to the ECU"));
  layout->addWidget(badge_);
  message_ = AddField("status_message", tr("Message"), {});
  layout->setStretchFactor(message_, 1);
  message_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  port_ = AddField("status_port", tr("Serial port"), tr("Serial port"));
  firmware_ = AddField("status_firmware", tr("Firmware version"), tr("Firmware version"));
  serial_ = AddField("status_serial", tr("Serial number"), tr("Serial number of the ECU"));
  quality_ = AddField("status_quality", tr("Line quality"),
                      tr("Requests sent, failed ones, rounds of polling a second"));
  if (context_.administrator) {
    auto* const admin = AddField("status_administrator", tr("Administrator mode"), {});
    admin->SetText(tr("Administrator"));
  }

  quality_timer_.setInterval(kQualityMs);
  connect(&quality_timer_, &QTimer::timeout, this, &CStatusLine::ShowQuality);
  connect(&context_.control, &CEcuControl::StateChanged, this, &CStatusLine::ShowConnection);
  ShowLinkState(CommStatus::kNotConnected);
  ShowConnection();
}

CElidedLabel* CStatusLine::AddField(const QString& object_name, const QString& accessible_name,
                                    const QString& tooltip) {
  auto* const field = new CElidedLabel(this);
  field->setObjectName(object_name);
  field->SetCaption(accessible_name, tooltip);
  layout()->addWidget(field);
  return field;
}

void CStatusLine::ShowLinkState(CommStatus status) {
  if (const auto shown = TextOfCommStatus(status)) badge_->Show(shown->text, shown->colour);
  GiveRoom();
}

void CStatusLine::ShowMessage(const QString& text) {
  message_->SetText(text);
  GiveRoom();
}

void CStatusLine::DropMessage(const QString& text) {
  if (message_->text() == text) ShowMessage({});
}

void CStatusLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  GiveRoom();
}

// A message is shown whole, and the state of the link always is: what matters less goes before
// either is cut off.
void CStatusLine::GiveRoom() {
  const bool silent = message_->text().isEmpty();
  const QMargins margins = layout()->contentsMargins();
  int room = width() - margins.left() - margins.right() - badge_->sizeHint().width();
  if (!silent) room -= message_->sizeHint().width();
  for (CElidedLabel* const field : {port_, firmware_, serial_, quality_}) {
    const QSize wanted = silent ? field->minimumSizeHint() : field->sizeHint();
    room -= wanted.width() + layout()->spacing();
    field->setVisible(room >= layout()->spacing());
  }
}

void CStatusLine::ShowConnection() {
  using State = CEcuControl::State;
  const State state = context_.control.CurrentState();
  if (state == State::kConnecting && !context_.control.Updating()) {
    ShowMessage(tr("Connecting on %1...").arg(context_.control.PortText()));
  }
  if (state == State::kDisconnecting) ShowMessage(tr("Disconnecting..."));
  if (state == State::kConnected || state == State::kDisconnected) ShowMessage({});
  const bool connected = state == State::kConnected;
  const EcuIdentity& identity = context_.control.Identity();
  port_->SetText(state == State::kDisconnected ? kNoValue : context_.control.PortText());
  firmware_->SetText(connected ? tr("Firmware %1").arg(VersionText(identity.software)) : kNoValue);
  serial_->SetText(connected ? SerialText(identity) : kNoValue);
  ShowQuality();
  GiveRoom();
  if (connected) {
    quality_timer_.start();
  } else {
    quality_timer_.stop();
  }
}

void CStatusLine::ShowQuality() {
  if (context_.control.CurrentState() != CEcuControl::State::kConnected) {
    quality_->SetText(kNoValue);
    return;
  }
  const LineQuality quality = context_.counters.Quality();
  quality_->SetText(tr("%1 sent, %2 failed, %3/s")
                        .arg(quality.transactions)
                        .arg(quality.failures)
                        .arg(quality.rounds_per_second, 0, 'f', 1));
}

}  // namespace zelorgas
