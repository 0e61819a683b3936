// The window in the states that the guide shows: the real one, in front of the simulated ECU with
// an engine that drives the same way every time. Each scene leaves its pictures in a folder.
// User-interface thread.
#pragma once

#include <QDir>
#include <QSize>
#include <QTimer>
#include <filesystem>
#include <functional>

#include "support/TemporaryFolder.h"
#include "ui/FastClock.h"
#include "ui/UiBench.h"

namespace zelorgas {

struct PictureOptions {
  QDir folder;
  QSize window{1200, 760};  // without the frame, in the units of the layout
  bool everything = false;  // also what the guide does not show
};

class GuideScenes {
 public:
  explicit GuideScenes(PictureOptions options);
  ~GuideScenes();
  GuideScenes(const GuideScenes&) = delete;
  GuideScenes& operator=(const GuideScenes&) = delete;

  // All of them; false when the window did not come to a state, or a picture could not be written.
  bool Run();
  // Names of pictures with a widget that has too little room for its text.
  [[nodiscard]] const QStringList& CutOff() const { return cut_off_; }

 private:
  static constexpr int kSpeed = 5;

  bool Connect();
  void ShowOscilloscope();
  void ShowPages();
  void ShowGrid();
  void ShowFiles();
  void ShowFirmware();
  void ShowHelp();
  void ShowLostLink();

  void PrepareEcu();
  void PrepareFiles();
  // Lets the live values go through `seconds` of the engine's time, a sample a tenth.
  void Drive(double from, double seconds, bool on_gas);
  void HoldEngine(double at);
  void OpenPage(int tab);
  // Runs `person` on the next dialog that opens over the window, then closes it.
  void InDialog(std::function<void(QWidget& dialog)> person);
  void Save(QWidget& widget, const QString& name);
  // False from now on when the window does not come to `condition`, which `what` names.
  void Await(const char* what, const std::function<bool()>& condition);

  const PictureOptions options_;
  const std::filesystem::path before_ = std::filesystem::current_path();
  TemporaryFolder folder_;
  FastClock clock_{kSpeed};
  UiBench bench_{clock_};
  QTimer dialog_timer_;
  QStringList cut_off_;
  bool good_ = true;
};

}  // namespace zelorgas
