#include "platform/PortOrder.h"

#include <algorithm>
#include <cstddef>

namespace zelorgas {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Takes the number at the front of `text`, leading zeros left out.
std::string_view TakeNumber(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
  std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(number.size());
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

}  // namespace

bool ComesBefore(std::string_view a, std::string_view b) {
  const std::string_view whole_a = a;
  const std::string_view whole_b = b;
  while (!a.empty() && !b.empty()) {
    if (IsDigit(a.front()) && IsDigit(b.front())) {
      const std::string_view number_a = TakeNumber(a);
      const std::string_view number_b = TakeNumber(b);
      if (number_a.size() != number_b.size()) return number_a.size() < number_b.size();
      if (number_a != number_b) return number_a < number_b;
    } else {
      if (a.front() != b.front()) return a.front() < b.front();
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
  }
  if (a.empty() != b.empty()) return a.empty();
  return whole_a < whole_b;  // equal but for leading zeros
}

}  // namespace zelorgas
