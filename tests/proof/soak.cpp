// soak TRANSACTIONS SEED: so many transactions of every function over a line of which one request
// in twenty goes wrong in some way, with three attempts each. Fails when a value is wrong, when
// more than one transaction in two thousand fails, or when handles or memory grow. The time is
// virtual.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>

#include "link/ModbusSerialPort.h"
#include "sim/SimulatedPort.h"
#include "support/VirtualClock.h"

namespace {

using namespace zelorgas;
using Words = std::vector<std::uint16_t>;
using Bits = std::vector<std::uint8_t>;

constexpr double kFaultRate = 0.05;
constexpr unsigned kFaultRules = 190;  // ten of each kind, each with a parameter of its own
constexpr std::uint64_t kTransactionsForAFailure = 2000;
constexpr double kMemoryGoal = 1.01;
// A sanitizer keeps what was freed for a while, and notes about every access.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kMemoryIsOurs = false;
#else
constexpr bool kMemoryIsOurs = true;
#endif
constexpr unsigned kLongestDelayMs = 3000;
constexpr unsigned kSilenceMs = 1500;

// What can go wrong with a line that stays plugged to an ECU that stays on; the parameter is below
// `limit`.
struct FaultRange {
  FaultKind kind;
  unsigned limit;
};
constexpr std::array<FaultRange, 19> kFaults = {{{FaultKind::kDropAnswer, 1},
                                                 {FaultKind::kDropRequest, 1},
                                                 {FaultKind::kDelay, kLongestDelayMs},
                                                 {FaultKind::kTruncate, 20},
                                                 {FaultKind::kCorrupt, 8 * 139},
                                                 {FaultKind::kBadCheck, 1},
                                                 {FaultKind::kWrongUnit, 1},
                                                 {FaultKind::kWrongFunction, 1},
                                                 {FaultKind::kWrongEcho, 1},
                                                 {FaultKind::kShortAnswer, 1},
                                                 {FaultKind::kDuplicate, 1},
                                                 {FaultKind::kNoiseBefore, 1},
                                                 {FaultKind::kNoiseAfter, 1},
                                                 {FaultKind::kEndlessNoise, kSilenceMs},
                                                 {FaultKind::kException, 8},
                                                 {FaultKind::kNoEcho, 1},
                                                 {FaultKind::kPartialEcho, 1},
                                                 {FaultKind::kCorruptEcho, 1},
                                                 {FaultKind::kSilent, kSilenceMs}}};

// The ECU asked without a line: what a transaction has to give.
class DirectMaster final : public ModbusMaster {
 public:
  explicit DirectMaster(SimulatedEcu& ecu) : ecu_(ecu) {}

  ModbusResult Exchange(std::span<const std::uint8_t> request, std::span<std::uint8_t> response,
                        std::size_t, std::size_t& received_length) override {
    const auto answer = ecu_.AnswerAt(request, when_).value();
    received_length = std::min(answer.size(), response.size());
    std::copy_n(answer.begin(), received_length, response.begin());
    return ModbusResult::kOk;
  }
  [[nodiscard]] double LastTransactionSeconds() const override { return 0; }

  void SetTime(Clock::TimePoint when) { when_ = when; }

 private:
  SimulatedEcu& ecu_;
  Clock::TimePoint when_{};
};

class Soak {
 public:
  explicit Soak(std::uint64_t seed) : random_(seed), line_(ecu_, clock_, {.seed = seed}) {
    port_.SetFraming(FramingMode::kAscii);
    port_.SetDataBits(7);
    port_.SetAttemptCount(3);
    ecu_.PinEngine(EngineState{});
    line_.SetReportSink([this](const SimulatedLine::RequestReport& request) {
      truth_.SetTime(request.when);
      if (on_request_) on_request_();
    });
    line_.WithFaults([this](LineFaults& faults) {
      for (unsigned rule = 0; rule < kFaultRules; ++rule) {
        const FaultRange range = kFaults[rule % kFaults.size()];
        faults.Sometimes(kFaultRate / kFaultRules, {range.kind, Any(range.limit)});
      }
    });
  }

  [[nodiscard]] bool Open() { return port_.Open(1, 19200, 2); }
  void Transact();
  [[nodiscard]] bool Report(std::uint64_t transactions) const;

 private:
  [[nodiscard]] unsigned Any(unsigned limit) {
    return std::uniform_int_distribution<unsigned>(0, limit - 1)(random_);
  }
  [[nodiscard]] std::uint16_t AnyWord(unsigned limit) {
    return static_cast<std::uint16_t>(Any(limit));
  }
  template <typename Values, typename Read>
  void ReadBoth(Read read);
  void WriteBoth();

