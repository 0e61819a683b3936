#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <set>

#include "app/EcuConnection.h"
#include "support/VirtualClock.h"
#include "ui/CBootDlg.h"
#include "ui/CCellChangeDlg.h"
#include "ui/CFileDlg.h"
#include "ui/CStoreDlg.h"
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
    const auto& languages = bench.Find<QComboBox>("language_list");
    EXPECT_EQ(languages.itemText(0), "Български");
    EXPECT_EQ(languages.itemText(1), "English (Английски)")
        << "also for who has taken the wrong one";
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
  const QRegularExpression names("backup|Enter|Home|Outlet|Zelor[A-Z]|Lambda|Accum|deltaP");
  const QRegularExpression english("[a-z]{4,}");
  std::vector<std::string> left;
  for (const QString& text : texts) {
    if (QString(text).remove(names).contains(english)) left.push_back(text.toStdString());
  }
  EXPECT_THAT(left, IsEmpty());
}

// The texts whose letters are reached at once in a menu, and on a page or in a dialog.
QStringList TextsOf(const QList<QAction*>& actions) {
  QStringList texts;
  for (const auto* const action : actions) texts += action->text();
  return texts;
}
QStringList TextsOf(const QWidget& widget) {
  QStringList texts;
  for (const auto* const button : widget.findChildren<QAbstractButton*>()) texts += button->text();
  for (const auto* const label : widget.findChildren<QLabel*>()) {
    if (label->buddy() != nullptr) texts += label->text();
  }
  return texts;
}

// Qt puts one of its menus together of the texts of two classes. Its English has a letter twice.
QStringList TextsOfASpinBoxMenu() {
  QLineEdit field;
  QStringList texts = TextsOf(field.createStandardContextMenu()->actions());
  for (const char* const text : {"&Select All", "&Step up", "Step &down"}) {
    texts += QCoreApplication::translate("QAbstractSpinBox", text);
  }
  return texts;
}

// Of two things with the same letter the keyboard reaches only one at once.
TEST(Language, MnemonicsOfAMenuAPageAndADialogDiffer) {
  VirtualClock clock;
  for (const bool bulgarian : {false, true}) {
    const std::unique_ptr<InBulgarian> language =
        bulgarian ? std::make_unique<InBulgarian>() : nullptr;
    UiBench bench(clock);
    const CStoreDlg store(bench.settings, bench.folder.Path(), nullptr);
    const CFileDlg open(CFileDlg::Purpose::kOpen, {}, bench.folder.Path(), ".osc", nullptr);
    const CFileDlg save(CFileDlg::Purpose::kSave, {}, bench.folder.Path(), ".osc", nullptr);
    const CCellChangeDlg change({}, 1, nullptr);
    const CBootDlg boot(bench.document, bench.boxes,
                        {[] { return std::vector<FirmwareImage>(); }, {}}, {}, {}, nullptr);
    QList<QStringList> groups{TextsOf(store), TextsOf(open), TextsOf(save), TextsOf(change),
                              TextsOf(boot)};
    if (bulgarian) groups += TextsOfASpinBoxMenu();
    for (const auto* const menu : bench.frame->findChildren<QMenu*>()) {
      groups += TextsOf(menu->actions());
    }
    OpenEveryTab(bench);
    const auto& tabs = bench.Find<QTabWidget>("tabs");
    for (int tab = 0; tab < tabs.count(); ++tab) {
      groups += TextsOf(bench.frame->menuBar()->actions()) + TextsOf(*tabs.widget(tab));
    }
    std::vector<std::string> twice;
    for (const QStringList& group : groups) {
      std::set<QKeySequence> taken;
      for (const QString& text : group) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (!key.isEmpty() && !taken.insert(key).second) twice.push_back(text.toStdString());
      }
    }
    EXPECT_THAT(twice, IsEmpty());
  }
}

}  // namespace
}  // namespace zelorgas
