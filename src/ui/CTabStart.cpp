#include "ui/CTabStart.h"

#include <QEvent>
#include <QGridLayout>
#include <array>
#include <optional>

#include "ui/CCaption.h"
#include "ui/Fonts.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

// Each language's name in itself, for whoever does not understand the one that is shown.
constexpr std::array<const char*, kLanguageNames.size()> kOwnNames{"Български", "English"};

QLabel* MakeHint(QWidget* parent) {
  auto* const hint = new CCaption({}, parent);
  hint->setWordWrap(true);
  return hint;
}

}  // namespace

CTabStart::CTabStart(UiContext& context, QWidget* parent) : QWidget(parent), context_(context) {
  setObjectName("start_page");
  setAccessibleName(tr("Start"));
  ecu_card_ = new CEcuCard(this);
  auto* const grid = new QGridLayout;
  grid->setSpacing(fontMetrics().height() * 3 / 4);
  grid->addWidget(MakeConnectionCard(), 0, 0);
  grid->addWidget(MakeLanguageCard(), 1, 0);
  grid->addWidget(ecu_card_, 0, 1, 2, 1);
  grid->setRowStretch(2, 1);
  grid->setColumnStretch(0, 2);
  grid->setColumnStretch(1, 3);
  auto* const outer = new QVBoxLayout(this);
  outer->setContentsMargins(0, fontMetrics().height() / 2, 0, fontMetrics().height() / 2);
  outer->addLayout(grid);

  connect(&context_.control, &CEcuControl::StateChanged, this, &CTabStart::ShowState);
  connect(&context_.control, &CEcuControl::BusyChanged, this, &CTabStart::ShowState);
  port_list_->installEventFilter(this);
  language_list_->installEventFilter(this);
  ShowPorts();
  ShowState();
  StartWatcher();
}

CTabStart::~CTabStart() = default;

QWidget* CTabStart::MakeConnectionCard() {
  auto* const card = new CCard("connection_card", tr("Connection"), this);
  auto* const label = new QLabel(tr("Serial &port"), card);
  port_list_ = new QComboBox(card);
  port_list_->setObjectName("port_list");
  port_list_->setAccessibleName(tr("Serial port"));
  port_list_->setToolTip(tr("The serial port with the cable to the ECU"));
  port_list_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  port_list_->setMinimumContentsLength(16);
  label->setBuddy(port_list_);
  connect_button_ = new QPushButton(card);
  connect_button_->setObjectName("connect_button");
  connect_button_->setFont(Emphasized(connect_button_->font()));
  connect_button_->setMinimumHeight(connect_button_->fontMetrics().height() * 2);
  connect_button_->setAutoDefault(true);
  connection_hint_ = MakeHint(card);
  connection_hint_->setObjectName("connection_hint");
  card->Body().addWidget(label);
  card->Body().addWidget(port_list_);
  card->Body().addWidget(connect_button_);
  card->Body().addWidget(connection_hint_);
  connect(port_list_, &QComboBox::activated, this, [this](int index) {
    static_cast<void>(context_.ports.Select(static_cast<std::size_t>(index)));
    ShowState();
  });
  connect(connect_button_, &QPushButton::clicked, this, &CTabStart::ToggleConnection);
  return card;
}

QWidget* CTabStart::MakeLanguageCard() {
  auto* const card = new CCard("language_card", tr("Language"), this);
  language_list_ = new QComboBox(card);
  language_list_->setObjectName("language_list");
  language_list_->setAccessibleName(tr("Language"));
  language_list_->setToolTip(tr("Language of the program"));
  for (std::size_t i = 0; i < kLanguageNames.size(); ++i) {
    const QString own_name(kOwnNames[i]);
    const QString name = TranslatedMessage(kLanguageNames[i]);
    language_list_->addItem(name == own_name ? name : own_name + " (" + name + ")");
  }
  language_list_->setCurrentIndex(static_cast<int>(LanguageEntry(context_.settings.Language())));
  auto* const hint = MakeHint(card);
  hint->setText(tr("Another language takes effect when the program has been restarted."));
  card->Body().addWidget(language_list_);
  card->Body().addWidget(hint);
  connect(language_list_, &QComboBox::activated, this, &CTabStart::ChooseLanguage);
  return card;
}

void CTabStart::StartWatcher() {
  reports_.SetReceiver(this);
  watcher_ = context_.watch_ports([this](PortWatchEvent event) { reports_.Post(event); });
}

