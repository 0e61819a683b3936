// The window's only way to the ECU: connecting, disconnecting and every procedure that talks to it
// run here, one after the other, on the user-interface thread.
//
// A procedure waits in slices and dispatches events in between. A handler that runs then and wants
// the ECU for itself only queues its wish here; it comes true when the procedure has ended.
#pragma once

#include <QObject>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <utility>

#include "app/ClpgecuDoc.h"
#include "app/EcuConnection.h"
#include "app/LinkCounters.h"
#include "app/MessageBoxes.h"
#include "platform/SettingsStore.h"

namespace zelorgas {

class CEcuControl final : public QObject {
  Q_OBJECT

 public:
  enum class State : std::uint8_t { kDisconnected, kConnecting, kConnected, kDisconnecting };
  Q_ENUM(State)
  using Task = std::function<void()>;

  // All outlive the control.
  CEcuControl(ClpgecuDoc& document, MessageBoxes& boxes, SettingsStore& settings,
              FirmwareUpdate& update, LinkCounters& counters);
  // Disconnects.
  ~CEcuControl() override;

  [[nodiscard]] State CurrentState() const { return state_; }
  // True while the firmware update has the port; the state is then that of a connection's
  // beginning.
  [[nodiscard]] bool Updating() const { return updating_; }
  // True while a procedure runs; buttons that would start another are disabled then.
  [[nodiscard]] bool Busy() const { return busy_; }
  // Of the last connection attempt, as far as the ECU said it; empty texts after a disconnection.
  [[nodiscard]] const EcuIdentity& Identity() const { return connection_.Identity(); }
  // As the person knows it; empty when none was ever opened.
  [[nodiscard]] const QString& PortText() const { return port_text_; }

  // Opens the port `name`, which the person knows as `text`, and identifies the ECU; nothing
  // happens when connected. Returns after all that is queued has run.
  void Connect(const std::string& name, const QString& text);
  void Disconnect();
  // Opens the firmware update on that port, the one of the connection when there is one. Afterwards
  // connects if the ECU has its new firmware, or was connected and left alone.
  void UpdateFirmware(const std::string& name, const QString& text);
  // The worker reads everything once more.
  void Refresh() { document_.RequestRefresh(); }
  // The ECU has restarted: tells the person and writes the configuration back.
  void SynchronizeAfterRestart();

  // What the window wants from an ECU that has just been identified, before the polling begins.
  void SetIdentifiedHook(Task hook) { connection_.SetIdentifiedHook(std::move(hook)); }

  // Another ECU answers than was connected to: connects to that one, with all that belongs to it.
  void ConnectAnew();

  // Runs `task`, which may use the ECU, as soon as no procedure runs: now, or later on this thread.
  void Run(Task task);
  // Runs what is meant for the ECU of this connection, such as an edit: never when that connection
  // has ended meanwhile, be it that another has begun. `RunLaterOnThisEcu` leaves what the person
  // does time to end, such as a field to close, and does nothing once `asker` has gone.
  void RunOnThisEcu(Task task) { Run(ForThisEcu(std::move(task))); }
  void RunLaterOnThisEcu(QObject* asker, Task task);
  // The same for what must not hold up a procedure, such as a message box, and leaves the ECU
  // alone.
  void WhenIdle(Task task);

 signals:
  void StateChanged();
  void BusyChanged(bool busy);
  // The ECU has another configuration than before: a stored one was written, in part perhaps, or it
  // came with a new firmware. Emitted by who did it.
  void ConfigurationLoaded();

 private:
  void SetState(State state);
  void SetBusy(bool busy);
  [[nodiscard]] Task ForThisEcu(Task task);
  void RunQueued();
  void ConnectNow(const std::string& name, const QString& text);
  void DisconnectNow();
  void UpdateNow(const std::string& name, const QString& text);
  // Shows that `name` is being connected to and makes it the link's port.
  void BeginOn(const std::string& name, const QString& text);
  void SynchronizeNow();

  ClpgecuDoc& document_;
  MessageBoxes& boxes_;
  LinkCounters& counters_;
  FirmwareUpdate& update_;
  EcuConnection connection_;

  State state_ = State::kDisconnected;
  bool updating_ = false;
  std::uint64_t connections_ = 0;  // those that succeeded
  bool busy_ = false;
  std::string port_name_;
  QString port_text_;
  std::deque<Task> tasks_;
  std::deque<Task> idle_tasks_;
};

}  // namespace zelorgas
