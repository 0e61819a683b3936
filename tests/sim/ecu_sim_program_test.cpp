// The program zelorgas-ecusim as a shell sees it: what it prints, links and leaves behind.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "link/ModbusSerialPort.h"

namespace zelorgas {
namespace {

class EcuSimProgram {
 public:
  explicit EcuSimProgram(const std::string& options) {
    const std::string command = "echo $$; exec " ZELORGAS_ECUSIM " " + options + " 2>&1";
    output_ = popen(command.c_str(), "r");
    pid_ = std::stoi(Line());
  }
  EcuSimProgram(const EcuSimProgram&) = delete;
  EcuSimProgram& operator=(const EcuSimProgram&) = delete;
  ~EcuSimProgram() {
    if (output_ == nullptr) return;
    kill(pid_, SIGKILL);
    pclose(output_);
  }

  // The next line of output, empty at its end.
  std::string Line() {
    std::array<char, 500> text{};
    if (std::fgets(text.data(), text.size(), output_) == nullptr) return "";
    return std::string(text.data()).substr(0, std::string_view(text.data()).find('\n'));
  }
  void Signal(int number) const { kill(pid_, number); }
  // Reads on to its end.
  int ExitStatus() {
    while (std::fgetc(output_) != EOF) continue;
    const int status = pclose(std::exchange(output_, nullptr));
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  std::FILE* output_;
  int pid_;
};

TEST(EcuSimProgramTest, ServesItsLinkUntilASignalAndSaysWhatHappened) {
  const std::string folder = testing::TempDir() + "ecusim" + std::to_string(getpid());
  std::filesystem::create_directories(folder);
  const std::string link = folder + "/port";
  for (const int number : {SIGINT, SIGTERM}) {
    EcuSimProgram program("--no-pace --fault exception=6:2 --link " + link + " --log " + folder +
                          "/log");
    const std::string path = program.Line();
    EXPECT_EQ(std::filesystem::read_symlink(link), path);
    const std::unique_ptr<Clock> clock = MakeSteadyClock();
    ModbusSerialPort port(SystemSerialPorts(*clock), *clock);
    port.SetFraming(FramingMode::kAscii);
    port.SetPortName(link);
    port.SetEndTimeout(std::chrono::milliseconds{100});
    ASSERT_TRUE(port.Open(0, 19200, 2));
    EXPECT_EQ(port.WriteSingleRegister(ECU_SLAVE_ADDRESS, 300, 5), ModbusResult::kOk);
    EXPECT_EQ(port.WriteSingleRegister(ECU_SLAVE_ADDRESS, 300, 6), ExceptionResult(6));
    program.Signal(number);
    EXPECT_EQ(program.Line(), "2 requests, 1 faults, 1 writes");
    EXPECT_EQ(program.ExitStatus(), 0);
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(link)));
    std::ifstream log(folder + "/log");
    std::string line;
    std::getline(log, line);
    EXPECT_TRUE(line.ends_with(" ms :0B06012C0005BD -> :0B06012C0005BD")) << line;
    std::getline(log, line);
    EXPECT_TRUE(line.ends_with(" -> :0B860669 (exception)")) << line;
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace zelorgas
