// The About box: which program this is and when it was built.
#pragma once

#include <QDialog>
#include <QFormLayout>

#include "app/AboutInfo.h"

namespace zelorgas {

class CAboutDlg final : public QDialog {
  Q_OBJECT

 public:
  explicit CAboutDlg(const AboutInfo& about, QWidget* parent = nullptr);

 private:
  void AddRow(QFormLayout& form, const QString& object_name, const QString& caption,
              const std::string& value);
};

}  // namespace zelorgas
