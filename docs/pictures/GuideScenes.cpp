#include "GuideScenes.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <semaphore>
#include <utility>

#include "config/ConfigurationFile.h"
#include "config/Parameters.h"
#include "config/StoragePaths.h"
#include "platform/FileSystem.h"
#include "sim/EngineModel.h"
#include "ui/CElidedLabel.h"
#include "ui/CGridTable.h"
#include "ui/CGuideWindow.h"
#include "ui/CPlot.h"
#include "ui/CTabFiles.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

// The pages in the order of their tabs.
enum Tab : int { kStart, kConfiguration, kGrid, kThrottle, kScope, kErrors, kFiles };

constexpr double kChangeOverCelsius = 30;
constexpr double kWarmSeconds = 279;  // then it runs steadily on gas
constexpr double kSampleSeconds = 0.1;
constexpr std::uint16_t kFirstCell = 370;
constexpr std::uint16_t kRowStride = 16;
constexpr int kSettleMs = 150;
constexpr double kLeanOnGas = 1.12;
constexpr int kCells = 12;
constexpr std::size_t kTunedCells = block_layout::kGridCells + std::size_t{3} * kRowStride;
constexpr const char* kOldFile = "Astra 1.6 before tuning.fob";
constexpr const char* kTunedFile = "Astra 1.6 tuned.fob";

// A map as a fitter leaves it: leaner where the engine idles, richer under load.
std::uint16_t TunedCoefficient(int row, int column) {
  const double load = row / 11.0;
  const double speed = column / 11.0;
  const double hill = std::exp(-std::pow((load - 0.55) * 2.2, 2) - std::pow((speed - 0.6) * 2, 2));
  return static_cast<std::uint16_t>(std::lround(112 + 14 * load + 34 * hill - 9 * speed));
}

// The column header that is cut off and has no tip to say it all.
QString CutOffHeader(const QHeaderView& header) {
  for (int i = 0; i < header.count(); ++i) {
    const auto of_header = [&](int role) {
      return header.model()->headerData(i, Qt::Horizontal, role).toString();
    };
    const int wanted = header.fontMetrics().horizontalAdvance(of_header(Qt::DisplayRole));
    if (wanted > header.sectionSize(i) && of_header(Qt::ToolTipRole).isEmpty()) {
      return of_header(Qt::DisplayRole);
    }
  }
  return {};
}

// The text of a widget that has less room than it needs; what gives way on purpose is not meant.
QString CutOffText(const QWidget& widget) {
  if (!widget.isVisible() || qobject_cast<const CElidedLabel*>(&widget) != nullptr) return {};
  if (const auto* const header = qobject_cast<const QHeaderView*>(&widget)) {
    return CutOffHeader(*header);
  }
  if (const auto* const area = qobject_cast<const QAbstractScrollArea*>(&widget)) {
    const bool whole = area->horizontalScrollBar()->maximum() == 0;
    return whole ? QString() : "scrolled sideways: " + area->accessibleName();
  }
  if (const auto* const tabs = qobject_cast<const QTabBar*>(&widget)) {
    return tabs->sizeHint().width() > tabs->width() ? tabs->tabText(tabs->count() - 1) : QString();
  }
  const auto* const label = qobject_cast<const QLabel*>(&widget);
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  const auto* const list = qobject_cast<const QComboBox*>(&widget);
  const QString text = label != nullptr    ? label->text()
                       : button != nullptr ? button->text()
                       : list != nullptr   ? list->currentText()
                                           : QString();
  if (text.trimmed().isEmpty()) return {};
  if (list != nullptr) {
    QStyleOptionComboBox option;
    option.initFrom(list);
    option.editable = list->isEditable();
    const QRect room = list->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                     QStyle::SC_ComboBoxEditField, list);
    return list->fontMetrics().horizontalAdvance(text) > room.width() ? text : QString();
  }
  const bool wraps = label != nullptr && label->wordWrap();
  const bool fits = wraps ? label->heightForWidth(widget.width()) <= widget.height() + 1
                          : widget.minimumSizeHint().width() <= widget.width() + 1;
  return fits ? QString() : text;
}

