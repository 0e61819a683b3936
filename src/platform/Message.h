// Texts that a person reads. A FixedText is an English text of the program, marked so that the
// translators' tools find it; a Message is one with the values in it. Only the window, which knows
// the person's language, makes words of that language of it; all others use the English ones. Plain
// data; any thread may use it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace zelorgas {

class FixedText {
 public:
  // No text.
  constexpr FixedText() = default;
  // The only way to make one: lupdate collects what stands in the parentheses. %1 to %9 are places
  // for the values of a message.
  static consteval FixedText Of(const char* english) { return FixedText(english); }

  [[nodiscard]] constexpr std::string_view English() const { return english_; }
  // NOLINTNEXTLINE(google-explicit-constructor): where nobody translates, it is its English text
  constexpr operator std::string_view() const { return english_; }
  // NOLINTNEXTLINE(readability-identifier-naming): as the standard's strings have it
  [[nodiscard]] constexpr bool empty() const { return english_.empty(); }

  friend constexpr bool operator==(FixedText a, FixedText b) { return a.english_ == b.english_; }
  friend constexpr bool operator==(FixedText text, std::string_view english) {
    return text.english_ == english;
  }

 private:
  constexpr explicit FixedText(const char* english) : english_(english) {}

  std::string_view english_;
};

class Message {
 public:
  // Nothing to say.
  Message() = default;
  // The text with its places taken by the values: messages, fixed texts, whole numbers, or words
  // that are the same in every language, such as a file's name.
  template <typename... Values>
  // NOLINTNEXTLINE(google-explicit-constructor): every fixed text is a message
  Message(FixedText text, const Values&... values) : text_(text), pieces_{AsValue(values)...} {}
  // Words that are the same in every language, or come from elsewhere: the system's own, a file's.
  [[nodiscard]] static Message Verbatim(std::string words);

  // Puts `next` behind it; and between the two, when there is something before it, `separator`.
  void Append(std::string_view separator, Message next);

  // NOLINTNEXTLINE(readability-identifier-naming): as the standard's strings have it
  [[nodiscard]] bool empty() const { return text_.empty() && verbatim_.empty() && pieces_.empty(); }
  // The words in the language of `translate`, which gives a fixed text in that language.
  using Translation = std::function<std::string(FixedText)>;
  [[nodiscard]] std::string In(const Translation& translate) const;
  [[nodiscard]] std::string English() const;

  friend bool operator==(const Message& message, std::string_view english) {
    return message.English() == english;
  }

 private:
  template <typename Value>
  static Message AsValue(const Value& value) {
    if constexpr (std::is_convertible_v<const Value&, Message>) {
      return value;
    } else if constexpr (std::is_integral_v<Value>) {
      return Verbatim(std::to_string(value));
    } else {
      return Verbatim(std::string(std::string_view(value)));
    }
  }

  // Either a text and its values, or the words and what stands behind them.
  FixedText text_;
  std::string verbatim_;
  std::vector<Message> pieces_;
};

}  // namespace zelorgas
