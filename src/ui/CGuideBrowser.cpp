#include "ui/CGuideBrowser.h"

#include <QDesktopServices>
#include <QEvent>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QSet>
#include <QTextBlock>
#include <QtMath>
#include <algorithm>

#include "ui/GuideHtml.h"

// In no namespace, as the toolkit wants it.
static void RegisterGuide() { Q_INIT_RESOURCE(guide); }

namespace zelorgas {
namespace {

constexpr int kFitMs = 50;
constexpr double kMarginLines = 1.2;

}  // namespace

CGuideBrowser::CGuideBrowser(QWidget* parent) : QTextBrowser(parent) {
  RegisterGuide();
  setOpenExternalLinks(false);
  // The pictures' width does not depend on whether the text is long.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  document()->setDocumentMargin(fontMetrics().height() * kMarginLines);
  document()->setDefaultStyleSheet(StyleSheet());
  fit_timer_.setSingleShot(true);
  fit_timer_.setInterval(kFitMs);
  connect(&fit_timer_, &QTimer::timeout, this, &CGuideBrowser::FitPictures);
}

QUrl CGuideBrowser::UrlOf(const QString& name) { return {"qrc:/docs/" + name}; }

QString CGuideBrowser::MarkdownOf(const QUrl& chapter) {
  QFile file(':' + chapter.path());
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QVariant CGuideBrowser::loadResource(int type, const QUrl& name) {
  const QUrl full = source().resolved(name);
  if (type == QTextDocument::ImageResource) return Picture(full);
  if (full.path().endsWith(".md")) return GuideHtml(MarkdownOf(full));
  return {};
}

void CGuideBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType /*type*/) {
  const QUrl full = source().resolved(name);
  if (full.scheme() == "qrc") {
    QTextBrowser::doSetSource(full, QTextDocument::HtmlResource);
  } else {
    QDesktopServices::openUrl(full);
  }
}

QImage CGuideBrowser::Picture(const QUrl& name) const {
  QImage picture(':' + name.path());
  const qreal ratio = devicePixelRatioF();
  // As large as it was, at most.
  const double room = viewport()->width() - 2 * document()->documentMargin();
  const double width = std::min(room, static_cast<double>(picture.width()));
  if (picture.isNull() || width < 1) return picture;
  QImage scaled = picture.convertToFormat(QImage::Format_RGB32)
                      .scaledToWidth(static_cast<int>(width * ratio), Qt::SmoothTransformation);
  // A line keeps the picture of a window apart from the text.
  QPainter painter(&scaled);
  painter.setPen(QPen(palette().color(QPalette::Mid), qCeil(ratio)));
  painter.drawRect(scaled.rect().adjusted(0, 0, -1, -1));
  painter.end();
  scaled.setDevicePixelRatio(ratio);
  return scaled;
}

void CGuideBrowser::FitPictures() {
  QSet<QString> names;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
      if (format.isValid()) names += format.name();
    }
  }
  if (names.isEmpty()) return;
  const double place =
      verticalScrollBar()->value() / std::max(1.0, 1.0 * verticalScrollBar()->maximum());
  for (const QString& name : names) {
    const QUrl full = source().resolved(name);
    document()->addResource(QTextDocument::ImageResource, full, Picture(full));
  }
  document()->markContentsDirty(0, document()->characterCount());
  verticalScrollBar()->setValue(static_cast<int>(place * verticalScrollBar()->maximum()));
}

void CGuideBrowser::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  fit_timer_.start();
}

void CGuideBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange && event->type() != QEvent::FontChange) return;
  document()->setDefaultStyleSheet(StyleSheet());
  if (!source().isEmpty()) reload();
}

QString CGuideBrowser::StyleSheet() const {
  const auto blend = [this](const QColor& with, double share) {
    const QColor base = palette().color(QPalette::Base);
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return QColor(mix(base.red(), with.red()), mix(base.green(), with.green()),
                  mix(base.blue(), with.blue()))
        .name();
  };
  const QColor text = palette().color(QPalette::Text);
  const int space = fontMetrics().height() / 3;
  return QString(
             "p, li { margin-top: %1px; margin-bottom: %1px; line-height: 125%; }"
             "h1 { margin-bottom: %2px; } h2 { margin-top: %3px; margin-bottom: %1px; }"
             "th, td { padding: %1px; }"
             "table { margin-top: %2px; margin-bottom: %2px; border-collapse: collapse; }"
             "table.data { border: 1px solid %4; }"
             "table.code td { background-color: %5; }"
             "table.warning td { background-color: %6; }"
             "code, pre { font-family: monospace; }")
      .arg(space)
      .arg(2 * space)
      .arg(4 * space)
      .arg(blend(text, 0.3), blend(text, 0.08), blend(QColor(255, 170, 0), 0.25));
}

}  // namespace zelorgas
