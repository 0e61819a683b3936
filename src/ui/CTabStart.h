// The start page: the serial ports, which follow plugging and unplugging, connecting and
// disconnecting, the language, and who is on the line.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <memory>

#include "ui/CEcuCard.h"
#include "ui/PostBox.h"
#include "ui/UiContext.h"

namespace zelorgas {

class CTabStart final : public QWidget {
  Q_OBJECT

 public:
  explicit CTabStart(UiContext& context, QWidget* parent = nullptr);
  ~CTabStart() override;

  // Connects to the selected port, or disconnects.
  void ToggleConnection();
  // Opens the firmware update on the selected port; nothing happens when none is.
  void UpdateFirmware();
  // Selects the port `name` in the list.
  void SelectPort(std::string_view name);

 signals:
  // The person has chosen another language and seen the notice.
  void RestartRequested();

 protected:
  // The watcher's post box has something.
  void customEvent(QEvent* event) override;
  // Keeps the mouse wheel, meant for scrolling the page, from changing a list.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeConnectionCard();
  QWidget* MakeLanguageCard();
  void StartWatcher();
  void OnPortWatch(PortWatchEvent event);
  void ShowPorts();
  void ShowState();
  void ChooseLanguage(int entry);

  UiContext& context_;
  QComboBox* port_list_ = nullptr;
  QPushButton* connect_button_ = nullptr;
  QLabel* connection_hint_ = nullptr;
  QComboBox* language_list_ = nullptr;
  CEcuCard* ecu_card_ = nullptr;
  PostBox<PortWatchEvent> reports_;
  std::unique_ptr<PortWatcher> watcher_;  // its thread posts into reports_
  bool notice_open_ = false;
};

}  // namespace zelorgas
