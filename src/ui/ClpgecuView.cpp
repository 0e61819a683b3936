#include "ui/ClpgecuView.h"

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

#include "ui/CTabStart.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kAnswerWatchMs = 100;
constexpr FixedText kNoAnswer = FixedText::Of("The ECU does not answer.");

// Strips one above the other. They take no more than a share of the height: in a small window they
// are scrolled, so that the page below keeps some.
class StripArea final : public QScrollArea {
 public:
  StripArea(std::initializer_list<QWidget*> strips, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->setContentsMargins({});
    for (QWidget* const strip : strips) layout->addWidget(strip);
    setWidget(content);
  }

  // To be called when the parent has another size.
  void Fit() {
    constexpr double kShare = 0.45;
    const QSize wanted = widget()->minimumSizeHint();
    const int most = static_cast<int>(parentWidget()->height() * kShare);
    const int bar = wanted.height() > most ? verticalScrollBar()->sizeHint().width() : 0;
    setMinimumWidth(wanted.width() + bar);
    setFixedHeight(std::min(wanted.height(), most));
  }

 protected:
  // A scroll area watches its content.
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool filtered = QScrollArea::eventFilter(watched, event);
    if (watched == widget() && event->type() == QEvent::LayoutRequest) Fit();
    return filtered;
  }
};

}  // namespace

ClpgecuView::ClpgecuView(UiContext& context, QWidget* parent) : QWidget(parent), context_(context) {
  setObjectName("main_view");
  setAccessibleName(tr("ECU"));
  live_strip_ = new CLiveStrip("live_strip", tr("Live values"), context_.document, MainLiveFields(),
                               {14, 7, 5, 4, 3}, this);
  cylinder_strip_ = new CLiveStrip("cylinder_strip", tr("Injection times by cylinder"),
                                   context_.document, CylinderLiveFields(), {12, 6, 4, 3}, this);
  cylinder_strip_->setVisible(false);

  tabs_ = new QTabWidget(this);
  tabs_->setObjectName("tabs");
  tabs_->setAccessibleName(tr("Pages"));
  tabs_->setDocumentMode(true);
  start_page_ = new CTabStart(context_, this);
  auto* const scroll = new QScrollArea(tabs_);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidget(start_page_);
  tabs_->addTab(scroll, tr("Start"));

  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 0);
  auto* const strips = new StripArea({live_strip_, cylinder_strip_}, this);
  layout->addWidget(strips);
  connect(this, &ClpgecuView::Resized, strips, &StripArea::Fit);
  layout->addWidget(tabs_, 1);

  answer_timer_.setInterval(kAnswerWatchMs);
  connect(&answer_timer_, &QTimer::timeout, this, &ClpgecuView::WatchAnswers);
  connect(&context_.control, &CEcuControl::StateChanged, this, &ClpgecuView::FollowControl);
  // A procedure may have written something that another page shows.
  connect(&context_.control, &CEcuControl::BusyChanged, this, [this](bool busy) {
    if (busy) return;
    emit BecameIdle();
    ShowImage();
  });
  context_.status.Box().SetReceiver(this);
}

ClpgecuView::~ClpgecuView() { context_.status.Box().SetReceiver(nullptr); }

void ClpgecuView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  emit Resized();
}

void ClpgecuView::AddPage(const QString& title, CPageFrame::Needs needs,
                          CPageFrame::PageMaker make) {
  auto* const frame = new CPageFrame(std::move(make), needs, tabs_);
  frame->ShowLinkProblem(WhyPagesAreDisabled(link_state_));
  pages_.push_back(frame);
  tabs_->addTab(frame, title);
}

CEcuPage& ClpgecuView::TurnTo(const QString& title) {
  const auto frame = std::ranges::find_if(
      pages_, [&](CPageFrame* page) { return tabs_->tabText(tabs_->indexOf(page)) == title; });
  tabs_->setCurrentWidget(*frame);
  return (*frame)->Page();
}

