#include "ui/CTabDiagnostics.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <limits>

#include "config/StoragePaths.h"
#include "config/Utf8Text.h"
#include "platform/FileSystem.h"
#include "ui/Buttons.h"
#include "ui/CCaption.h"
#include "ui/CFileDlg.h"
#include "ui/ScopePoints.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

// Bright colours on dark, as on an instrument's screen; the channels' colours are made for it.
constexpr QColor kScreen{24, 26, 30};
constexpr QColor kScreenText{214, 214, 214};
// The vertical axis keeps still: it shows at least this, and grows in whole steps.
constexpr double kLeastTop = 20;
constexpr double kStep = 5;
constexpr int kNoteLines = 3;
// The notes of a person are far shorter; a page of more than this is slow to lay out.
constexpr std::size_t kLongestNotes = 20'000;  // bytes
constexpr std::size_t kMostNoteLines = 1000;

// A name that does not end in one of the types gets the ending of the one that is chosen: what
// stands behind another point belongs to the name.
QString WithEnding(const QString& file, const QString& chosen_type) {
  for (const char* const ending : {".png", ".pdf", ".csv"}) {
    if (file.endsWith(ending, Qt::CaseInsensitive)) return file;
  }
  const qsizetype point = chosen_type.lastIndexOf("*.") + 1;
  return file + chosen_type.mid(point, chosen_type.lastIndexOf(')') - point);
}

QPalette ScreenPalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, kScreen);
  palette.setColor(QPalette::Base, kScreen);
  palette.setColor(QPalette::WindowText, kScreenText);
  palette.setColor(QPalette::Text, kScreenText);
  return palette;
}

}  // namespace

CTabDiagnostics::CTabDiagnostics(UiContext& context, Oscilloscope& oscilloscope, QWidget* parent)
    : CEcuPage(parent),
      context_(context),
      oscilloscope_(oscilloscope),
      folder_(StorageRoot(WorkingFolder())) {
  setObjectName("oscilloscope_page");
  setAccessibleName(tr("Oscilloscope"));
  plot_ = new CPlot("scope_plot", tr("Graph of the live signals"), this);
  plot_->setPalette(ScreenPalette());
  plot_->SetAxisTitles(tr("Seconds before the newest sample"), QString());
  plot_->SetCursorStep(kScopeSamplePeriodSeconds);
  for (const ScopeChannelInfo& info : ScopeChannelTable()) {
    plot_->AddCurve(ToQString(info.name), QColor(info.red, info.green, info.blue));
  }
  notes_ = new QPlainTextEdit(this);
  notes_->setObjectName("scope_notes");
  notes_->setAccessibleName(tr("Notes"));
  notes_->setPlaceholderText(tr("Notes to this recording"));
  notes_->setTabChangesFocus(true);
  notes_->setFixedHeight(fontMetrics().lineSpacing() * kNoteLines + 2 * fontMetrics().descent() +
                         2 * notes_->frameWidth() + 8);
  auto* const graph = new QHBoxLayout;
  graph->addWidget(plot_, 1);
  graph->addWidget(MakeChannels());
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  rows_ = layout;
  layout->addWidget(MakeTools());
  layout->addLayout(graph, 1);
  layout->addWidget(notes_);
  connect(plot_, &CPlot::PointedAt, this, &CTabDiagnostics::ReadOutAt);
  connect(notes_, &QPlainTextEdit::textChanged, this,
          [this] { oscilloscope_.SetNotes(notes_->toPlainText().toStdString()); });
  ShowNotes();
  ShowControls();
}

