// The firmware update as a person meets it: from the menu or from a connection to an ECU in its
// bootloader, to its end, to a pulled plug, or to a No.
#include <gtest/gtest.h>

#include <QAction>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <fstream>
#include <iterator>
#include <semaphore>
#include <utility>

#include "app/LoadProcedure.h"
#include "config/StoragePaths.h"
#include "firmware/LinkPreparation.h"
#include "sim/SimulatedPort.h"
#include "ui/CBootDlg.h"
#include "ui/FastClock.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

constexpr const char* kStart = "firmware_action";
constexpr const char* kBackups = "FirmwareBackups";
constexpr const char* kThisEcu = "SimulatedECU123456";

// Runs `person` once a dialog is open; closes the dialog when that has not happened until then.
void InDialog(QTimer& timer, std::function<void(CBootDlg&)> person) {
  QObject::connect(&timer, &QTimer::timeout, [&timer, person = std::move(person)] {
    auto* const dialog = qobject_cast<CBootDlg*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    timer.stop();
    person(*dialog);
    dialog->reject();
  });
  timer.start(0);
}

// Holds the thread that updates in its n-th exchange from now, so that nothing goes on behind a
// test that looks at the middle of an update. The line cannot be used meanwhile.
class Gate {
 public:
  Gate(SimulatedLine& line, int exchange) : line_(line) {
    line_.SetReportSink([this, left = exchange](const SimulatedLine::RequestReport&) mutable {
      if (--left != 0) return;
      reached_ = true;
      open_.acquire();
    });
  }
  ~Gate() { Open(); }
  Gate(const Gate&) = delete;
  Gate& operator=(const Gate&) = delete;

  bool Reached() {
    return UiBench::WaitFor([this] { return reached_.load(); });
  }
  void Open() {
    if (std::exchange(opened_, true)) return;
    open_.release();
    line_.SetReportSink({});
  }

 private:
  SimulatedLine& line_;
  std::atomic<bool> reached_{false};
  std::binary_semaphore open_{0};
  bool opened_ = false;
};
constexpr int kInTheDownload = 300;

class FirmwareUpdateWindow : public testing::Test {
 protected:
  FirmwareUpdateWindow() {
    bench.boxes.answer = true;
    bench.Find<QAction>("demo_image_action").trigger();
    std::ifstream file(Demo(), std::ios::binary);
    image.assign(std::istreambuf_iterator<char>(file), {});
  }
  [[nodiscard]] std::filesystem::path Demo() const {
    return bench.firmware.ImageFolder() / kDemoImage;
  }

  // Chooses the only image and presses the button.
  void Program() const {
    bench.Find<QComboBox>("boot_versions").setCurrentIndex(0);
    bench.Click("boot_program");
    EXPECT_FALSE(CanBeClosed());
  }
  [[nodiscard]] bool CanBeClosed() const { return bench.Find<QWidget>("boot_close").isEnabled(); }
  [[nodiscard]] bool WaitForEnd() const {
    return UiBench::WaitFor([&] { return CanBeClosed(); });
  }
  bool FlashHoldsTheImage() {
    std::vector<std::uint8_t> expected(image.begin(), image.end());
    expected.resize(Bootloader::kApplicationSize, 0xFF);
    return !image.empty() && bench.simulated.Ecu().Flash() == expected;
  }
  [[nodiscard]] bool Said(std::string_view text) const {
    return std::ranges::any_of(bench.boxes.said, [&](const std::string& said) {
      return said.find(text) != std::string::npos;
    });
  }

  FastClock clock;
  UiBench bench{clock};
  std::string image;
  QTimer timer;
};

