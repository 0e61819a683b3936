// The oscilloscope page: the twelve signals against time, which of them are shown, the time span,
// run and stop, notes, and the recording's way to files and pictures. While stopped the graph can
// be zoomed and moved, and pointing at it reads all channels out. User-interface thread.
#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "diag/Oscilloscope.h"
#include "diag/RecordingFile.h"
#include "ui/CChannelRow.h"
#include "ui/CEcuPage.h"
#include "ui/CPlot.h"
#include "ui/CTimeSpin.h"
#include "ui/UiContext.h"

namespace zelorgas {

class CTabDiagnostics final : public CEcuPage {
  Q_OBJECT

 public:
  CTabDiagnostics(UiContext& context, Oscilloscope& oscilloscope, QWidget* parent = nullptr);

  void ShowImage() override;
  void ShowLive() override;

  // The same as the buttons, with the file chosen; false when it was not done.
  bool Save(const std::filesystem::path& file) { return Save(oscilloscope_.Snapshot(), file); }
  RecordingLoad Load(const std::filesystem::path& file);
  // By its ending a picture, or comma-separated values.
  bool Export(const QString& file) { return Export(oscilloscope_.Traces(), file); }

 signals:
  // A recording was saved to this file or loaded from it.
  void FileUsed(const QString& file);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool Save(const ScopeSnapshot& seen, const std::filesystem::path& file);
  bool Export(const ScopeTraces& seen, const QString& file);
  [[nodiscard]] QWidget* MakeTools();
  [[nodiscard]] QWidget* MakeChannels();
  void RunOrStop();
  void StepSpan(int steps);
  void ToggleChannel(std::size_t channel, bool shown);
  void ReadOutAt(double seconds);
  void AskForFileToSave();
  void AskForFileToLoad();
  void AskForExport();
  void ShowControls();
  void ShowTraces();
  void ShowNotes();
  void ShowReadOut();

  UiContext& context_;
  Oscilloscope& oscilloscope_;
  CPlot* plot_;
  std::array<CChannelRow*, kScopeChannels> channels_{};
  QPushButton* run_ = nullptr;
  CTimeSpin* span_ = nullptr;
  QBoxLayout* rows_ = nullptr;
  QBoxLayout* tools_ = nullptr;
  int tools_width_ = 0;  // without the hint
  QLabel* hint_ = nullptr;
  QLabel* place_ = nullptr;
  QPlainTextEdit* notes_;
  std::optional<double> cursor_;  // seconds before the newest sample, while stopped
  std::filesystem::path folder_;
  std::uint64_t drawn_ = 0;  // the oscilloscope's changes when the graph was drawn
  bool held_ = false;        // the graph stands still
};

}  // namespace zelorgas
