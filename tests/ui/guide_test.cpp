#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QDirIterator>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <memory>

#include "support/VirtualClock.h"
#include "ui/CGuideWindow.h"
#include "ui/GuideHtml.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

// The guide as F1 has opened it.
CGuideWindow& OpenGuide(const UiBench& bench) {
  bench.Find<QAction>("guide_action").trigger();
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    auto* const guide = qobject_cast<CGuideWindow*>(window);
    if (guide != nullptr && guide->isVisible()) return *guide;
  }
  qFatal("the guide is not open");
}

QString Shown(const CGuideWindow& guide) {
  return guide.findChild<QListWidget*>("guide_chapters")->currentItem()->text();
}

TEST(Guide, OpensFromF1AtTheChapterOfThePage) {
  const std::pair<int, const char*> pages[] = {
      {0, "First connection"},   {1, "The configuration page"},
      {2, "Tuning the map"},     {3, "TPS corrections"},
      {4, "Recording"},          {5, "Errors"},
      {6, "Storing and loading"}};
  VirtualClock clock;
  UiBench bench(clock);
  EXPECT_EQ(bench.Find<QAction>("guide_action").shortcut(), QKeySequence("F1"));
  for (const auto& [tab, title] : pages) {
    bench.Find<QTabWidget>("tabs").setCurrentIndex(tab);
    EXPECT_EQ(Shown(OpenGuide(bench)), title);
  }
  const CGuideWindow& guide = OpenGuide(bench);
  bench.frame->close();
  EXPECT_FALSE(guide.isVisible());
}

TEST(Guide, EveryLinkAndPictureOfEveryChapterIsThere) {
  VirtualClock clock;
  UiBench bench(clock);
  const CGuideWindow& guide = OpenGuide(bench);
  auto& browser = *guide.findChild<CGuideBrowser*>("guide_text");
  const QRegularExpression target("(href|src)=\"([^\"]*)\"");
  std::vector<std::string> missing;
  int chapters = 0;
  int targets = 0;
  for (QDirIterator file(":/docs", {"*.md"}, QDir::Files, QDirIterator::Subdirectories);
       file.hasNext(); ++chapters) {
    const QUrl chapter("qrc" + file.next());
    browser.setSource(chapter);
    EXPECT_EQ(Shown(guide), GuideTitle(CGuideBrowser::MarkdownOf(chapter)));
    auto found = target.globalMatch(GuideHtml(CGuideBrowser::MarkdownOf(chapter)));
    for (; found.hasNext(); ++targets) {
      const QUrl full = chapter.resolved(found.next().captured(2));
      const bool there = full.scheme() == "qrc" && QFile::exists(':' + full.path());
      if (!there) missing.push_back(full.toString().toStdString());
    }
  }
  EXPECT_THAT(missing, IsEmpty());
  EXPECT_EQ(chapters, guide.findChild<QListWidget*>("guide_chapters")->count());
  EXPECT_GT(targets, 40);
}

TEST(Guide, TheSearchGoesThroughAllChapters) {
  CGuideWindow guide(/*foreign=*/false);
  guide.OpenForPage("start_page");
  auto& search = *guide.findChild<QLineEdit*>("guide_search");
  search.setText("ecu lack of PULSES");
  emit search.returnPressed();
  EXPECT_EQ(Shown(guide), "Errors");
  EXPECT_EQ(guide.findChild<CGuideBrowser*>()->textCursor().selectedText(), "ECU lack of pulses");
  search.setText("there is no such word");
  emit search.returnPressed();
  EXPECT_EQ(Shown(guide), "Errors");
  EXPECT_EQ(guide.findChild<QLabel*>("guide_found")->text(), "Not found");
}

TEST(GuideHtml, KnowsWhatTheChaptersUse) {
  const std::pair<const char*, const char*> cases[] = {
      {"# A & B", "<h1>A &amp; B</h1>"},
      {"one\ntwo", "<p>one two</p>"},
      {"**bold** `x **y** <z>`", "<p><b>bold</b> <code>x **y** &lt;z&gt;</code></p>"},
      {"[a](b.md) ![c](d.png)", "<a href=\"b.md\">a</a> <img alt=\"c\" src=\"d.png\">"},
      {"1. a\n   b\n2. c", "<ol><li><p>a b</p>\n</li>\n<li><p>c</p>\n</li>\n</ol>"},
      {"text\n- a\n\n  b", "<p>text</p>\n<ul><li><p>a</p>\n<p>b</p>\n</li>\n</ul>"},
      {"| A | B |\n|---|---|\n| `+` | d |",
       "<tr><th align=\"left\">A</th><th align=\"left\">B</th></tr>"
       "<tr><td><code>+</code></td><td>d</td></tr>"},
      {"```\na\n\n# b\n```", "<pre>a\n\n# b</pre>"},
      {"> a\n>\n> b", "<p>a</p>\n<p>b</p>"},
      {"1. a\n\n   ```\n   b\n   ```", "<li><p>a</p>\n<table class=\"code\""},
  };
  for (const auto& [markdown, html] : cases) {
    EXPECT_THAT(GuideHtml(markdown).toStdString(), HasSubstr(html));
  }
}

}  // namespace
}  // namespace zelorgas