TEST_F(FirmwareUpdateWindow, GoesToItsEndConnectsAgainAndLoadsWhatTheEcuHeld) {
  ASSERT_TRUE(bench.Connect());
  bench.OpenTab("Correction grid");
  bench.Find<QAction>("step_up_action").trigger();
  const auto& undo = bench.Find<QAction>("undo_action");
  ASSERT_TRUE(UiBench::WaitFor([&] { return undo.isEnabled(); }));
  const ConfigurationBlock before = bench.simulated.Ecu().Block();
  InDialog(timer, [&](CBootDlg& dialog) {
    EXPECT_EQ(bench.Text("boot_ecu"), "ECU123456, firmware 00.39");
    EXPECT_EQ(bench.Text("boot_status"), "Idle");
    Gate gate(bench.simulated.Line(), kInTheDownload);
    Program();
    ASSERT_TRUE(gate.Reached());
    const auto& bar = bench.Find<QProgressBar>("boot_progress");
    EXPECT_TRUE(UiBench::WaitFor([&] { return bar.maximum() == 100 && bar.value() > 20; }));
    EXPECT_EQ(bench.Text("boot_status"), "Downloading selected firmware...");
    EXPECT_TRUE(bench.Text("boot_remaining").ends_with(" left"));
    gate.Open();
    EXPECT_TRUE(UiBench::WaitFor([&] { return !dialog.isVisible(); }));
    // The new firmware has settings of its own, in both routing maps too.
    for (const std::size_t word : {0U, 540U, 560U}) {
      bench.simulated.Ecu().SetRegister(RegisterOfWord(word), 12345);
    }
  });
  bench.Find<QAction>(kStart).trigger();
  EXPECT_TRUE(FlashHoldsTheImage());
  EXPECT_EQ(bench.control.CurrentState(), CEcuControl::State::kConnected);
  ASSERT_TRUE(UiBench::WaitFor([&] { return Said(kConfigurationLoaded); }));
  EXPECT_EQ(bench.simulated.Ecu().Block(), before);
  EXPECT_FALSE(undo.isEnabled()) << "of the configuration before";
  EXPECT_EQ(bench.store.ReadString(kBackups, kThisEcu, ""), "") << "it is offered once";
  EXPECT_TRUE(bench.boxes.HasStatus("The firmware has been updated."));
  EXPECT_TRUE(bench.WaitForState(UiBench::kConnected));
}

TEST_F(FirmwareUpdateWindow, CannotBeClosedAndRunsAgainAfterAPulledPlug) {
  bench.simulated.EnterBootloader();
  InDialog(timer, [&](CBootDlg& dialog) {
    EXPECT_TRUE(bench.Text("boot_ecu").starts_with("In its bootloader"));
    bench.simulated.Line().ArmFault({FaultKind::kUnplug}, kInTheDownload + 1);
    Gate gate(bench.simulated.Line(), kInTheDownload);
    Program();
    ASSERT_TRUE(gate.Reached());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    dialog.close();
    bench.frame->close();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(bench.frame->isVisible());
    gate.Open();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Said("note: Write failed!"));
    EXPECT_TRUE(bench.Text("boot_hint").starts_with("The ECU may be without firmware now."));
    bench.Click("boot_erase");
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Said(kPortBusy));
    EXPECT_FALSE(FlashHoldsTheImage());
    bench.simulated.SetAdapterUnplugged(false);
    bench.Click("boot_erase");
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Said("note: Tha application has been erased successfuly!"));
    EXPECT_EQ(bench.Text("boot_status"), "Idle");
    EXPECT_TRUE(bench.Text("boot_hint").starts_with("The ECU has no firmware now."));
    EXPECT_EQ(dialog.End(), FirmwareUpdate::End::kNotRunning);
    Program();
    EXPECT_TRUE(UiBench::WaitFor([&] { return !dialog.isVisible(); }));
  });
  bench.Click("connect_button");
  EXPECT_TRUE(FlashHoldsTheImage());
  EXPECT_FALSE(bench.simulated.Ecu().InBootloader());
  EXPECT_TRUE(UiBench::WaitFor([&] { return !bench.frame->isVisible(); }))
      << "it was to close as soon as it could";
}