// Stops the thread that updates in its n-th exchange from now until it goes out of scope, so that
// every run shows the same moment.
class Gate {
 public:
  Gate(SimulatedLine& line, int exchange) : line_(line) {
    line_.SetReportSink([this, left = exchange](const SimulatedLine::RequestReport&) mutable {
      if (--left != 0) return;
      reached_ = true;
      open_.acquire();
    });
  }
  ~Gate() {
    open_.release();
    line_.SetReportSink({});
  }
  Gate(const Gate&) = delete;
  Gate& operator=(const Gate&) = delete;
  [[nodiscard]] bool Reached() const { return reached_; }

 private:
  SimulatedLine& line_;
  std::atomic<bool> reached_{false};
  std::binary_semaphore open_{0};
};

}  // namespace

GuideScenes::GuideScenes(PictureOptions options) : options_(std::move(options)) {
  std::filesystem::current_path(folder_.Path());
  bench_.boxes.answer = true;
  bench_.frame->resize(options_.window);
  PrepareEcu();
  PrepareFiles();
}

GuideScenes::~GuideScenes() { std::filesystem::current_path(before_); }

bool GuideScenes::Run() {
  if (!Connect()) return false;
  ShowOscilloscope();
  HoldEngine(kWarmSeconds);
  ShowPages();
  ShowGrid();
  ShowFiles();
  ShowFirmware();
  ShowHelp();
  ShowLostLink();
  return good_;
}

void GuideScenes::PrepareEcu() {
  SimulatedEcu& ecu = bench_.simulated.Ecu();
  for (int row = 0; row < kCells; ++row) {
    for (int column = 0; column < kCells; ++column) {
      const int cell = kFirstCell + kRowStride * row + column;
      ecu.SetRegister(static_cast<std::uint16_t>(cell), TunedCoefficient(row, column));
    }
  }
}

void GuideScenes::PrepareFiles() {
  struct Stored {
    const char* brand;
    const char* name;
    const char* notes;
  };
  const auto files = std::to_array<Stored>({
      {"OPEL", kOldFile, "As it came. Idle hunts on gas.\nReducer set to 1.2 bar."},
      {"OPEL", kTunedFile, "Tuned on the road, two hours. Idle is fine."},
      {"OPEL", "Corsa 1.2.fob", "The customer's second car."},
      {"RENAULT", "Megane 1.6.fob", "New injectors."},
  });
  // An old configuration, and what the ECU holds now.
  const ConfigurationBlock present = bench_.simulated.Ecu().Block();
  ConfigurationBlock block = present;
  SetParameter(block, *FindParameter("TEMP_COLD_ENG"), 25);
  SetParameter(block, *FindParameter("EMERGENCY_GAS_PRESSURE"), 700);
  for (std::size_t i = 0; i < 6; ++i) block.at(kTunedCells + i) = 120;
  // An hour between one and the next.
  auto changed = std::chrono::file_clock::from_sys(
      std::chrono::sys_days{std::chrono::year{2025} / 4 / 9} + std::chrono::seconds{38700});
  for (const Stored& stored : files) {
    const auto file = StorageFolder(folder_.Path(), 0, stored.brand) / stored.name;
    Message problem;
    good_ = good_ && WriteConfigurationFile(file, block, 0, stored.notes, problem);
    std::filesystem::last_write_time(file, changed);
    changed += std::chrono::hours{1};
    block = present;
  }
}

bool GuideScenes::Connect() {
  Save(*bench_.frame, "not-connected");
  bench_.Click("connect_button");
  return UiBench::WaitFor([&] { return bench_.Live("live_engine_speed") != UiBench::kDashes; });
}

void GuideScenes::HoldEngine(double at) {
  const EngineState state = EngineModel(1).At(at, kChangeOverCelsius);
  bench_.simulated.Ecu().PinEngine(state);
  const QString speed = QString::number(std::lround(state.speed_rpm) / 10);
  // What is shown is cut to the sensor's steps.
  Await("live engine speed",
        [&] { return QString::fromStdString(bench_.Live("live_engine_speed")).startsWith(speed); });
}

