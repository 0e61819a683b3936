#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/eventfd.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <system_error>
#include <tuple>
#include <utility>

#include "platform/FileDescriptor.h"
#include "sim/LineServer.h"

namespace zelorgas {
namespace {

// How often a line is looked at again that is unplugged, or too full to take more.
constexpr timespec kNextLook{0, 20'000'000};
// More than the longest frame takes.
constexpr std::chrono::seconds kFullQueue{1};

class PtyServerPosix final : public LineServer {
 public:
  PtyServerPosix(SimulatedLine& line, Clock& clock, FileDescriptor master, FileDescriptor slave,
                 FileDescriptor stop, std::string path)
      : line_(line),
        clock_(clock),
        master_(std::move(master)),
        slave_(std::move(slave)),
        stop_(std::move(stop)),
        path_(std::move(path)) {}

  const std::string& Path() const override { return path_; }

  void Serve() override {
    std::array<pollfd, 2> waits{{{master_.Get(), POLLIN, 0}, {stop_.Get(), POLLIN, 0}}};
    while (true) {
      // A client that sends faster than the line is held up by the terminal, as by a driver's
      // queue.
      const bool full = line_.TransmitBacklog() > kFullQueue;
      waits[0].events = full ? short{0} : short{POLLIN};
      timespec timeout{};
      const timespec* const until = NextWake(timeout);
      if (ppoll(waits.data(), waits.size(), until, nullptr) < 0) {
        if (errno == EINTR) continue;
        return;
      }
      // With the other end held open the terminal gives no error; one would come again at once.
      if (waits[1].revents != 0 || (waits[0].revents & ~POLLIN) != 0) return;
      if ((waits[0].revents & POLLIN) != 0) TakeFromClient();
      GiveToClient();
    }
  }

  void Stop() override {
    const std::uint64_t one = 1;
    // Nothing can be done about a failure here, and an eventfd with room for it has none.
    std::ignore = write(stop_.Get(), &one, sizeof one);
  }

 private:
  // Null: nothing is due.
  const timespec* NextWake(timespec& timeout) const {
    if (!line_.Plugged()) {
      timeout = kNextLook;
      return &timeout;
    }
    const std::optional<Clock::TimePoint> due = line_.LastArrivalWithin(SimulatedLine::kBurst);
    if (!due && line_.TransmitBacklog() > kFullQueue) {
      timeout = kNextLook;
      return &timeout;
    }
    if (!due) return nullptr;
    const auto left = std::max<std::int64_t>((*due - clock_.Now()).count(), 0);
    timeout.tv_sec = static_cast<time_t>(left / 1'000'000'000);
    timeout.tv_nsec = static_cast<long>(left % 1'000'000'000);
    return &timeout;
  }

  void TakeFromClient() {
    std::array<std::uint8_t, 1024> bytes{};
    const ssize_t count = read(master_.Get(), bytes.data(), bytes.size());
    if (count > 0) line_.Transmit(std::span(bytes).first(static_cast<std::size_t>(count)));
  }

  void GiveToClient() {
    due_.clear();
    if (line_.Collect(due_) == 0) return;
    // What a client does not read is lost, as on a wire.
    std::ignore = write(master_.Get(), due_.data(), due_.size());
  }

  SimulatedLine& line_;
  Clock& clock_;
  FileDescriptor master_;
  FileDescriptor slave_;  // kept open, so that a client's close does not hang the line up
  FileDescriptor stop_;
  std::string path_;
  std::vector<std::uint8_t> due_;
};

}  // namespace

std::unique_ptr<LineServer> OpenPtyServer(SimulatedLine& line, Clock& clock, std::string& error) {
  const auto failure = [&error](const char* what) {
    error = std::string(what) + ": " + std::generic_category().message(errno);
    return nullptr;
  };
  FileDescriptor master(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
  if (!master) return failure("no pseudo-terminal");
  std::array<char, 128> path{};
  if (grantpt(master.Get()) != 0 || unlockpt(master.Get()) != 0 ||
      ptsname_r(master.Get(), path.data(), path.size()) != 0) {
    return failure("the pseudo-terminal has no other end");
  }
  FileDescriptor slave(open(path.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
  termios settings{};
  if (!slave || tcgetattr(slave.Get(), &settings) != 0) {
    return failure("the pseudo-terminal's other end does not open");
  }
  // Until a client says otherwise nothing is translated or echoed by the terminal itself.
  cfmakeraw(&settings);
  tcsetattr(slave.Get(), TCSANOW, &settings);
  FileDescriptor stop(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
  if (!stop) return failure("no event");
  return std::make_unique<PtyServerPosix>(line, clock, std::move(master), std::move(slave),
                                          std::move(stop), path.data());
}

}  // namespace zelorgas