  std::mt19937_64 random_;
  VirtualClock clock_;
  SimulatedEcu ecu_{clock_};
  DirectMaster truth_{ecu_};
  SimulatedLine line_;
  ModbusSerialPort port_{SimulatedPort(line_, clock_), clock_};
  std::function<void()> on_request_;
  std::uint64_t failed_ = 0;
  std::uint64_t wrong_ = 0;
};

// `read` puts values into its second argument; over the line they are those that the ECU had when
// one of the requests came.
template <typename Values, typename Read>
void Soak::ReadBoth(Read read) {
  std::vector<Values> truths;
  on_request_ = [&] {
    Values values;
    if (read(truth_, values) == ModbusResult::kOk) truths.push_back(std::move(values));
  };
  Values values;
  const bool done = read(port_, values) == ModbusResult::kOk;
  on_request_ = nullptr;
  if (!done) ++failed_;
  const bool right = done ? std::ranges::find(truths, values) != truths.end() : values.empty();
  if (!right) ++wrong_;
}

// A write that failed may have been done all the same, but nothing else may.
void Soak::WriteBoth() {
  constexpr std::uint16_t kFirstRegister = 256;
  constexpr std::uint16_t kRegisters = 583;
  const ConfigurationBlock before = ecu_.Block();
  Words words(1 + Any(32));
  std::ranges::generate(words, [this] { return AnyWord(0x10000); });
  const std::uint16_t start = AnyWord(kRegisters - static_cast<unsigned>(words.size()));
  ConfigurationBlock written = before;
  std::ranges::copy(words, written.begin() + start);
  const auto number = static_cast<std::uint16_t>(kFirstRegister + start);
  const ModbusResult result =
      words.size() == 1 ? port_.WriteSingleRegister(ECU_SLAVE_ADDRESS, number, words.front())
                        : port_.WriteMultipleRegisters(ECU_SLAVE_ADDRESS, number, words);
  const bool done = result == ModbusResult::kOk;
  if (!done) ++failed_;
  const ConfigurationBlock after = ecu_.Block();
  if (after != written && (done || after != before)) ++wrong_;
}

void Soak::Transact() {
  constexpr std::uint8_t kSlave = ECU_SLAVE_ADDRESS;
  const auto count = static_cast<std::uint16_t>(1 + Any(32));
  switch (Any(8)) {
    case 0:
      return ReadBoth<Bits>([&](ModbusMaster& master, Bits& bits) {
        return master.ReadCoils(kSlave, 32, count, bits);
      });
    case 1: {
      const auto start = static_cast<std::uint16_t>(32 + Any(7));
      return ReadBoth<Bits>([&](ModbusMaster& master, Bits& bits) {
        return master.ReadDiscreteInputs(kSlave, start, 1, bits);
      });
    }
    case 2: {
      // The versions and the serial number, or live values.
      const auto start = static_cast<std::uint16_t>(Any(2) == 0 ? 32 : 71);
      return ReadBoth<Words>([&](ModbusMaster& master, Words& words) {
        return master.ReadInputRegisters(kSlave, start, static_cast<std::uint16_t>(1 + count % 7),
                                         words);
      });
    }
    case 3: {
      const std::uint16_t pointer = AnyWord(SimulatedEcu::kFifoRecords);
      return ReadBoth<Words>([&](ModbusMaster& master, Words& words) {
        return master.ReadFifoQueue(kSlave, pointer, words);
      });
    }
    case 4:
      return ReadBoth<std::vector<std::string>>([&](ModbusMaster& master, auto& objects) {
        DeviceIdentification identification;
        const ModbusResult result = master.ReadDeviceIdentification(kSlave, 1, 0, identification);
        objects = identification.objects;
        return result;
      });
    case 5: {
      const auto start = static_cast<std::uint16_t>(256 + Any(583 - 32));
      return ReadBoth<Words>([&](ModbusMaster& master, Words& words) {
        return master.ReadHoldingRegisters(kSlave, start, count, words);
      });
    }
    default:
      return WriteBoth();
  }
}

bool Soak::Report(std::uint64_t transactions) const {
  std::printf(
      "%llu transactions in %.0f hours on the line: %llu requests, %llu faults, %llu failed "
      "(%.4f %% succeeded), %llu wrong\n",
      static_cast<unsigned long long>(transactions), clock_.ElapsedMs() / 3.6e6,
      static_cast<unsigned long long>(line_.RequestCount()),
      static_cast<unsigned long long>(line_.FaultCount()), static_cast<unsigned long long>(failed_),
      100.0 * (1.0 - static_cast<double>(failed_) / static_cast<double>(transactions)),
      static_cast<unsigned long long>(wrong_));
  const bool faulty = static_cast<double>(line_.FaultCount()) >
                      0.8 * kFaultRate * static_cast<double>(line_.RequestCount());
  return faulty && wrong_ == 0 && failed_ * kTransactionsForAFailure <= transactions;
}

// What the process holds; zeros where the system keeps no such files.
struct Holdings {
  std::ptrdiff_t handles = 0;
  double pages = 0;

  static Holdings Now() {
    Holdings now;
    std::error_code error;
    now.handles = std::distance(std::filesystem::directory_iterator("/proc/self/fd", error), {});
    double all = 0;
    std::ifstream("/proc/self/statm") >> all >> now.pages;
    return now;
  }
};

std::uint64_t Number(const char* text) {
  std::uint64_t number = 0;
  std::from_chars(text, text + std::strlen(text), number);
  return number;
}

int Run(std::uint64_t transactions, std::uint64_t seed) {
  Soak soak(seed);
  if (!soak.Open()) return 2;
  // The first look takes memory of its own.
  Holdings warm = Holdings::Now();
  for (std::uint64_t turn = 0; turn < transactions; ++turn) {
    if (turn == transactions / 10) warm = Holdings::Now();
    soak.Transact();
  }
  const Holdings last = Holdings::Now();
  std::printf("handles %td, then %td; memory %.0f pages, then %.0f\n", warm.handles, last.handles,
              warm.pages, last.pages);
  const bool steady =
      last.handles == warm.handles && (!kMemoryIsOurs || last.pages <= kMemoryGoal * warm.pages);
  return soak.Report(transactions) && steady ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::uint64_t transactions = argc == 3 ? Number(argv[1]) : 0;
  if (transactions == 0) {
    std::fputs("soak TRANSACTIONS SEED\n", stderr);
    return 2;
  }
  return Run(transactions, Number(argv[2]));
}
