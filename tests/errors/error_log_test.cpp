#include <gmock/gmock.h>

#include "errors/ErrorLog.h"
#include "support/PolledDocument.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kRequestFailed =
    "error: Error while loading installation information!\nPlease try again!";

// An ECU with temporary errors 1 (five times) and 8 (twice) and permanent error 3 (once).
struct Errors : PolledDocument {
  explicit Errors(std::uint8_t minor = 39) : PolledDocument(minor) { boxes.answer = true; }

  ErrorPage& Page(ErrorBank bank) { return log.Sheet().Page(bank); }
  std::vector<std::string> Listed(ErrorBank bank) {
    std::vector<std::string> texts;
    for (const ErrorPage::Entry& entry : Page(bank).Entries()) texts.push_back(entry.text);
    EXPECT_EQ(Page(bank).Highlighted(), !texts.empty());
    return texts;
  }
  std::vector<std::string> Temporary() { return Listed(ErrorBank::kTemporary); }
  std::vector<std::string> Permanent() { return Listed(ErrorBank::kPermanent); }

  ErrorLog log{document, boxes};
};

TEST(ErrorLog, ReadsBothBanks) {
  Errors ecu;
  ecu.ecu.SetErrorCount(true, 0, 65535);
  ecu.ecu.SetErrorCount(true, 4, 1000);
  for (int turn = 0; turn < 2; ++turn) {
    EXPECT_EQ(ecu.log.ReadErrors(), ModbusResult::kOk);
    EXPECT_THAT(ecu.Temporary(),
                ElementsAre(" 005  Coolant Temperature too low", " 002  Start on GAS"));
    EXPECT_THAT(ecu.Permanent(), ElementsAre(" 65535Permanent DTC 00", " 001  Permanent DTC 03",
                                             " 1000 Permanent DTC 04"));
    EXPECT_TRUE(ecu.Polls());
  }
  EXPECT_EQ(ecu.Page(ErrorBank::kTemporary).Entries()[1].item, 8U << 16U | 1488U);
  EXPECT_EQ(ecu.Page(ErrorBank::kPermanent).Entries()[1].item, 3U << 16U | 1547U);
  EXPECT_THAT(ecu.boxes.said, IsEmpty());
}

TEST(ErrorLog, ABankThatCannotBeReadIsEmptyAndTheOtherIsNot) {
  for (const unsigned failing : {1U, 2U, 3U}) {  // 3: both
    Errors ecu;
    ASSERT_EQ(ecu.log.ReadErrors(), ModbusResult::kOk);
    if (failing != 2) ecu.LoseRequest(1);
    if (failing != 1) ecu.LoseRequest(failing == 3 ? 4 : 2);
    EXPECT_EQ(ecu.log.ReadErrors(), ModbusResult::kTimeOut);
    EXPECT_EQ(ecu.Temporary().size(), failing == 2 ? 2U : 0U);
    EXPECT_EQ(ecu.Permanent().size(), failing == 1 ? 1U : 0U);
    EXPECT_THAT(ecu.boxes.said, ElementsAre("error: Time Out Error"));
    EXPECT_TRUE(ecu.Polls());
  }
}

TEST(ErrorLog, DeletesOneError) {
  Errors ecu;
  ASSERT_EQ(ecu.log.ReadErrors(), ModbusResult::kOk);
  ErrorPage& page = ecu.Page(ErrorBank::kTemporary);
  page.Select(1);
  EXPECT_EQ(page.Description(), "The vehicle has been started on GAS");

  ecu.LoseRequest(1);
  EXPECT_FALSE(page.DeleteSelected(ecu.boxes));
  EXPECT_EQ(ecu.Temporary().size(), 2U);
  EXPECT_THAT(ecu.boxes.said, ElementsAre("question: Delete error?", kRequestFailed));
  EXPECT_TRUE(ecu.Polls());
  ecu.TakeWrites();
  EXPECT_TRUE(page.DeleteSelected(ecu.boxes));
  EXPECT_EQ(ecu.TakeWrites(), "16408=0");
  EXPECT_EQ(ecu.ecu.ErrorCount(false, 8), 0);
  EXPECT_THAT(ecu.Temporary(), ElementsAre(" 005  Coolant Temperature too low"));
  EXPECT_EQ(page.Description(), "");
  ecu.Page(ErrorBank::kPermanent).Select(0);
  EXPECT_TRUE(ecu.Page(ErrorBank::kPermanent).DeleteSelected(ecu.boxes));
  EXPECT_EQ(ecu.TakeWrites(), "16435=0");
  EXPECT_THAT(ecu.Permanent(), IsEmpty());
  EXPECT_TRUE(ecu.Polls());
  EXPECT_FALSE(ecu.log.DeleteError(5, ErrorBank::kPermanent)) << "the bank does not have it";
  EXPECT_EQ(ecu.boxes.said.back(), kRequestFailed);
  EXPECT_EQ(ecu.TakeWrites(), "");
}