TEST_F(FirmwareUpdateWindow, ErasesNothingWithoutAnImageOrAYes) {
  const std::vector<std::uint8_t> before = bench.simulated.Ecu().Flash();
  ASSERT_TRUE(bench.Connect());
  const std::size_t asked = bench.boxes.said.size();
  InDialog(timer, [&](CBootDlg& dialog) {
    EXPECT_EQ(bench.Find<QComboBox>("boot_versions").currentIndex(), -1);
    EXPECT_FALSE(bench.Find<QWidget>("boot_program").isEnabled());
    bench.Click("boot_program");
    EXPECT_TRUE(CanBeClosed());
    bench.boxes.answer = false;
    Program();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(bench.boxes.said.size(), asked + 1);
    EXPECT_TRUE(Said("Image: " + std::string(kDemoImage)));
    bench.Click("boot_erase");
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Said("question: Do you want to erase the firmware of the ECU?"));
    EXPECT_EQ(bench.Text("boot_hint"), "Nothing has been erased.");
    EXPECT_EQ(dialog.End(), FirmwareUpdate::End::kUntouched);
    std::filesystem::remove(Demo());
    Program();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Said(kNoImage));
    bench.Click("boot_look_again");
    EXPECT_FALSE(bench.Find<QWidget>("boot_program").isEnabled());
  });
  bench.Find<QAction>(kStart).trigger();
  EXPECT_EQ(bench.simulated.Ecu().Flash(), before);
  EXPECT_FALSE(bench.simulated.Ecu().InBootloader());
}

TEST_F(FirmwareUpdateWindow, WhatTheEcuHeldIsOfferedStillWhenTheUpdateWasFinishedInALaterRun) {
  ASSERT_TRUE(bench.Connect());
  bench.store.WriteString(kBackups, kThisEcu, "/nowhere/gone.fob");
  InDialog(timer, [&](CBootDlg&) {
    bench.Click("boot_erase");
    ASSERT_TRUE(WaitForEnd());
    bench.boxes.answer = false;
    Program();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(bench.Text("boot_hint").starts_with("The ECU has no firmware now."))
        << "a No does not make it well";
  });
  bench.Find<QAction>(kStart).trigger();
  EXPECT_EQ(bench.control.CurrentState(), CEcuControl::State::kDisconnected);
  const std::string kept = bench.store.ReadString(kBackups, kThisEcu, "");
  EXPECT_TRUE(std::filesystem::exists(kept)) << kept;
  UiBench closed(clock);
  closed.store.WriteString(kBackups, kThisEcu, kept);
  closed.boxes.while_asking = [&closed] { closed.frame->close(); };
  closed.Click("connect_button");
  ASSERT_TRUE(UiBench::WaitFor([&] { return !closed.frame->isVisible(); }));
  EXPECT_EQ(closed.store.ReadString(kBackups, kThisEcu, ""), kept) << "nobody has said no";
  UiBench later(clock);
  ASSERT_TRUE(later.Connect());
  later.store.WriteString(kBackups, kThisEcu, kept);
  std::string state;
  later.boxes.while_asking = [&] { state = later.Text("communication_state"); };
  later.status.Post(CommStatus::kFullRead);
  later.status.Post(CommStatus::kConnecting);
  ASSERT_TRUE(
      UiBench::WaitFor([&] { return later.store.ReadString(kBackups, kThisEcu, "").empty(); }));
  EXPECT_NE(later.boxes.said.back().find(kept), std::string::npos) << "declined";
  EXPECT_EQ(state, UiBench::kConnecting) << "all that was reported is shown before";
}

TEST_F(FirmwareUpdateWindow, WhatIsStillInOneEcuIsNotKeptAndTheNextHasItsOwn) {
  constexpr const char* kNextEcu = "SimulatedECU654321";
  const auto set_supply = [&](bool missing) {
    bench.simulated.Ecu().WithBootloader([&](Bootloader& boot) { boot.SetNoSupply(missing); });
  };
  ASSERT_TRUE(bench.Connect());
  InDialog(timer, [&](CBootDlg&) {
    set_supply(true);
    Program();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Said(kNoSupplyMessage));
    set_supply(false);
    bench.simulated.Ecu().LosePower();
    const auto& erase = bench.Find<QWidget>("boot_erase");
    ASSERT_TRUE(UiBench::WaitFor([&] { return erase.isEnabled(); })) << "its firmware runs again";
    EXPECT_EQ(bench.store.ReadString(kBackups, kThisEcu, ""), "");
    bench.simulated.Ecu().SetSerial(654321);
    bench.Click("boot_erase");
    ASSERT_TRUE(WaitForEnd());
  });
  bench.Find<QAction>(kStart).trigger();
  EXPECT_EQ(bench.store.ReadString(kBackups, kThisEcu, ""), "");
  EXPECT_TRUE(std::filesystem::exists(bench.store.ReadString(kBackups, kNextEcu, "")));
}

}  // namespace
}  // namespace zelorgas
