#include "platform/Message.h"

#include <cstddef>

namespace zelorgas {

Message Message::Verbatim(std::string words) {
  Message message;
  message.verbatim_ = std::move(words);
  return message;
}

void Message::Append(std::string_view separator, Message next) {
  if (empty()) {
    *this = std::move(next);
    return;
  }
  if (!text_.empty()) {
    Message first = std::exchange(*this, {});
    pieces_.push_back(std::move(first));
  }
  pieces_.push_back(Verbatim(std::string(separator)));
  pieces_.push_back(std::move(next));
}

std::string Message::In(const Translation& translate) const {
  if (text_.empty()) {
    std::string words = verbatim_;
    for (const Message& piece : pieces_) words += piece.In(translate);
    return words;
  }
  const std::string pattern = translate(text_);
  std::string words;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char next = i + 1 < pattern.size() ? pattern[i + 1] : ' ';
    const auto place = static_cast<std::size_t>(next - '1');
    if (pattern[i] == '%' && next >= '1' && next <= '9' && place < pieces_.size()) {
      words += pieces_[place].In(translate);
      ++i;
    } else {
      words += pattern[i];
    }
  }
  return words;
}

std::string Message::English() const {
  return In([](FixedText text) { return std::string(text.English()); });
}

}  // namespace zelorgas