QWidget* CTabDiagnostics::MakeTools() {
  auto* const tools = new QWidget(this);
  auto* const layout = new QHBoxLayout(tools);
  layout->setContentsMargins(0, 0, 0, 0);
  const auto button = [&](const char* name, const QString& text, const QString& tip) {
    QPushButton* const made = MakeButton(name, text, tools);
    made->setToolTip(tip);
    layout->addWidget(made);
    return made;
  };
  run_ = button("scope_run", tr("&Stop"), {});
  run_->setMinimumWidth(std::max(run_->minimumWidth(), fontMetrics().averageCharWidth() * 12));
  auto* const label = new QLabel(tr("Ti&me span"), tools);
  span_ = new CTimeSpin(tools);
  span_->setObjectName("scope_span");
  span_->setAccessibleName(tr("Time span"));
  span_->setToolTip(tr("How much time the graph shows; up doubles it, down halves it"));
  label->setBuddy(span_);
  layout->addSpacing(fontMetrics().height());
  layout->addWidget(label);
  layout->addWidget(span_);
  layout->addStretch(1);
  tools_ = layout;
  hint_ = new QLabel(tr("Mouse or arrow keys: read out. Wheel or + -: zoom. Drag: move."), this);
  hint_->setObjectName("scope_hint");
  hint_->setMinimumWidth(1);
  const QPushButton* const save =
      button("scope_save", tr("S&ave..."), tr("Saves the recording and its notes to a file"));
  const QPushButton* const load =
      button("scope_load", tr("&Load..."), tr("Shows a saved recording in place of this one"));
  const QPushButton* const save_as =
      button("scope_export", tr("E&xport..."),
             tr("Saves the graph as a picture, or the values for a spreadsheet"));
  tools_width_ = layout->sizeHint().width();
  connect(run_, &QPushButton::clicked, this, &CTabDiagnostics::RunOrStop);
  connect(span_, &CTimeSpin::Stepped, this, &CTabDiagnostics::StepSpan);
  connect(save, &QPushButton::clicked, this, &CTabDiagnostics::AskForFileToSave);
  connect(load, &QPushButton::clicked, this, &CTabDiagnostics::AskForFileToLoad);
  connect(save_as, &QPushButton::clicked, this, &CTabDiagnostics::AskForExport);
  return tools;
}

// The hint stands among the tools, or below them where they leave it no room.
void CTabDiagnostics::resizeEvent(QResizeEvent* event) {
  CEcuPage::resizeEvent(event);
  constexpr int kAfterSpan = 4;
  const int space = fontMetrics().height();
  const bool beside = tools_width_ + 2 * space + hint_->sizeHint().width() <= width();
  hint_->setIndent(beside ? space : 0);
  if (beside) {
    tools_->insertWidget(kAfterSpan, hint_);
  } else {
    rows_->insertWidget(1, hint_);
  }
}

QWidget* CTabDiagnostics::MakeChannels() {
  auto* const side = new QWidget(this);
  auto* const layout = new QVBoxLayout(side);
  // At the right, too, where the page may have its scroll bar.
  layout->setContentsMargins(fontMetrics().height() / 2, 0, fontMetrics().height() / 2, 0);
  place_ = new CCaption({}, side);
  place_->setObjectName("scope_place");
  layout->addWidget(place_);
  for (std::size_t i = 0; i < kScopeChannels; ++i) {
    auto* const row = new CChannelRow(static_cast<ScopeChannel>(i), side);
    const bool shown =
        context_.store.ReadInteger(kSettingsSection, ScopeChannelTable()[i].name, 1) != 0;
    row->SetShown(shown);
    plot_->ShowCurve(i, shown);
    connect(row, &CChannelRow::Toggled, this, [this, i](bool on) { ToggleChannel(i, on); });
    layout->addWidget(row);
    channels_[i] = row;
  }
  layout->addStretch(1);
  return side;
}

void CTabDiagnostics::ShowImage() {
  const EcuImage image = context_.document.Snapshot();
  for (std::size_t i = 0; i < kScopeChannels; ++i) {
    channels_[i]->SetPresent(IsScopeChannelPresent(image, static_cast<ScopeChannel>(i)));
  }
  ShowTraces();
}

void CTabDiagnostics::ShowLive() {
  if (!oscilloscope_.Recording()) return;
  ShowReadOut();
  // Samples that move the graph by less than a pixel can wait for the next.
  const auto undrawn = static_cast<double>(oscilloscope_.Changes() - drawn_);
  const double sample_width =
      plot_->width() * kScopeSamplePeriodSeconds / oscilloscope_.SpanSeconds();
  if (undrawn * sample_width >= 1) ShowTraces();
}