QString ClpgecuView::CurrentPage() const {
  auto* const frame = qobject_cast<CPageFrame*>(tabs_->currentWidget());
  return frame == nullptr ? start_page_->objectName() : frame->Page().objectName();
}

void ClpgecuView::MarkPage(const QString& title, bool marked) {
  for (int tab = 0; tab < tabs_->count(); ++tab) {
    if (tabs_->tabText(tab) != title) continue;
    const QIcon icon = style()->standardIcon(QStyle::SP_MessageBoxWarning);
    tabs_->setTabIcon(tab, marked ? icon : QIcon());
  }
}

void ClpgecuView::ShowCylinders(bool show) {
  cylinder_strip_->setVisible(show);
  context_.document.SetExtraChannels(show);
}

void ClpgecuView::customEvent(QEvent*) {
  const std::vector<CommStatus> came = context_.status.Box().TakeAll();
  for (auto status = came.begin(); status != came.end(); ++status) {
    OnCommStatus(*status);
    const auto next = std::next(status);
    const bool overtaken = next != came.end() && *next == CommStatus::kLiveData;
    // Drawing each would let a slow machine fall behind for good.
    if (*status == CommStatus::kLiveData && !overtaken) ShowLive();
  }
}

void ClpgecuView::ShowLive() {
  for (CPageFrame* const page : pages_) page->ShowLive();
}

void ClpgecuView::OnCommStatus(CommStatus status) {
  switch (status) {
    case CommStatus::kLiveData:
      context_.counters.CountRound();
      live_strip_->MarkDirty();
      cylinder_strip_->MarkDirty();
      emit LiveDataCame();
      return;
    case CommStatus::kFullRead:
      emit ImageRead();
      ShowImage();
      return;
    case CommStatus::kEcuRestarted:
      context_.control.SynchronizeAfterRestart();
      return;
    case CommStatus::kAnotherEcu:
      context_.control.ConnectAnew();
      return;
    default:
      ShowLinkState(status);
  }
}

void ClpgecuView::ShowImage() {
  for (CPageFrame* const page : pages_) page->ShowImage();
}

void ClpgecuView::ShowLinkState(CommStatus status) {
  link_state_ = status;
  const QString reason = WhyPagesAreDisabled(status);
  for (CPageFrame* const page : pages_) page->ShowLinkProblem(reason);
  for (CLiveStrip* const strip : {live_strip_, cylinder_strip_}) {
    if (status == CommStatus::kConnecting) strip->MarkStale();
    if (status == CommStatus::kNotConnected || status == CommStatus::kPortBusy) strip->Clear();
  }
  emit LinkStateChanged();
  // Live marks go with the link.
  for (CPageFrame* const page : pages_) page->ShowLive();
}

void ClpgecuView::FollowControl() {
  const CEcuControl::State state = context_.control.CurrentState();
  if (state == CEcuControl::State::kConnecting) ShowLinkState(CommStatus::kConnecting);
  if (state == CEcuControl::State::kConnected) {
    answering_ = true;
    answer_timer_.start();
  } else {
    answer_timer_.stop();
  }
  // A connection that never came to a worker has nobody to report its end.
  if (state == CEcuControl::State::kDisconnected && link_state_ != CommStatus::kPortBusy) {
    ShowLinkState(CommStatus::kNotConnected);
  }
}

// The worker gives the link up only after three rounds without an answer. The person hears of the
// first one, so that what the strip shows is not taken for live.
void ClpgecuView::WatchAnswers() {
  const bool answering = context_.counters.Quality().answering;
  if (answering == answering_) return;
  answering_ = answering;
  if (answering) {
    emit MessageOver(TranslatedMessage(kNoAnswer));
    return;
  }
  context_.boxes.Status(kNoAnswer);
  live_strip_->MarkStale();
  cylinder_strip_->MarkStale();
}

}  // namespace zelorgas
