// The error page: the sheet with the errors that the ECU has stored, and what can be done to them.
#pragma once

#include <QAction>
#include <QHBoxLayout>

#include "ui/CEcuPage.h"
#include "ui/CErrSheet.h"
#include "ui/PageModels.h"
#include "ui/UiContext.h"

namespace zelorgas {

class CTabErrors final : public CEcuPage {
  Q_OBJECT

 public:
  // Both outlive the page.
  CTabErrors(UiContext& context, PageModels& models, QWidget* parent);

  void ShowImage() override;

 private:
  QAction* AddCommand(const QString& object_name, const QString& text, const QString& tip,
                      void (CTabErrors::*command)());
  void Refresh();
  void DeleteOne();
  void DeleteAll();

  UiContext& context_;
  PageModels& models_;
  CErrSheet* sheet_;
  QHBoxLayout* commands_;
};

}  // namespace zelorgas