void CTabDiagnostics::ShowTraces() {
  if (held_) return;
  drawn_ = oscilloscope_.Changes();
  // A graph that can be zoomed has every sample.
  const int columns = oscilloscope_.Recording() ? plot_->width() : std::numeric_limits<int>::max();
  double bottom = 0;
  double top = kLeastTop;
  for (std::size_t i = 0; i < kScopeChannels; ++i) {
    const ScopePoints points =
        PointsOf(oscilloscope_.Samples(static_cast<ScopeChannel>(i)), kScopeSamplePeriodSeconds,
                 oscilloscope_.SpanSeconds(), columns);
    plot_->SetPoints(i, points.seconds, points.values);
    if (!channels_[i]->IsShown() || points.values.isEmpty()) continue;
    const auto [low, high] = std::ranges::minmax(points.values);
    bottom = std::min(bottom, std::floor(low / kStep) * kStep);
    top = std::max(top, std::ceil(high / kStep) * kStep);
  }
  plot_->SetRange(0, oscilloscope_.SpanSeconds(), bottom, top);
  ShowReadOut();
}

void CTabDiagnostics::ShowReadOut() {
  const double seconds = cursor_.value_or(0);
  const auto values = oscilloscope_.ReadOut(seconds);
  for (std::size_t i = 0; i < kScopeChannels; ++i) channels_[i]->SetValue(values[i]);
  place_->setText(cursor_ ? tr("%1 s before the newest").arg(seconds, 0, 'f', 1)
                          : tr("Newest sample"));
}

void CTabDiagnostics::ShowControls() {
  const bool recording = oscilloscope_.Recording();
  run_->setText(recording ? tr("&Stop") : tr("&Run"));
  run_->setToolTip(recording ? tr("Stops recording; the graph can then be zoomed and read out")
                             : tr("Goes on recording"));
  hint_->setVisible(!recording);
  const bool can_double = oscilloscope_.TimeScale() < Oscilloscope::kLargestTimeScale;
  const bool can_halve = oscilloscope_.TimeScale() > Oscilloscope::kSmallestTimeScale;
  span_->ShowSpan(oscilloscope_.SpanSeconds(), can_double, can_halve);
  plot_->SetDivisions(oscilloscope_.MajorDivisionSeconds(), oscilloscope_.MinorDivisionSeconds());
  plot_->SetInteractive(!recording);
}

void CTabDiagnostics::RunOrStop() {
  oscilloscope_.SetRecording(!oscilloscope_.Recording());
  cursor_.reset();
  plot_->SetCursor(cursor_);
  ShowControls();
  ShowTraces();
}

void CTabDiagnostics::StepSpan(int steps) {
  for (; steps > 0; --steps) oscilloscope_.StretchTime();
  for (; steps < 0; ++steps) oscilloscope_.ShrinkTime();
  if (cursor_ && *cursor_ > oscilloscope_.SpanSeconds()) {
    cursor_.reset();
    plot_->SetCursor(cursor_);
  }
  ShowControls();
  ShowTraces();
}

void CTabDiagnostics::ToggleChannel(std::size_t channel, bool shown) {
  plot_->ShowCurve(channel, shown);
  // Where it cannot be kept it is shown all the same.
  static_cast<void>(context_.store.WriteInteger(kSettingsSection, ScopeChannelTable()[channel].name,
                                                shown ? 1 : 0));
  ShowTraces();
}

void CTabDiagnostics::ReadOutAt(double seconds) {
  if (oscilloscope_.Recording()) return;
  // On the sample that is read out.
  const double place = std::clamp(seconds, 0.0, oscilloscope_.SpanSeconds());
  cursor_ = std::round(place / kScopeSamplePeriodSeconds) * kScopeSamplePeriodSeconds;
  plot_->SetCursor(cursor_);
  ShowReadOut();
}

