#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <set>

#include "app/EcuConnection.h"
#include "support/VirtualClock.h"
#include "ui/LanguageTexts.h"
#include "ui/Text.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

using testing::IsEmpty;

// The texts of the language that the settings name, as long as it lives.
struct InBulgarian {
  InBulgarian() {
    MemorySettings store;
    Settings settings(store);
    loaded = settings.ChooseLanguage(0) && texts.Load(LanguageLibrary(settings.Language()));
  }
  LanguageTexts texts;
  bool loaded = false;
};

void OpenEveryTab(UiBench& bench) {
  auto& tabs = bench.Find<QTabWidget>("tabs");
  for (int tab = 0; tab < tabs.count(); ++tab) bench.OpenTab(tabs.tabText(tab));
}

TEST(Language, WindowMessagesAndQtSpeakTheStoredOne) {
  VirtualClock clock;
  {
    const InBulgarian language;
    ASSERT_TRUE(language.loaded);
    UiBench bench(clock);
    EXPECT_EQ(bench.Find<QMenu>("file_menu").title(), "&Файл");
    EXPECT_EQ(bench.Find<QLabel>("communication_state").text(), "Връзка: няма!");
    EXPECT_EQ(TranslatedMessage(kPortBusy), "Съжаляваме! Избраният COM порт е зает!");
    const Message nested(FixedText::Of("The data could not be synchronized: %1"),
                         bench.document.Link().ErrorText(ModbusResult::kTimeOut));
    EXPECT_EQ(TranslatedMessage(nested),
              "Данните не можаха да бъдат синхронизирани: Няма отговор навреме");
    EXPECT_EQ(TranslatedName("VALTEK"), "VALTEK") << "a product's name";
    const QDialogButtonBox buttons(QDialogButtonBox::Cancel);
    EXPECT_EQ(buttons.button(QDialogButtonBox::Cancel)->text(), "Отказ");
  }
  EXPECT_EQ(TranslatedMessage(kPortBusy), ToQString(kPortBusy)) << "the texts have gone";
}

// Words of four small letters are English; units and registers are shorter or in capitals, and
// names and keys are taken out.
TEST(Language, NoTextOfTheWindowIsLeftOut) {
  VirtualClock clock;
  const InBulgarian language;
  ASSERT_TRUE(language.loaded);
  UiBench bench(clock);
  OpenEveryTab(bench);
  std::set<QString> texts;
  for (const auto* const action : bench.frame->findChildren<QAction*>()) {
    texts.insert({action->text(), action->statusTip(), action->toolTip()});
  }
  for (const auto* const widget : bench.frame->findChildren<QWidget*>()) {
    texts.insert({widget->toolTip(), widget->accessibleName()});
    if (const auto* const label = qobject_cast<const QLabel*>(widget)) texts.insert(label->text());
    if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
      texts.insert(button->text());
    }
  }
  EXPECT_GT(texts.size(), 200U);
  const QRegularExpression names("backup|Enter|Home|Zelor[A-Z]|Lambda|Accum|deltaP");
  const QRegularExpression english("[a-z]{4,}");
  std::vector<std::string> left;
  for (const QString& text : texts) {
    if (QString(text).remove(names).contains(english)) left.push_back(text.toStdString());
  }
  EXPECT_THAT(left, IsEmpty());
}

// Of two commands with the same letter the keyboard reaches only one at once.
TEST(Language, MnemonicsOfAMenuDiffer) {
  VirtualClock clock;
  for (const bool bulgarian : {false, true}) {
    const std::unique_ptr<InBulgarian> language =
        bulgarian ? std::make_unique<InBulgarian>() : nullptr;
    UiBench bench(clock);
    QList<QList<QAction*>> groups{bench.frame->menuBar()->actions()};
    for (const auto* const menu : bench.frame->findChildren<QMenu*>()) groups += menu->actions();
    std::vector<std::string> twice;
    for (const QList<QAction*>& group : groups) {
      std::set<QKeySequence> taken;
      for (const auto* const action : group) {
        const QKeySequence key = QKeySequence::mnemonic(action->text());
        if (!key.isEmpty() && !taken.insert(key).second) {
          twice.push_back(action->text().toStdString());
        }
      }
    }
    EXPECT_THAT(twice, IsEmpty());
  }
}

}  // namespace
}  // namespace zelorgas