void GuideScenes::Drive(double from, double seconds, bool on_gas) {
  const EngineModel engine(1);
  const int samples = static_cast<int>(seconds / kSampleSeconds);
  int sample = 0;
  const auto driving = QObject::connect(&bench_.frame->View(), &ClpgecuView::LiveDataCame, [&] {
    EngineState state = engine.At(from + kSampleSeconds * sample++, kChangeOverCelsius);
    state.on_gas = on_gas;
    // A little lean on gas: the petrol ECU makes up for it.
    if (on_gas) state.petrol_time_us *= kLeanOnGas;
    bench_.simulated.Ecu().PinEngine(state);
  });
  Await("drive", [&] { return sample >= samples; });
  QObject::disconnect(driving);
}

void GuideScenes::Await(const char* what, const std::function<bool()>& condition) {
  if (!good_ || UiBench::WaitFor(condition)) return;
  std::fprintf(stderr, "the window did not come to: %s\n", what);
  good_ = false;
}

void GuideScenes::OpenPage(int tab) {
  bench_.Find<QTabWidget>("tabs").setCurrentIndex(tab);
  // A page that has just been made is shown by an event.
  QCoreApplication::processEvents();
}

void GuideScenes::InDialog(std::function<void(QWidget& dialog)> person) {
  dialog_timer_.disconnect();
  QObject::connect(&dialog_timer_, &QTimer::timeout, [this, person = std::move(person)] {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    dialog_timer_.stop();
    QCoreApplication::processEvents();
    person(*dialog);
    dialog->reject();
  });
  dialog_timer_.start(0);
}

void GuideScenes::Save(QWidget& widget, const QString& name) {
  // A layout may take some turns to settle.
  QTest::qWait(kSettleMs);
  for (const QWidget* const part : widget.findChildren<QWidget*>()) {
    if (const QString text = CutOffText(*part); !text.isEmpty()) cut_off_ += name + ": " + text;
  }
  const QSize least = widget.minimumSizeHint();
  if (least.width() > options_.window.width() || least.height() > options_.window.height()) {
    cut_off_ += QString("%1: needs %2 x %3").arg(name).arg(least.width()).arg(least.height());
  }
  const QString file = options_.folder.filePath(name + ".png");
  if (widget.grab().save(file)) return;
  std::fprintf(stderr, "%s could not be written\n", qUtf8Printable(file));
  good_ = false;
}

// A cold engine that warms up, changes over to gas, and drives.
void GuideScenes::ShowOscilloscope() {
  OpenPage(kScope);
  const Clock::TimePoint until = clock_.Now() + std::chrono::seconds(48);
  Await("recording", [&] { return clock_.Now() >= until; });
  if (options_.everything) Save(*bench_.frame, "oscilloscope-running");
  bench_.Click("scope_run");
  emit bench_.Find<CPlot>("scope_plot").PointedAt(12.4);
  bench_.Find<QPlainTextEdit>("scope_notes")
      .setPlainText("Astra 1.6 on gas, test drive in third gear. Lambda swings as it should.");
  Save(*bench_.frame, "oscilloscope");
}

void GuideScenes::ShowPages() {
  OpenPage(kStart);
  Save(*bench_.frame, "start");
  OpenPage(kConfiguration);
  auto& groups = bench_.Find<QListWidget>("configuration_groups");
  for (int group = 0; group < groups.count(); ++group) {
    constexpr int kInjection = 2;
    if (group != kInjection && !options_.everything) continue;
    groups.setCurrentRow(group);
    Save(*bench_.frame,
         group == kInjection ? QString("configuration") : QString("configuration-%1").arg(group));
  }
  bench_.Find<QLineEdit>("parameter_search").setText("temp");
  Save(*bench_.frame, "configuration-search");
  bench_.Find<QLineEdit>("parameter_search").clear();
  OpenPage(kThrottle);
  Save(*bench_.frame, "tps");
  OpenPage(kErrors);
  bench_.Find<QListWidget>("temporary_error_list").setCurrentRow(1);
  Save(*bench_.frame, "errors");
}

