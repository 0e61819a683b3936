// zelorgas-ecusim as a second process, for measurements over a real pty.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace zelorgas {

class EcuSimProcess {
 public:
  // Starts the simulator that lies beside this program and waits for its port. Throws
  // std::runtime_error when it does not come up.
  explicit EcuSimProcess(const std::vector<std::string>& options);
  EcuSimProcess(const EcuSimProcess&) = delete;
  EcuSimProcess& operator=(const EcuSimProcess&) = delete;
  ~EcuSimProcess();

  [[nodiscard]] const std::string& Port() const { return port_; }

 private:
  pid_t pid_ = -1;
  std::string port_;
};

}  // namespace zelorgas
