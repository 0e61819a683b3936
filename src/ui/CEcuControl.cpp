#include "ui/CEcuControl.h"

#include <QCoreApplication>
#include <utility>

#include "app/PortSelection.h"
#include "app/RestartWriteBack.h"
#include "ui/SliceHook.h"
#include "ui/Text.h"

namespace zelorgas {

CEcuControl::CEcuControl(ClpgecuDoc& document, MessageBoxes& boxes, SettingsStore& settings,
                         FirmwareUpdate& update, LinkCounters& counters)
    : document_(document),
      boxes_(boxes),
      counters_(counters),
      update_(update),
      connection_(document, boxes, settings, update) {
  document_.SetSliceHook(MakeUiSliceHook());
  document_.Link().SetTraceSink(
      [&counters](const FrameTrace& trace) { counters.CountFrame(trace); });
}

CEcuControl::~CEcuControl() {
  connection_.Disconnect();
  document_.SetSliceHook({});
  document_.Link().SetTraceSink({});
}

void CEcuControl::Connect(const std::string& name, const QString& text) {
  Run([this, name, text] { ConnectNow(name, text); });
}

void CEcuControl::Disconnect() {
  Run([this] { DisconnectNow(); });
}

void CEcuControl::UpdateFirmware(const std::string& name, const QString& text) {
  Run([this, name, text] { UpdateNow(name, text); });
}

void CEcuControl::SynchronizeAfterRestart() {
  RunOnThisEcu([this] { SynchronizeNow(); });
}

void CEcuControl::ConnectAnew() {
  RunOnThisEcu([this] {
    DisconnectNow();
    ConnectNow(std::string(port_name_), QString(port_text_));
    if (state_ != State::kConnected) return;
    boxes_.Status(FixedText::Of("Another ECU has answered; the program is connected to it now."));
  });
}

void CEcuControl::Run(Task task) {
  tasks_.push_back(std::move(task));
  if (!busy_) RunQueued();
}

CEcuControl::Task CEcuControl::ForThisEcu(Task task) {
  return [this, connection = connections_, task = std::move(task)] {
    if (state_ == State::kConnected && connection == connections_) task();
  };
}

void CEcuControl::RunLaterOnThisEcu(QObject* asker, Task task) {
  QMetaObject::invokeMethod(
      asker, [this, mine = ForThisEcu(std::move(task))] { Run(mine); }, Qt::QueuedConnection);
}

void CEcuControl::WhenIdle(Task task) {
  if (!busy_) {
    task();
  } else {
    idle_tasks_.push_back(std::move(task));
  }
}

void CEcuControl::RunQueued() {
  SetBusy(true);
  while (!tasks_.empty()) {
    const Task task = std::move(tasks_.front());
    tasks_.pop_front();
    task();
    // What the person clicked during the procedure meets the buttons while they are disabled, so a
    // second impatient click on Connect does not disconnect.
    QCoreApplication::processEvents();
  }
  SetBusy(false);
  for (const Task& task : std::exchange(idle_tasks_, {})) task();
}

void CEcuControl::SetState(State state) {
  state_ = state;
  emit StateChanged();
}

void CEcuControl::SetBusy(bool busy) {
  busy_ = busy;
  emit BusyChanged(busy);
}

void CEcuControl::ConnectNow(const std::string& name, const QString& text) {
  if (state_ != State::kDisconnected) return;
  BeginOn(name, text);
  const EcuConnection::Outcome outcome = connection_.Connect();
  // An update that has been refused leaves the port open.
  if (outcome == EcuConnection::Outcome::kFirmwareUpdate) connection_.Disconnect();
  const bool connected = outcome == EcuConnection::Outcome::kConnected;
  if (connected) ++connections_;
  SetState(connected ? State::kConnected : State::kDisconnected);
}

void CEcuControl::BeginOn(const std::string& name, const QString& text) {
  port_name_ = name;
  port_text_ = text;
  counters_.Reset();
  SetState(State::kConnecting);
  SelectPort(document_.Link(), name);
}

void CEcuControl::UpdateNow(const std::string& name, const QString& text) {
  using End = FirmwareUpdate::End;
  const bool was_connected = state_ == State::kConnected;
  DisconnectNow();
  updating_ = true;
  BeginOn(name, text);
  End end = End::kNotRunning;
  if (document_.OpenLink()) {
    end = update_.Start(/*in_bootloader=*/false);
  } else {
    boxes_.Inform(kPortBusy, MessageIcon::kError);
  }
  connection_.Disconnect();
  updating_ = false;
  SetState(State::kDisconnected);
  if (end == End::kUpdated || (end == End::kUntouched && was_connected)) ConnectNow(name, text);
}

void CEcuControl::DisconnectNow() {
  if (state_ != State::kConnected) return;
  SetState(State::kDisconnecting);
  connection_.Disconnect();
  // What the worker said last belongs to this connection, not to the next.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  SetState(State::kDisconnected);
}

void CEcuControl::SynchronizeNow() {
  boxes_.Status(kRestartNotice);
  bool same = true;
  const ModbusResult result = WriteBackAfterRestart(document_, same);
  // The polling finds another ECU as well, and what follows says so.
  if (!same) return;
  if (result == ModbusResult::kOk) {
    boxes_.Status(FixedText::Of("The data have been synchronized."));
  } else {
    const Message problem{FixedText::Of("The data could not be synchronized: %1"),
                          document_.Link().ErrorText(result)};
    boxes_.Status(problem);
    WhenIdle([this, problem] { boxes_.Inform(problem, MessageIcon::kError); });
  }
}

}  // namespace zelorgas