TEST(ErrorLog, DeletesAllByTheCoilOfTheFirmware) {
  // The version's minor number, the request that does not get through (0: none), what is written.
  const std::tuple<std::uint8_t, unsigned, const char*, bool> cases[] = {
      {'$', 0, "61=off 61=on", true},
      {'&', 0, "61=off 61=on", true},
      {'\'', 0, "66=off 66=on", true},
      {'#', 0, "", false},
      {'%', 0, "", false},
      {'\'', 1, "", false},
      {'\'', 2, "66=off 66=off 66=off 66=on", true},
      {'\'', 3, "66=off 66=on 66=on 66=on", false},
  };
  for (const auto& [minor, lost, writes, done] : cases) {
    SCOPED_TRACE(std::to_string(minor) + " " + writes);
    Errors ecu(minor);
    ASSERT_EQ(ecu.log.ReadErrors(), ModbusResult::kOk);
    if (lost != 0) ecu.LoseRequest(lost);
    std::vector<std::string> said{"question: Delete all errors?"};
    if (!done) said.emplace_back(kRequestFailed);
    EXPECT_EQ(ecu.Page(ErrorBank::kPermanent).DeleteAll(ecu.boxes), done);
    EXPECT_EQ(ecu.TakeWrites(), writes);
    EXPECT_EQ(ecu.ecu.ErrorCount(false, 1), done ? 0 : 5);
    EXPECT_EQ(ecu.Temporary().size(), done ? 0U : 2U);
    EXPECT_EQ(ecu.Permanent().size(), done ? 0U : 1U);
    EXPECT_EQ(ecu.boxes.said, said);
    EXPECT_TRUE(ecu.Polls());
  }
}

TEST(ErrorLog, DeletesNothingFromAnotherEcuThatCameWhileTheQuestionWasOpen) {
  Errors ecu;
  ASSERT_EQ(ecu.log.ReadErrors(), ModbusResult::kOk);
  ErrorPage& page = ecu.Page(ErrorBank::kTemporary);
  page.Select(0);
  ecu.boxes.while_asking = [&] { ecu.ecu.SetSerial(654321); };
  EXPECT_FALSE(page.DeleteSelected(ecu.boxes) || page.DeleteAll(ecu.boxes));
  EXPECT_EQ(ecu.TakeWrites(), "");
  EXPECT_EQ(ecu.boxes.informed, std::vector(2, std::string(kAnotherEcuAnswers)));
}

TEST(ErrorPage, AsksFirstAndSaysWhyItDoesNothing) {
  ScriptedBoxes boxes;
  ErrorPage page(ErrorBank::kTemporary);
  const auto delete_both = [&] {
    EXPECT_FALSE(page.DeleteSelected(boxes) || page.DeleteAll(boxes));
    return std::exchange(boxes.said, {});
  };
  const std::string one = "question: Delete error?";
  const std::string all = "question: Delete all errors?";
  const std::string nothing_selected = "note: Please, select an item/error!";
  const std::string no_owner = "note: Cannot delete the selected error!";
  EXPECT_THAT(delete_both(), ElementsAre(one, all));
  boxes.answer = true;
  EXPECT_THAT(delete_both(), ElementsAre(one, nothing_selected, all,
                                         "note: There are no errors!\nThe list is empty!"));
  page.addError(2, 1);
  page.addError(10, 1);  // not in this bank
  page.Select(1);
  EXPECT_THAT(delete_both(), ElementsAre(one, nothing_selected, all, no_owner));
  page.Select(0);
  EXPECT_EQ(page.Description(), "Very low RPM ");
  EXPECT_THAT(delete_both(), ElementsAre(one, no_owner, all, no_owner));
}

}  // namespace
}  // namespace zelorgas
