#include "platform/Message.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace zelorgas {
namespace {

constexpr FixedText kRead = FixedText::Of("Cannot read %1: %2");
constexpr FixedText kLarge = FixedText::Of("it is larger than %1 MB");

std::string Backwards(FixedText text) {
  if (text == kRead) return "%2 (%1)";
  if (text == kLarge) return "%1+ MB";
  return std::string(text.English());
}

TEST(Message, IsFilledInTheOrderOfItsLanguage) {
  const Message reason(kLarge, std::uintmax_t{4});
  const Message message(kRead, std::string("car %2.fob"), reason);
  EXPECT_EQ(message, "Cannot read car %2.fob: it is larger than 4 MB");
  EXPECT_EQ(message.In(Backwards), "4+ MB (car %2.fob)");
  EXPECT_EQ(Message::Verbatim("%1 MB").In(Backwards), "%1 MB");
}

TEST(Message, PercentSignsAndPlacesWithoutAValueStay) {
  EXPECT_EQ(Message(FixedText::Of("Threshold, %/s")), "Threshold, %/s");
  EXPECT_EQ(Message(FixedText::Of("25 % of %1, %2 and %"), -3), "25 % of -3, %2 and %");
}

TEST(Message, PiecesAreJoinedOnlyWhereThereIsSomethingBefore) {
  Message list;
  EXPECT_TRUE(list.empty());
  list.Append("\n", {kLarge, 1});
  list.Append("\n", Message::Verbatim("two"));
  list.Append(".", {});
  EXPECT_EQ(list, "it is larger than 1 MB\ntwo.");
  EXPECT_EQ(list.In(Backwards), "1+ MB\ntwo.");
}

}  // namespace
}  // namespace zelorgas
