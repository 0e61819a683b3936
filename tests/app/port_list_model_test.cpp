#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/PortListModel.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;

// The start page beside a machine whose ports the test plugs.
class StartPage : public testing::Test {
 protected:
  void SetPorts(std::vector<SerialPortInfo> ports) { ports_ = std::move(ports); }
  PortListModel Open(std::string_view selected) {
    return {[this] { return ports_; }, selected};
  }
  // What the person is shown after a change to `ports`.
  std::string Change(PortListModel& model, std::vector<SerialPortInfo> ports,
                     bool connected = false) {
    ports_ = std::move(ports);
    const auto notice = model.OnWatchEvent(PortWatchEvent::kChanged, connected);
    if (!notice) return "";
    EXPECT_EQ(notice->icon, MessageIcon::kInformation);
    return notice->text;
  }
  static std::vector<std::string> Texts(const PortListModel& model) {
    std::vector<std::string> texts;
    for (const PortEntry& entry : model.Entries()) texts.push_back(entry.text);
    return texts;
  }

  const std::string installed_ = "A Serial COMM Device has just been installed!";
  const std::string uninstalled_ = "A Serial COMM Device has just been uninstalled!";

 private:
  std::vector<SerialPortInfo> ports_;
};

TEST_F(StartPage, ListsThePortsAndTheSimulatedEcuLast) {
  SetPorts({{"COM2", ""}, {"COM10", "Cable"}});
  const PortListModel model = Open("COM10");
  EXPECT_THAT(Texts(model), ElementsAre("COM2", "COM10 (Cable)", "Simulated ECU"));
  EXPECT_EQ(model.PortCount(), 2U);
  EXPECT_EQ(model.Selected(), 1U);
  EXPECT_FALSE(model.IsSimulatedSelected());
}

TEST_F(StartPage, WithoutStoredPortSelectsTheFirstRealOne) {
  EXPECT_EQ(Open("").Selected(), std::nullopt);
  SetPorts({{"COM2", ""}, {"COM3", ""}});
  EXPECT_EQ(Open("").SelectedName(), "COM2");
}

TEST_F(StartPage, SaysWhatHasChanged) {
  PortListModel model = Open("");
  EXPECT_EQ(Change(model, {{"COM2", ""}}), installed_);
  EXPECT_EQ(Change(model, {{"COM2", ""}, {"COM3", ""}, {"COM4", ""}}), installed_);
  EXPECT_EQ(Change(model, {{"COM2", ""}, {"COM3", ""}, {"COM5", ""}}), installed_) << "swapped";
  EXPECT_EQ(Change(model, {{"COM3", ""}}), uninstalled_);
  EXPECT_EQ(Change(model, {{"COM3", ""}}), "") << "nothing has changed";
  EXPECT_EQ(Change(model, {}), uninstalled_);
}

TEST_F(StartPage, SaysNothingWhileConnectedButFollowsTheList) {
  PortListModel model = Open("");
  EXPECT_EQ(Change(model, {{"COM2", ""}}, true), "");
  EXPECT_THAT(Texts(model), ElementsAre("COM2", "Simulated ECU"));
  EXPECT_EQ(Change(model, {}, true), "");
  EXPECT_EQ(model.PortCount(), 0U);
}

TEST_F(StartPage, KeepsTheSelectedPortThroughChanges) {
  SetPorts({{"COM5", ""}});
  PortListModel model = Open("COM5");
  EXPECT_EQ(Change(model, {{"COM2", ""}, {"COM5", ""}}), installed_);
  EXPECT_EQ(model.Selected(), 1U);
  EXPECT_EQ(Change(model, {{"COM2", ""}}), uninstalled_);
  EXPECT_EQ(model.Selected(), std::nullopt) << "another port must not take its place";
  EXPECT_EQ(Change(model, {{"COM2", ""}, {"COM5", ""}}), installed_);
  EXPECT_EQ(model.Selected(), 1U);
  EXPECT_TRUE(model.Select(2));
  EXPECT_TRUE(model.IsSimulatedSelected());
  EXPECT_EQ(Change(model, {}), uninstalled_);
  EXPECT_EQ(model.Selected(), 0U);
  EXPECT_FALSE(model.Select(1));
  EXPECT_EQ(model.SelectedName(), kSimulatedPortName);
}

TEST_F(StartPage, ShowsThatTheListCannotBeFollowed) {
  PortListModel model = Open("");
  for (const bool connected : {false, true}) {
    const auto tracking = model.OnWatchEvent(PortWatchEvent::kTrackingFailed, connected);
    ASSERT_TRUE(tracking);
    EXPECT_EQ(tracking->text, "Error while tracking Serial COMM Device Map!");
    EXPECT_EQ(tracking->icon, MessageIcon::kError);
    const auto opening = model.OnWatchEvent(PortWatchEvent::kOpenFailed, connected);
    ASSERT_TRUE(opening);
    EXPECT_EQ(opening->text, "Error in RegOpenKeyEx!");
    EXPECT_EQ(opening->icon, MessageIcon::kError);
  }
}

}  // namespace
}  // namespace zelorgas
