// What can go wrong on the simulated line, and when: named faults for the n-th request, every n-th,
// or by chance from a seed. Not thread-safe; the line guards it.
#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelorgas {

enum class FaultKind : std::uint8_t {
  kDropAnswer,     // the ECU acts on the request; its answer is lost
  kDropRequest,    // the request never reaches the ECU
  kDelay,          // the answer comes `parameter` ms later
  kTruncate,       // only the first `parameter` characters of the answer come
  kCorrupt,        // bit `parameter` of the answer is flipped
  kBadCheck,       // the answer's LRC or CRC is wrong
  kWrongUnit,      // the answer names another slave
  kWrongFunction,  // the answer names another function
  kWrongEcho,      // a field that the answer must repeat differs
  kShortAnswer,    // the answer's data is a byte short, its check is good
  kDuplicate,      // the answer comes twice
  kNoiseBefore,    // characters before the answer
  kNoiseAfter,     // characters after it
  kEndlessNoise,   // instead of an answer noise, for `parameter` ms
  kException,      // the ECU answers with exception `parameter`
  kNoEcho,         // the echo is lost
  kPartialEcho,    // its first character is lost
  kCorruptEcho,    // one of its characters is wrong
  kSilent,         // the ECU is silent from this request on, for `parameter` ms
  kRestart,        // the ECU restarts instead of answering
  kPowerLoss,      // the ECU loses its supply: before it sees the request when `parameter` is 0,
                   // otherwise when it has acted and sent so many characters of its answer
  kUnplug,         // the adapter is pulled out after the request, its echo and `parameter`
                   // characters of the answer
};

struct Fault {
  FaultKind kind;
  unsigned parameter = 0;  // ms, characters, bit or code; see the kinds
};

// One line of help a kind: its name on the command line, its parameter's default and meaning.
struct FaultName {
  std::string_view name;
  FaultKind kind;
  unsigned default_parameter;
  std::string_view meaning;
};
[[nodiscard]] std::span<const FaultName> FaultNames();
[[nodiscard]] std::string_view NameOfFault(FaultKind kind);

class LineFaults {
 public:
  explicit LineFaults(std::uint64_t seed = 1) : random_(seed) {}

  // At request number `request`, counted from 1 over the line's life; used up then.
  void At(std::uint64_t request, Fault fault);
  // At every `period`-th request.
  void Every(std::uint64_t period, Fault fault);
  // At each request with this probability, 0 to 1.
  void Sometimes(double probability, Fault fault);
  // "KIND[=PARAMETER]:WHEN", WHEN being N, everyN or pX: "delay=300:4", "drop:every10",
  // "corrupt:p0.05". False when it is not understood; nothing is added then.
  [[nodiscard]] bool Add(std::string_view text);
  void Clear() { rules_.clear(); }

  // The fault of this request; where several fall together, the one that was added first.
  [[nodiscard]] std::optional<Fault> ForRequest(std::uint64_t request);

 private:
  struct Rule {
    std::uint64_t at = 0;
    std::uint64_t every = 0;
    double probability = 0;
    Fault fault;
  };

  std::mt19937_64 random_;
  std::vector<Rule> rules_;
};

}  // namespace zelorgas