void CTabDiagnostics::ShowNotes() {
  const std::string& notes = oscilloscope_.Notes();
  const std::string shown = Shortened(notes, kLongestNotes, kMostNoteLines);
  const bool whole = shown == notes;
  QString text = ToQString(shown);
  if (!whole) {
    text.prepend('[' + tr("Too long to be shown whole; saving keeps all of it.") + "]\n");
  }
  const QSignalBlocker quiet(notes_);
  notes_->setPlainText(text);
  // An edit would take the place of what is not shown.
  notes_->setReadOnly(!whole);
}

bool CTabDiagnostics::Save(const ScopeSnapshot& seen, const std::filesystem::path& file) {
  if (!SaveRecording(oscilloscope_, seen, file, context_.boxes)) return false;
  folder_ = file.parent_path();
  emit FileUsed(ToQString(PathText(file)));
  return true;
}

RecordingLoad CTabDiagnostics::Load(const std::filesystem::path& file) {
  const RecordingLoad load = LoadRecording(oscilloscope_, file, context_.boxes);
  if (load == RecordingLoad::kDeclined || load == RecordingLoad::kFailed) return load;
  folder_ = file.parent_path();
  cursor_.reset();
  plot_->SetCursor(cursor_);
  ShowNotes();
  ShowControls();
  ShowTraces();
  emit FileUsed(ToQString(PathText(file)));
  return load;
}

bool CTabDiagnostics::Export(const ScopeTraces& seen, const QString& file) {
  const QString ending = QFileInfo(file).suffix().toLower();
  const std::string bytes =
      ending == "csv" ? RecordingCsv(seen) : plot_->Picture(ending).toStdString();
  Message reason;
  const bool done =
      !bytes.empty() && WriteWholeFile(PathFromText(file.toStdString()), bytes, reason);
  const QString text = done ? tr("%1 has been written.") : tr("%1 could not be written.");
  Message said = ToMessage(text.arg(file));
  if (!reason.empty()) said.Append("\n", reason);
  if (done) {
    context_.boxes.Status(said);
  } else {
    context_.boxes.Inform(said, MessageIcon::kError);
  }
  return done;
}

void CTabDiagnostics::AskForFileToSave() {
  // More arrives while the file is named.
  const ScopeSnapshot seen = oscilloscope_.Snapshot();
  CFileDlg dialog(CFileDlg::Purpose::kSave, tr("Save the recording"), StorageRoot(WorkingFolder()),
                  std::string(kRecordingExtension), this);
  dialog.SelectFolder(folder_);
  if (dialog.exec() == QDialog::Accepted) Save(seen, dialog.File());
}

void CTabDiagnostics::AskForFileToLoad() {
  CFileDlg dialog(CFileDlg::Purpose::kOpen, tr("Load a recording"), StorageRoot(WorkingFolder()),
                  std::string(kRecordingExtension), this);
  dialog.SelectFolder(folder_);
  if (dialog.exec() == QDialog::Accepted) Load(dialog.File());
}

void CTabDiagnostics::AskForExport() {
  QFileDialog dialog(this, tr("Export"));
  dialog.setObjectName("scope_export_dialog");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilters(
      {tr("Picture (*.png)"), tr("Document (*.pdf)"), tr("Comma-separated values (*.csv)")});
  // The dialog would ask about the name as it was typed.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  // What is exported is what was seen, as with a recording.
  const ScopeTraces seen = oscilloscope_.Traces();
  held_ = true;
  while (dialog.exec() == QDialog::Accepted) {
    const QString file =
        WithEnding(dialog.selectedFiles().constFirst(), dialog.selectedNameFilter());
    if (QFileInfo::exists(file) &&
        !context_.boxes.Ask(ToMessage(tr("%1 exists.\nDo you want to replace it?").arg(file)))) {
      continue;
    }
    Export(seen, file);
    break;
  }
  held_ = false;
  ShowTraces();
}

}  // namespace zelorgas