void GuideScenes::ShowGrid() {
  OpenPage(kGrid);
  constexpr double kTraceSeconds = 32;
  Drive(kWarmSeconds, kTraceSeconds, false);
  Drive(kWarmSeconds, kTraceSeconds, true);
  auto& table = bench_.Find<CGridTable>("grid_table");
  table.MoveCursor({3, 2});
  table.MoveCursor({5, 5}, true);
  Save(*bench_.frame, "grid");
  InDialog([this](QWidget& dialog) {
    dialog.findChild<QLineEdit*>("change_value")->setText("3");
    Save(dialog, "modify-area");
  });
  bench_.Find<QAction>("modify_area_action").trigger();
  Await("modify area", [&] { return !dialog_timer_.isActive(); });
  InDialog([this](QWidget& dialog) { Save(dialog, "cell-centres"); });
  bench_.Find<QAction>("cell_centres_action").trigger();
  Await("cell centres", [&] { return !dialog_timer_.isActive(); });
  HoldEngine(kWarmSeconds);
}

void GuideScenes::ShowFiles() {
  OpenPage(kFiles);
  auto& page =
      bench_.frame->View().OpenPage<CTabFiles>(bench_.Find<QTabWidget>("tabs").tabText(kFiles));
  page.ShowFile(StorageFolder(folder_.Path(), 0, "OPEL") / kTunedFile);
  Save(*bench_.frame, "files");
  InDialog([this](QWidget& dialog) {
    dialog.findChild<QCheckBox*>("store_to_file")->setChecked(true);
    dialog.findChild<QComboBox*>("store_brand")->setEditText("OPEL");
    dialog.findChild<QLineEdit*>("store_name")->setText("Astra 1.6 after 1000 km");
    dialog.findChild<QPlainTextEdit*>("store_notes")
        ->setPlainText("Checked after 1000 km. Lambda is fine on the motorway.");
    auto* const place = dialog.findChild<QLabel*>("store_place");
    place->setText(place->text().replace(ToQString(PathText(folder_.Path())), "/home/fitter"));
    Save(dialog, "store");
  });
  bench_.Click("files_store");
  page.ShowFile(StorageFolder(folder_.Path(), 0, "OPEL") / kOldFile);
  page.CompareWithEcu();
  Save(*bench_.frame, "compare");
}

void GuideScenes::ShowFirmware() {
  OpenPage(kStart);
  if (options_.everything) {
    InDialog([this](QWidget& dialog) { Save(dialog, "firmware-no-image"); });
    bench_.Find<QAction>("firmware_action").trigger();
    Await("firmware without an image", [&] { return !bench_.control.Busy(); });
  }
  bench_.Find<QAction>("demo_image_action").trigger();
  InDialog([this](QWidget& dialog) {
    bench_.Find<QComboBox>("boot_versions").setCurrentIndex(0);
    if (options_.everything) Save(dialog, "firmware-ready");
    constexpr int kInTheDownload = 420;
    {
      const Gate gate(bench_.simulated.Line(), kInTheDownload);
      bench_.Click("boot_program");
      Await("firmware download", [&] { return gate.Reached(); });
      // The progress that was reported before it.
      QTest::qWait(50);
      Save(dialog, "firmware");
    }
    Await("end of the download", [&] { return !dialog.isVisible(); });
  });
  bench_.boxes.informed.clear();
  bench_.Find<QAction>("firmware_action").trigger();
  // What the ECU held is offered and loaded again.
  Await("the configuration's return",
        [&] { return !bench_.boxes.informed.empty() && !bench_.control.Busy(); });
}

void GuideScenes::ShowHelp() {
  if (!options_.everything) return;
  CGuideWindow guide(/*foreign=*/true);
  guide.resize(options_.window);
  for (const char* const page : {"grid_page", "files_page", "errors_page"}) {
    guide.OpenForPage(page);
    Save(guide, QString("guide-%1").arg(page));
  }
  InDialog([this](QWidget& dialog) { Save(dialog, "about"); });
  bench_.Find<QAction>("about_action").trigger();
  bench_.Find<QAction>("cylinders_action").trigger();
  OpenPage(kGrid);
  Save(*bench_.frame, "cylinders");
  bench_.Find<QAction>("cylinders_action").trigger();
}

void GuideScenes::ShowLostLink() {
  OpenPage(kGrid);
  bench_.Find<QAction>("unplug_ecu_action").trigger();
  Await("lost link", [&] { return bench_.frame->View().LinkState() == CommStatus::kConnecting; });
  Save(*bench_.frame, "lost-link");
  // Nobody asks about a recording that is only a picture.
  bench_.Find<QAction>("disconnect_action").trigger();
}

}  // namespace zelorgas
