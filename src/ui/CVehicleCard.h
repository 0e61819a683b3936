// What the fitter notes of the vehicle, and which routing map a stored file carries and a loaded
// one replaces. The ECU has no place for either. User-interface thread.
#pragma once

#include <QLineEdit>
#include <string>
#include <vector>

#include "injectors/ConfigurationModel.h"
#include "ui/CCard.h"
#include "ui/CChoiceList.h"
#include "ui/CFieldRow.h"

namespace zelorgas {

class CVehicleCard final : public CCard {
  Q_OBJECT

 public:
  // Both outlive the card.
  CVehicleCard(VehicleData& vehicle, ConfigurationModel& model, QWidget* parent);

  void ShowVehicle();
  [[nodiscard]] const std::vector<CFieldRow*>& Rows() const { return rows_; }

 signals:
  void Edited();

 private:
  QLineEdit* AddText(const QString& object_name, const QString& text, std::string& field);
  CFieldRow* AddRow(const QString& text);
  QLineEdit* AddField(const QString& object_name, const QString& text, const QString& tooltip);
  void AddEngineSize();
  void AddRoutingMap();

  VehicleData& vehicle_;
  ConfigurationModel& model_;
  QLineEdit* make_;
  QLineEdit* model_name_;
  QLineEdit* engine_code_;
  QLineEdit* engine_size_ = nullptr;
  CChoiceList* routing_map_ = nullptr;
  std::vector<CFieldRow*> rows_;
};

}  // namespace zelorgas
