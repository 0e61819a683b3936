#include "EcuSimProcess.h"

#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <stdexcept>

namespace zelorgas {
namespace {

constexpr int kStartTimeoutMs = 10000;

}  // namespace

EcuSimProcess::EcuSimProcess(const std::vector<std::string>& options) {
  const std::string program =
      std::filesystem::read_symlink("/proc/self/exe").replace_filename("zelorgas-ecusim").string();
  std::vector<std::string> words{program};
  words.insert(words.end(), options.begin(), options.end());
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  std::array<int, 2> output{};
  if (pipe(output.data()) != 0) throw std::runtime_error("no pipe for the simulator");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
  posix_spawn_file_actions_addclose(&actions, output[0]);
  const int failed =
      posix_spawn(&pid_, program.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(output[1]);
  if (failed == 0) {
    pollfd ready{output[0], POLLIN, 0};
    char character = 0;
    while (poll(&ready, 1, kStartTimeoutMs) == 1 && read(output[0], &character, 1) == 1 &&
           character != '\n') {
      port_ += character;
    }
  }
  close(output[0]);
  if (port_.empty()) throw std::runtime_error("the simulator did not start: " + program);
}

EcuSimProcess::~EcuSimProcess() {
  if (pid_ <= 0) return;
  kill(pid_, SIGTERM);
  waitpid(pid_, nullptr, 0);
}

}  // namespace zelorgas
