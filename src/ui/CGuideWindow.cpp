#include "ui/CGuideWindow.h"

#include <QHBoxLayout>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <iterator>

#include "ui/GuideHtml.h"

namespace zelorgas {
namespace {

struct Chapter {
  const char* file;
  const char* page;  // that it helps with; empty: none alone
};
constexpr auto kChapters = std::to_array<Chapter>({
    {"guide/README.md", ""},
    {"guide/first-connection.md", "start_page"},
    {"guide/storing-and-loading.md", "files_page"},
    {"guide/configuration.md", "configuration_page"},
    {"guide/tuning.md", "grid_page"},
    {"guide/tps.md", "tps_page"},
    {"guide/recording.md", "oscilloscope_page"},
    {"guide/errors.md", "errors_page"},
    {"guide/firmware.md", ""},
    {"interrupted-update.md", ""},
    {"guide/command-line.md", ""},
    {"guide/troubleshooting.md", ""},
});
constexpr QSize kFirstGuideSize{1080, 820};

}  // namespace

CGuideWindow::CGuideWindow(bool foreign) {
  setObjectName("guide_window");
  setWindowTitle(tr("Guide"));
  setAccessibleName(windowTitle());
  // The program ends with its main window.
  setAttribute(Qt::WA_QuitOnClose, false);
  chapters_ = new QListWidget(this);
  chapters_->setObjectName("guide_chapters");
  chapters_->setAccessibleName(tr("Chapters"));
  chapters_->setWordWrap(true);
  chapters_->setSpacing(fontMetrics().height() / 6);
  chapters_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  browser_ = new CGuideBrowser(this);
  browser_->setObjectName("guide_text");
  browser_->setAccessibleName(tr("Text of the chapter"));
  auto* const right = new QWidget(this);
  auto* const column = new QVBoxLayout(right);
  column->setContentsMargins({});
  column->addWidget(MakeBar());
  if (foreign) {
    auto* const note = new QLabel(tr("The guide is in English only."), right);
    note->setObjectName("guide_language");
    column->addWidget(note);
  }
  column->addWidget(browser_, 1);
  auto* const halves = new QSplitter(this);
  halves->setObjectName("guide_halves");
  halves->addWidget(chapters_);
  halves->addWidget(right);
  halves->setChildrenCollapsible(false);
  halves->setStretchFactor(1, 1);
  auto* const layout = new QHBoxLayout(this);
  layout->addWidget(halves);
  ListChapters();
  halves->setSizes({fontMetrics().averageCharWidth() * 30, kFirstGuideSize.width()});
  resize(kFirstGuideSize.boundedTo(screen()->availableGeometry().size() * 0.95));
  connect(chapters_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0)
      browser_->setSource(CGuideBrowser::UrlOf(std::next(kChapters.begin(), row)->file));
  });
  connect(browser_, &QTextBrowser::sourceChanged, this, &CGuideWindow::FollowSource);
  auto* const leave = new QShortcut(Qt::Key_Escape, this);
  connect(leave, &QShortcut::activated, this, &QWidget::close);
}

QWidget* CGuideWindow::MakeBar() {
  auto* const bar = new QWidget(this);
  auto* const row = new QHBoxLayout(bar);
  row->setContentsMargins({});
  const auto button = [&](const char* name, const QString& text, const QKeySequence& keys) {
    auto* const made = new QToolButton(bar);
    made->setObjectName(name);
    made->setText(text);
    made->setAccessibleName(text);
    made->setShortcut(keys);
    made->setToolTip(text + " (" + keys.toString(QKeySequence::NativeText) + ')');
    made->setMinimumHeight(fontMetrics().height() * 7 / 4);
    row->addWidget(made);
    return made;
  };
  auto* const back = button("guide_back", tr("Back"), QKeySequence("Alt+Left"));
  auto* const home = button("guide_home", tr("Contents"), QKeySequence("Alt+Home"));
  row->addStretch(1);
  found_ = new QLabel(bar);
  found_->setObjectName("guide_found");
  search_ = new QLineEdit(bar);
  search_->setObjectName("guide_search");
  search_->setAccessibleName(tr("Search the guide"));
  search_->setPlaceholderText(tr("Search"));
  search_->setToolTip(tr("Finds words in all chapters (Ctrl+F); Enter goes on to the next place"));
  search_->setClearButtonEnabled(true);
  search_->setMinimumWidth(fontMetrics().averageCharWidth() * 28);
  row->addWidget(found_);
  row->addWidget(search_);
  back->setEnabled(false);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  connect(back, &QToolButton::clicked, browser_, &QTextBrowser::backward);
  connect(home, &QToolButton::clicked, this, [this] { chapters_->setCurrentRow(0); });
  connect(search_, &QLineEdit::returnPressed, this, &CGuideWindow::FindNext);
  connect(search_, &QLineEdit::textChanged, found_, &QLabel::clear);
  auto* const find = new QShortcut(QKeySequence::Find, this);
  connect(find, &QShortcut::activated, search_, [this] {
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
  });
  auto* const next = new QShortcut(QKeySequence::FindNext, this);
  connect(next, &QShortcut::activated, this, &CGuideWindow::FindNext);
  return bar;
}

void CGuideWindow::ListChapters() {
  for (const Chapter& chapter : kChapters) {
    const QString text = CGuideBrowser::MarkdownOf(CGuideBrowser::UrlOf(chapter.file));
    chapters_->addItem(GuideTitle(text));
  }
}

void CGuideWindow::OpenForPage(const QString& page) {
  const auto* const chapter = std::ranges::find_if(
      kChapters, [&](const Chapter& helps) { return !page.isEmpty() && helps.page == page; });
  const auto row = chapter == kChapters.end() ? 0 : std::distance(kChapters.begin(), chapter);
  chapters_->setCurrentRow(static_cast<int>(row));
  show();
  raise();
  activateWindow();
  browser_->setFocus();
}

void CGuideWindow::FollowSource(const QUrl& source) {
  const auto* const chapter = std::ranges::find_if(kChapters, [&](const Chapter& shown) {
    return CGuideBrowser::UrlOf(shown.file).path() == source.path();
  });
  if (chapter == kChapters.end()) return;
  const QSignalBlocker quiet(chapters_);
  chapters_->setCurrentRow(static_cast<int>(std::distance(kChapters.begin(), chapter)));
}

void CGuideWindow::FindNext() {
  const QString words = search_->text();
  if (words.isEmpty()) return;
  if (browser_->find(words)) {
    found_->clear();
    return;
  }
  const int count = chapters_->count();
  const int first = chapters_->currentRow();
  // The chapter itself is the last: what stands before the cursor is in it.
  for (int step = 1; step <= count; ++step) {
    chapters_->setCurrentRow((first + step) % count);
    browser_->moveCursor(QTextCursor::Start);
    if (!browser_->find(words)) continue;
    found_->clear();
    return;
  }
  found_->setText(tr("Not found"));
}

}  // namespace zelorgas
