// The configuration page: the vehicle, and all scalar parameters in their groups, one group at a
// time or what a search finds; beside them what the configuration still lacks.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QScrollArea>
#include <vector>

#include "injectors/ParameterGroups.h"
#include "ui/CCard.h"
#include "ui/CEcuPage.h"
#include "ui/CParameterRow.h"
#include "ui/CVehicleCard.h"
#include "ui/PageModels.h"
#include "ui/UiContext.h"

namespace zelorgas {

class CTabConfiguration final : public CEcuPage {
  Q_OBJECT

 public:
  // Both outlive the page.
  CTabConfiguration(UiContext& context, PageModels& models, QWidget* parent);

  void ShowImage() override;
  void ShowLive() override;
  void ShowLink(bool up) override;

 protected:
  // Beside the parameters the groups give way.
  void resizeEvent(QResizeEvent* event) override;

 private:
  // What stands in a card: the row of a parameter, what goes with it, or a row that is found by its
  // own words.
  struct Item {
    QWidget* widget;
    const Parameter* parameter;  // null: none
    QString words = {};
  };
  struct Section {
    CCard* card;
    std::vector<Item> items;
  };

  QWidget* MakeSideBar();
  QWidget* MakeSections();
  void AddTitle(const QString& title);
  void AddGroup(const ParameterGroup& group, QBoxLayout* column);
  void AddCompanions(Section& section, const Parameter& parameter);
  static QProgressBar* AddLiveBar(Section& section, const Parameter& parameter,
                                  const QString& object_name, const QString& text);
  void AddSwitchMode(Section& section, const Parameter& parameter);
  void ShowSections();
  void ShowMissingParts();
  void FitCompleteness();

  UiContext& context_;
  PageModels& models_;
  QWidget* side_ = nullptr;
  QLineEdit* search_ = nullptr;
  QListWidget* titles_ = nullptr;
  QLabel* completeness_ = nullptr;
  QScrollArea* completeness_area_ = nullptr;
  QLabel* found_ = nullptr;
  QScrollArea* scroll_ = nullptr;
  CVehicleCard* vehicle_ = nullptr;
  QCheckBox* switch_mode_ = nullptr;
  bool link_up_ = false;
  QProgressBar* gas_pressure_ = nullptr;
  QProgressBar* lambda1_ = nullptr;
  QProgressBar* lambda2_ = nullptr;
  std::vector<Section> sections_;  // the vehicle first
  std::vector<CParameterRow*> rows_;
};

}  // namespace zelorgas
