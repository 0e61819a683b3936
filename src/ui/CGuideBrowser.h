// Shows the chapters of the guide, which lie in the program's resources; pictures get the width
// that there is. User-interface thread.
#pragma once

#include <QTextBrowser>
#include <QTimer>

namespace zelorgas {

class CGuideBrowser final : public QTextBrowser {
  Q_OBJECT

 public:
  explicit CGuideBrowser(QWidget* parent = nullptr);

  // Where a chapter lies, and its text as it was written. `name` as in the links, "guide/tps.md".
  [[nodiscard]] static QUrl UrlOf(const QString& name);
  [[nodiscard]] static QString MarkdownOf(const QUrl& chapter);

  // A chapter as HTML; a picture in the size in which it is shown.
  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  // Chapters are shown here, pages of the web by the system.
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

 private:
  [[nodiscard]] QString StyleSheet() const;
  [[nodiscard]] QImage Picture(const QUrl& name) const;
  void FitPictures();

  QTimer fit_timer_;
};

}  // namespace zelorgas
