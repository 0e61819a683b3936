#include "app/AboutInfo.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdio>
#include <optional>

#include "platform/IgnoreCase.h"

namespace zelorgas {
namespace {

constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::string_view kBlanks = " \t\n\v\f\r";

void SkipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

std::string_view TakeWord(std::string_view& text) {
  SkipBlanks(text);
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  return word;
}

std::optional<unsigned> TakeNumber(std::string_view& text) {
  SkipBlanks(text);
  unsigned number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

// Four numbers with points between them; what follows is not looked at.
std::optional<std::array<unsigned, 4>> ParseVersion(std::string_view text) {
  std::array<unsigned, 4> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i > 0) {
      if (!text.starts_with('.')) return std::nullopt;
      text.remove_prefix(1);
    }
    const std::optional<unsigned> number = TakeNumber(text);
    if (!number) return std::nullopt;
    numbers[i] = *number;
  }
  return numbers;
}

template <typename... Values>
std::string Format(const char* format, Values... values) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

// The number of the month that `name` abbreviates, 1 for January; 0 when it is none.
unsigned MonthNumber(std::string_view name) {
  const auto* const month = std::ranges::find_if(
      kMonths, [name](std::string_view known) { return EqualIgnoringCase(known, name); });
  return month == kMonths.end() ? 0 : static_cast<unsigned>(month - kMonths.begin()) + 1;
}

// "03.07.2007 / 12:34:56"; empty when `built` is not of the compiler's form.
std::string FormatDate(std::string_view built) {
  const unsigned month = MonthNumber(TakeWord(built));
  const std::optional<unsigned> day = TakeNumber(built);
  const std::optional<unsigned> year = TakeNumber(built);
  if (month == 0 || !day || !year || TakeWord(built) != "at") return {};
  SkipBlanks(built);
  return Format("%02u.%02u.%4u / ", *day, month, *year).append(built);
}

}  // namespace

AboutInfo MakeAboutInfo(const ProgramVersion& program, std::string_view built) {
  AboutInfo about;
  if (!program.product_name.empty()) about.product = program.product_name;
  if (const auto numbers = ParseVersion(program.file_version)) {
    about.version = Format("%2u.%02u", (*numbers)[0], (*numbers)[1]);
    about.revision = Format("%02u", (*numbers)[2]);
    about.build = Format("%04u", (*numbers)[3]);
  }
  if (std::string date = FormatDate(built); !date.empty()) about.date = std::move(date);
  return about;
}

std::string_view BuildTime() { return __DATE__ " at " __TIME__; }

}  // namespace zelorgas
