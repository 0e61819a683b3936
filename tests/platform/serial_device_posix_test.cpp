#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pthread.h>
#include <termios.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <semaphore>
#include <string>
#include <thread>

#include "platform/FileDescriptor.h"
#include "platform/SerialDevice.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// Long enough that only a wait that was not ended early reaches it, on any machine.
constexpr seconds kFarAway{30};

constexpr LineSettings kEcuLine{.baud = 19200, .data_bits = 7, .parity = Parity::kEven};
constexpr PortTimeouts kReturnQueued{.read_interval = PortTimeouts::kReturnAtOnce};

std::span<const std::uint8_t> AsBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// A serial line whose far end is the test's: a pseudo terminal.
class PtyLine : public testing::Test {
 protected:
  PtyLine() : far_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    EXPECT_EQ(::grantpt(far_.Get()), 0);
    EXPECT_EQ(::unlockpt(far_.Get()), 0);
    name_ = ::ptsname(far_.Get());
    device_ = opener_(name_);
    EXPECT_TRUE(device_);
    EXPECT_TRUE(device_->Configure(kEcuLine));
    EXPECT_TRUE(device_->SetTimeouts(kReturnQueued));
  }

  void Send(std::string_view text) {
    ASSERT_EQ(::write(far_.Get(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  std::string ReceiveAtFarEnd(std::size_t count) {
    std::string text(count, '\0');
    std::size_t have = 0;
    while (have < count) {
      pollfd entry{.fd = far_.Get(), .events = POLLIN, .revents = 0};
      if (::poll(&entry, 1, static_cast<int>(milliseconds(kFarAway).count())) <= 0) break;
      const ssize_t got = ::read(far_.Get(), text.data() + have, count - have);
      if (got <= 0) break;
      have += static_cast<std::size_t>(got);
    }
    return text.substr(0, have);
  }
  std::string Read(std::size_t count) {
    std::string text(count, '\0');
    const std::optional<std::size_t> got =
        device_->Read({reinterpret_cast<std::uint8_t*>(text.data()), count});
    return got ? text.substr(0, *got) : "failed";
  }
  void Unplug() { far_.Close(); }
  [[nodiscard]] Clock::Duration Elapsed() const { return clock_->Now() - start_; }

  const std::unique_ptr<Clock> clock_ = MakeSteadyClock();
  const SerialOpener opener_ = SystemSerialPorts(*clock_);
  const Clock::TimePoint start_ = clock_->Now();
  FileDescriptor far_;
  std::string name_;
  std::unique_ptr<SerialDevice> device_;
};

TEST_F(PtyLine, CarriesEveryByteUnchangedBothWays) {
  std::string all;
  for (int c = 0; c < 256; ++c) all.push_back(static_cast<char>(c));
  EXPECT_TRUE(device_->Write(AsBytes(all)));
  EXPECT_EQ(device_->OutputQueueLength(), 0U);
  EXPECT_EQ(ReceiveAtFarEnd(all.size()), all);
  Send(all);
  EXPECT_TRUE(device_->WaitForInput(all.size(), kFarAway));
  EXPECT_EQ(device_->InputQueueLength(), all.size());
  EXPECT_EQ(Read(1000), all);
  EXPECT_EQ(Read(1000), "");
}

TEST_F(PtyLine, OpenerRefusesWhatIsNoTerminal) {
  const TemporaryFolder folder;
  const std::string file = folder.Path() / "file";
  FileDescriptor(::open(file.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600));
  for (const std::string& name : {file, folder.Path().string(), file + "/missing",
                                  std::string("/dev/null"), std::string("COM1"), std::string()}) {
    EXPECT_FALSE(opener_(name)) << name;
  }
  EXPECT_FALSE(opener_(name_)) << "in use";
  device_.reset();
  EXPECT_TRUE(opener_(name_));
}

TEST_F(PtyLine, WaitsEndEarlyWhenAnotherThreadSends) {
  constexpr int kRounds = 200;
  std::atomic<int> slices = 0;
  device_->SetSliceHook([&] { ++slices; });
  std::thread far_end([&] {
    for (int i = 0; i < 2 * kRounds; ++i) Send(ReceiveAtFarEnd(7));
  });
  for (int i = 0; i < kRounds; ++i) {
    EXPECT_TRUE(device_->Write(AsBytes(":0B03\r\n")));
    EXPECT_TRUE(device_->WaitForInput(7, kFarAway));
    EXPECT_EQ(Read(7), ":0B03\r\n");
    EXPECT_TRUE(device_->Write(AsBytes(":0B83\r\n")));
    EXPECT_EQ(device_->WaitForEvent(kFarAway), LineEvent::kEventCharacter);
    EXPECT_EQ(Read(100), ":0B83\r\n");
  }
  far_end.join();
  EXPECT_LT(slices, kRounds) << "waits ran to the end of their slice";
}

TEST_F(PtyLine, PurgeDropsWhatIsQueuedHereAndInTheDriver) {
  for (const PurgeScope scope : {PurgeScope::kBoth, PurgeScope::kReceive}) {
    Send("kept");
    ASSERT_TRUE(device_->WaitForInput(4, kFarAway));
    Send("driver");
    // What has gone through the line is in the driver's queue before the purge.
    pollfd entry{.fd = far_.Get(), .events = POLLOUT, .revents = 0};
    ASSERT_EQ(::poll(&entry, 1, 1000), 1);
    FileDescriptor other(::open(name_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    entry = {.fd = other.Get(), .events = POLLIN, .revents = 0};
    ASSERT_EQ(::poll(&entry, 1, 10000), 1);
    device_->Purge(scope);
    EXPECT_EQ(device_->InputQueueLength(), 0U);
    Send("fresh\n");
    EXPECT_EQ(device_->WaitForEvent(kFarAway), LineEvent::kEventCharacter);
    EXPECT_EQ(Read(100), "fresh\n");
  }
}

// More than a pseudo terminal takes without a reader at the far end.
const std::string& TooMuch() {
  static const std::string text(1 << 20, 'x');
  return text;
}
constexpr LineSettings kFastLine{.baud = 4000000};

TEST_F(PtyLine, StuckWriteEndsInTimeAndLeavesTheLineUsable) {
  ASSERT_TRUE(device_->Configure(kFastLine));
  ASSERT_TRUE(device_->SetTimeouts(
      {.read_interval = PortTimeouts::kReturnAtOnce, .write_total_constant = 50}));
  const std::string stuck = TooMuch().substr(0, 100'000);
  int slices = 0;
  device_->SetSliceHook([&] { ++slices; });
  EXPECT_FALSE(device_->Write(AsBytes(stuck)));
  EXPECT_GE(slices, 3);
  EXPECT_LT(Elapsed(), kFarAway);
  device_->Purge(PurgeScope::kBoth);
  EXPECT_TRUE(device_->Write(AsBytes("again\n")));
  std::string arrived;
  while (arrived.empty() || arrived.back() != '\n') arrived += ReceiveAtFarEnd(1);
  EXPECT_TRUE(arrived.ends_with("again\n"));
}

// Each operation fails at once when the plug has been pulled before it, and in its wait when it is
// pulled then; afterwards nothing waits any more.
class Unplugged : public PtyLine, public testing::WithParamInterface<int> {
 protected:
  bool OperationFails() {
    SerialDevice& d = *device_;
    switch (GetParam()) {
      case 0:
        static_cast<void>(d.SetTimeouts({.write_total_constant = 30000}));
        return !d.Write(AsBytes(TooMuch()));
      case 1:
        static_cast<void>(d.SetTimeouts({.read_total_constant = 30000}));
        return Read(1) == "failed";
      case 2:
        return !d.WaitForInput(1, kFarAway) && !d.InputQueueLength();
      default:
        return d.WaitForEvent(kFarAway) == LineEvent::kFailed;
    }
  }
};

TEST_P(Unplugged, BeforeTheOperation) {
  Unplug();
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(OperationFails());
  EXPECT_LT(Elapsed(), kFarAway);
}

TEST_P(Unplugged, DuringItsWait) {
  device_->SetSliceHook([this] { Unplug(); });
  EXPECT_TRUE(OperationFails());
  int slices = 0;
  device_->SetSliceHook([&] { ++slices; });
  EXPECT_EQ(device_->WaitForEvent(kFarAway), LineEvent::kFailed);
  EXPECT_EQ(device_->InputQueueLength(), std::nullopt);
  EXPECT_EQ(device_->OutputQueueLength(), std::nullopt);
  EXPECT_FALSE(device_->Write(AsBytes("x")));
  EXPECT_FALSE(device_->Configure(kEcuLine));
  device_->Purge(PurgeScope::kBoth);
  EXPECT_EQ(slices, 0);
  EXPECT_LT(Elapsed(), kFarAway);
}

INSTANTIATE_TEST_SUITE_P(Operations, Unplugged, testing::Range(0, 4));

std::atomic<int> signals_caught = 0;
void CatchSignal(int /*number*/) { ++signals_caught; }

TEST_F(PtyLine, SignalsDoNotEndWaitsAndWrites) {
  struct sigaction action {};
  action.sa_handler = CatchSignal;  // without SA_RESTART: system calls are interrupted
  struct sigaction previous {};
  ASSERT_EQ(::sigaction(SIGUSR1, &action, &previous), 0);
  signals_caught = 0;
  ASSERT_TRUE(device_->Configure(kFastLine));
  const pthread_t waiting = ::pthread_self();
  std::binary_semaphore writing{0};
  // One signal after another is caught before the far end moves.
  const auto interrupt = [&](int count) {
    for (const int before = signals_caught; signals_caught < before + count;) {
      ::pthread_kill(waiting, SIGUSR1);
      std::this_thread::yield();
    }
  };
  std::thread far_end([&] {
    interrupt(20);
    Send("answer\n");
    writing.acquire();
    interrupt(20);
    std::size_t left = TooMuch().size();
    while (left > 0) left -= ReceiveAtFarEnd(std::min<std::size_t>(left, 4096)).size();
  });
  EXPECT_EQ(device_->WaitForEvent(kFarAway), LineEvent::kEventCharacter);
  EXPECT_TRUE(device_->WaitForInput(7, kFarAway));
  ASSERT_TRUE(device_->SetTimeouts({.write_total_constant = 30000}));
  writing.release();
  EXPECT_TRUE(device_->Write(AsBytes(TooMuch())));
  far_end.join();
  EXPECT_GE(signals_caught, 40);
  ::sigaction(SIGUSR1, &previous, nullptr);
}

}  // namespace
}  // namespace zelorgas
