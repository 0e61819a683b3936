#include <gtest/gtest.h>

#include "app/PortListModel.h"

namespace zelorgas {
namespace {

constexpr const char* kInstalled = "A Serial COMM Device has just been installed!";
constexpr const char* kUninstalled = "A Serial COMM Device has just been uninstalled!";

// The start page beside a machine whose ports the test plugs.
class StartPage : public testing::Test {
 protected:
  PortListModel Open(std::string_view selected) {
    return {[this] { return ports_; }, selected};
  }
  // What the person is shown when `names` are plugged.
  std::string Plug(PortListModel& model, const std::vector<std::string>& names,
                   bool connected = false) {
    ports_.clear();
    for (const std::string& name : names) ports_.push_back({name, ""});
    const auto notice = model.OnWatchEvent(PortWatchEvent::kChanged, connected);
    EXPECT_EQ(model.PortCount(), names.size());
    return notice ? notice->text : "";
  }

  std::vector<SerialPortInfo> ports_;
};

TEST_F(StartPage, ListsThePortsAndTheSimulatedEcuLast) {
  EXPECT_EQ(Open("").Selected(), std::nullopt);
  ports_ = {{"COM2", ""}, {"COM10", "Cable"}};
  EXPECT_EQ(Open("").SelectedName(), "COM2");
  const PortListModel model = Open("COM10");
  EXPECT_EQ(model.Entries()[1].text, "COM10 (Cable)");
  EXPECT_EQ(model.Entries()[2].text, "Simulated ECU");
  EXPECT_EQ(model.Selected(), 1U);
}

TEST_F(StartPage, SaysWhatHasChangedWhileNotConnected) {
  PortListModel model = Open("COM3");
  EXPECT_EQ(Plug(model, {"COM2"}), kInstalled);
  EXPECT_EQ(model.Selected(), std::nullopt) << "another port must not take its place";
  EXPECT_EQ(Plug(model, {"COM2", "COM3", "COM4"}), kInstalled);
  EXPECT_EQ(model.Selected(), 1U);
  EXPECT_EQ(Plug(model, {"COM2", "COM3", "COM5"}), kInstalled) << "swapped";
  EXPECT_EQ(Plug(model, {"COM3"}), kUninstalled);
  EXPECT_EQ(Plug(model, {"COM3"}), "") << "nothing has changed";
  EXPECT_TRUE(model.Select(1));
  EXPECT_TRUE(model.IsSimulatedSelected());
  EXPECT_EQ(Plug(model, {}, true), "");
  EXPECT_EQ(model.Selected(), 0U);
  EXPECT_FALSE(model.Select(1));
  for (const bool connected : {false, true}) {
    const auto tracking = model.OnWatchEvent(PortWatchEvent::kTrackingFailed, connected);
    EXPECT_EQ(tracking->text, "Error while tracking Serial COMM Device Map!");
    EXPECT_EQ(tracking->icon, MessageIcon::kError);
    EXPECT_EQ(model.OnWatchEvent(PortWatchEvent::kOpenFailed, connected)->text,
              "Error in RegOpenKeyEx!");
  }
}

}  // namespace
}  // namespace zelorgas
