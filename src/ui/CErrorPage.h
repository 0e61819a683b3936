// One bank of the error list as the window shows it: the entries to the left, the description of
// the selected one to the right. What it shows and what is selected stands in the model.
// User-interface thread.
#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QWidget>

#include "errors/ErrorPage.h"

namespace zelorgas {

class CErrorPage final : public QWidget {
  Q_OBJECT

 public:
  // `page` outlives the widget.
  CErrorPage(ErrorPage& page, const QString& title, QWidget* parent);

  // Shows the entries, the selection and the description of the model. `when_empty` stands in the
  // list while there is no entry.
  void ShowEntries(const QString& when_empty);

  [[nodiscard]] ErrorPage& Model() { return page_; }
  // Takes the actions of the context menu.
  [[nodiscard]] QWidget& List() { return *list_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SelectInModel();

  ErrorPage& page_;
  QListWidget* list_;
  QLabel* empty_;  // over the list
  QPlainTextEdit* description_;
};

}  // namespace zelorgas