void CTabStart::customEvent(QEvent*) {
  for (const PortWatchEvent report : reports_.TakeAll()) OnPortWatch(report);
}

bool CTabStart::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel) return QWidget::eventFilter(watched, event);
  event->ignore();
  return true;
}

void CTabStart::OnPortWatch(PortWatchEvent event) {
  const bool connected = context_.control.CurrentState() != CEcuControl::State::kDisconnected;
  const std::optional<PortNotice> notice = context_.ports.OnWatchEvent(event, connected);
  ShowPorts();
  ShowState();
  // One box at a time: a plug with a bad contact would pile them up.
  if (!notice || notice_open_) return;
  notice_open_ = true;
  context_.control.WhenIdle([this, notice = *notice] {
    context_.boxes.Inform(notice.text, notice.icon);
    notice_open_ = false;
  });
}

void CTabStart::SelectPort(std::string_view name) {
  context_.ports.Select(name);
  ShowPorts();
  ShowState();
}

void CTabStart::ToggleConnection() {
  if (context_.control.Busy()) return;
  if (context_.control.CurrentState() == CEcuControl::State::kConnected) {
    context_.control.Disconnect();
  } else if (port_list_->currentIndex() >= 0) {
    context_.control.Connect(context_.ports.SelectedName(), port_list_->currentText());
  }
}

void CTabStart::UpdateFirmware() {
  if (context_.control.Busy()) return;
  // The port of a connection may have left the list.
  if (context_.control.CurrentState() == CEcuControl::State::kConnected) {
    context_.control.UpdateFirmware(context_.ports.SelectedName(), context_.control.PortText());
  } else if (port_list_->currentIndex() >= 0) {
    context_.control.UpdateFirmware(context_.ports.SelectedName(), port_list_->currentText());
  }
}

void CTabStart::ShowPorts() {
  port_list_->clear();
  for (const PortEntry& port : context_.ports.Entries())
    port_list_->addItem(TranslatedMessage(port.text));
  const std::optional<std::size_t> selected = context_.ports.Selected();
  const QString name = ToQString(context_.ports.SelectedName());
  port_list_->setPlaceholderText(name.isEmpty() ? tr("Choose a port")
                                                : tr("%1 (not plugged in)").arg(name));
  port_list_->setCurrentIndex(selected ? static_cast<int>(*selected) : -1);
}

void CTabStart::ShowState() {
  using State = CEcuControl::State;
  const State state = context_.control.CurrentState();
  const bool idle = !context_.control.Busy();
  const bool disconnected = state == State::kDisconnected;
  const bool has_port = port_list_->currentIndex() >= 0;
  port_list_->setEnabled(idle && disconnected);
  language_list_->setEnabled(idle);
  connect_button_->setEnabled(idle && (!disconnected || has_port));
  const QString caption =
      disconnected || state == State::kConnecting ? tr("Connect") : tr("Disconnect");
  connect_button_->setText(caption);
  connect_button_->setAccessibleName(caption);
  connect_button_->setToolTip(disconnected ? tr("Opens the port and identifies the ECU")
                                           : tr("Ends the connection to the ECU"));
  switch (state) {
    case State::kConnecting:
      connection_hint_->setText(context_.control.Updating() ? tr("Firmware update...")
                                                            : tr("Identifying the ECU..."));
      break;
    case State::kDisconnecting:
      connection_hint_->setText(tr("Ending the connection..."));
      break;
    case State::kConnected:
      connection_hint_->setText(tr("Connected on %1.").arg(context_.control.PortText()));
      break;
    case State::kDisconnected:
      connection_hint_->setText(has_port ? tr("Switch the ignition on, then connect.")
                                         : tr("Plug the adapter in, or choose another port."));
      break;
  }
  if (state == State::kConnected) {
    ecu_card_->Show(context_.control.Identity());
  } else {
    ecu_card_->Clear();
  }
}

void CTabStart::ChooseLanguage(int entry) {
  // The one that is chosen already.
  if (entry == static_cast<int>(LanguageEntry(context_.settings.Language()))) return;
  if (!context_.settings.ChooseLanguage(entry)) return;
  context_.boxes.Inform(kLanguageNotice, MessageIcon::kInformation);
  emit RestartRequested();
}

}  // namespace zelorgas
