// What a person does with a main window: presses its buttons, opens its pages, waits for what it
// says. User-interface thread.
#pragma once

#include <QLabel>
#include <QTabWidget>
#include <QTest>
#include <QWidget>
#include <functional>
#include <string>

namespace zelorgas {

class WindowUser {
 public:
  // The widget or action of that name; the test ends without it.
  template <typename T>
  [[nodiscard]] T& Find(const char* name) const {
    T* const found = Window().findChild<T*>(name);
    if (found == nullptr) qFatal("there is no %s", name);
    return *found;
  }
  [[nodiscard]] std::string Text(const char* label) const {
    return Find<QLabel>(label).text().toStdString();
  }
  void Click(const char* button) const {
    QTest::mouseClick(&Find<QWidget>(button), Qt::LeftButton);
  }
  void OpenTab(const QString& title) const {
    auto& tabs = Find<QTabWidget>("tabs");
    for (int tab = 0; tab < tabs.count(); ++tab) {
      if (tabs.tabText(tab) == title) tabs.setCurrentIndex(tab);
    }
    // A page that has just been made is shown by an event.
    QCoreApplication::processEvents();
  }
  // Runs the event loop until `condition` holds; false when it does not come to that.
  static bool WaitFor(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 60000);
  }
  [[nodiscard]] bool WaitForState(const char* text) const {
    return WaitFor([&] { return Text("communication_state") == text; });
  }

  static constexpr const char* kConnected = "Communication : Connection OK!";
  static constexpr const char* kConnecting = "Communication : Connecting...";
  static constexpr const char* kNotConnected = "Communication : Not connected!";

 protected:
  ~WindowUser() = default;

 private:
  [[nodiscard]] virtual QWidget& Window() const = 0;
};

}  // namespace zelorgas
