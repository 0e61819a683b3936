// Who is on the line: what identification says about the ECU; dashes while there is none.
#pragma once

#include <QGridLayout>
#include <QLabel>

#include "app/Identification.h"
#include "ui/CCard.h"

namespace zelorgas {

class CEcuCard final : public CCard {
  Q_OBJECT

 public:
  explicit CEcuCard(QWidget* parent = nullptr);

  void Show(const EcuIdentity& identity);
  void Clear();

 private:
  // A row of the card: caption and value.
  QLabel* AddRow(const QString& object_name, const QString& caption, const QString& tooltip);
  static void SetValue(QLabel* field, const QString& text);

  QGridLayout* rows_;
  QLabel* serial_;
  QLabel* software_;
  QLabel* hardware_;
  QLabel* vendor_;
  QLabel* product_;
  QLabel* revision_;
  QLabel* board_;
};

}  // namespace zelorgas
