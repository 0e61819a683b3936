#include "maps/TpsModel.h"

#include <array>
#include <charconv>
#include <mutex>
#include <optional>
#include <system_error>
#include <utility>

#include "maps/DecimalNumber.h"

namespace zelorgas {
namespace {

constexpr FixedText kUnsignedRange = FixedText::Of("\"%1\" is not a whole number from 0 to 65535!");
constexpr FixedText kSignedRange =
    FixedText::Of("\"%1\" is not a whole number from -32768 to 32767!");
constexpr FixedText kTenthsRange = FixedText::Of("\"%1\" is not a number from 0 to 6553.5!");
constexpr double kLargestTenths = 6553.5;
constexpr double kHalfTenth = 0.05;

// The whole number that the text is, which may have its unit behind it.
template <typename Integer>
std::optional<std::uint16_t> ParseWhole(std::string_view text, std::string_view unit = {}) {
  text = Trimmed(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  Integer value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc()) return std::nullopt;
  const std::string_view rest = Trimmed(text.substr(static_cast<std::size_t>(stop - text.data())));
  if (!rest.empty() && rest != unit) return std::nullopt;
  return static_cast<std::uint16_t>(value);
}

}  // namespace

std::uint16_t TpsModel::Word(std::uint16_t reg) const {
  document_.ImageLock();
  const std::uint16_t word = document_.Image().RegisterCopy(reg);
  document_.ImageUnlock();
  return word;
}

std::string TpsModel::CellText(TpsTable table, TpsQuantity quantity, std::size_t band) const {
  return TpsCellText(quantity, Word(CellRegister(table, quantity, band)));
}

std::string TpsModel::BandText(std::size_t band) const {
  return std::to_string(Word(RegisterOfWord(block_layout::kGridSpeeds + band)));
}

std::string TpsModel::OutletText(TpsTable table) const {
  return std::to_string(Word(OutletRegister(table)));
}

bool TpsModel::Enabled(TpsTable table) const { return Word(EnableRegister(table)) != 0; }

std::string TpsModel::IdleText(std::size_t setting) const {
  const IdleSetting& idle = kIdleSettings[setting];
  return zelorgas::IdleText(idle, Word(idle.reg));
}

std::string TpsModel::ClosedThrottleText() const {
  return std::to_string(Word(kClosedThrottleRegister));
}

std::string TpsModel::FullThrottleText() const {
  return std::to_string(Word(kFullThrottleRegister));
}

bool TpsModel::EditCell(TpsTable table, TpsQuantity quantity, std::size_t band,
                        std::string_view text) {
  if (band >= kTpsBands) return false;
  return WriteWhole(CellRegister(table, quantity, band), text,
                    IsSigned(quantity) ? Sign::kSigned : Sign::kUnsigned, UnitOf(quantity));
}

bool TpsModel::EditOutlet(TpsTable table, std::string_view text) {
  return WriteWhole(OutletRegister(table), text, Sign::kUnsigned);
}

bool TpsModel::SetEnabled(TpsTable table, bool enabled) {
  return WriteRegister(EnableRegister(table), enabled ? 1 : 0);
}

bool TpsModel::EditIdle(std::size_t setting, std::string_view text) {
  if (setting >= kIdleSettings.size()) return false;
  const IdleSetting& idle = kIdleSettings[setting];
  if (!idle.in_tenths) return WriteWhole(idle.reg, text, Sign::kUnsigned);
  const std::optional<double> value = ParseDecimal(Trimmed(text));
  if (!value || *value < 0 || *value > kLargestTenths) {
    Reject(text, kTenthsRange);
    return false;
  }
  return WriteRegister(idle.reg, TruncatedWord(*value + kHalfTenth, 10));
}

bool TpsModel::WriteRegister(std::uint16_t reg, std::uint16_t value) {
  return WriteInSession([&](LinkSession& session) { return session.WriteRegister(reg, value); });
}

bool TpsModel::IsEndPoint(std::string_view text) {
  return ParseWhole<std::uint16_t>(text).has_value();
}

bool TpsModel::WriteEndPoints(std::string_view closed, std::string_view full) {
  if (closed.empty() || full.empty()) return false;
  const std::optional<std::uint16_t> closed_word = ParseWhole<std::uint16_t>(closed);
  const std::optional<std::uint16_t> full_word = ParseWhole<std::uint16_t>(full);
  if (!closed_word || !full_word) {
    Reject(closed_word ? full : closed, kUnsignedRange);
    return false;
  }
  const std::array words{*closed_word, *full_word};
  return WriteInSession(
      [&](LinkSession& session) { return session.WriteRegisters(kClosedThrottleRegister, words); });
}

bool TpsModel::WriteWhole(std::uint16_t reg, std::string_view text, Sign sign,
                          std::string_view unit) {
  const bool is_signed = sign == Sign::kSigned;
  const std::optional<std::uint16_t> word =
      is_signed ? ParseWhole<std::int16_t>(text, unit) : ParseWhole<std::uint16_t>(text, unit);
  if (word) return WriteRegister(reg, *word);
  Reject(text, is_signed ? kSignedRange : kUnsignedRange);
  return false;
}

template <typename Write>
bool TpsModel::WriteInSession(Write write) {
  bool written = false;
  {
    LinkSession session(document_, LinkSession::Wait::kIdleAndGrace);
    written = write(session) == ModbusResult::kOk;
    ShowAnew();
  }
  if (written) return true;
  // Perhaps only the answer was lost. The polling, which goes on while the person reads the
  // message, gets what the ECU has.
  document_.RequestRefresh();
  boxes_.Inform(kParameterNotLoaded, MessageIcon::kExclamation);
  return false;
}

void TpsModel::Reject(std::string_view text, FixedText message) {
  ShowAnew();
  boxes_.Inform({message, text}, MessageIcon::kExclamation);
}

}  // namespace zelorgas
