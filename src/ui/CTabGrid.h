// The correction grid page: the table, its surface and the trace of the injection times, and the
// commands that change cells. What is changed goes to the ECU at once; the table shows what the ECU
// has. User-interface thread.
#pragma once

#include <QAction>
#include <QDialog>
#include <QKeySequence>
#include <QShortcut>
#include <QTimer>
#include <QToolBar>
#include <functional>
#include <optional>
#include <vector>

#include "maps/GridModel.h"
#include "ui/CEcuPage.h"
#include "ui/CGridTable.h"
#include "ui/CNudgeBar.h"
#include "ui/CSurface.h"
#include "ui/CTraceGraph.h"
#include "ui/PageModels.h"
#include "ui/UiContext.h"

namespace zelorgas {

class CTabGrid final : public CEcuPage {
  Q_OBJECT

 public:
  // Both outlive the page.
  CTabGrid(UiContext& context, PageModels& models, QWidget* parent);

  void ShowImage() override;
  void ShowLive() override;

 private:
  using Edit = std::function<GridResult(const GridWatch&)>;
  using Cells = std::vector<GridCell>;

  void MakeCommands();
  QAction* AddCommand(const QString& object_name, const QString& text, const QKeySequence& keys,
                      const QString& tip, std::function<void()> command);
  // A command that changes the selected cells.
  QAction* AddAreaCommand(const QString& object_name, const QString& text, const QKeySequence& keys,
                          const QString& tip,
                          std::function<GridResult(const Cells&, const GridWatch&)> change);
  void AskAreaChange();
  void AskCentres();
  void Open(QDialog* dialog);
  void Copy();
  void Paste();
  // Runs the edit as a turn of the window's control, with a progress dialog when it takes long.
  void Run(const QString& what, Edit edit);
  void Perform(const QString& what, const Edit& edit);
  void FollowBusy(bool busy);
  void FollowSteps();
  // Lets the keys of `action` work also where it is greyed only because what it takes back, or
  // makes again, is still on its way to the ECU.
  QShortcut* AddKeysForWaiting(QAction* action);
  void ShowGrid();

  UiContext& context_;
  PageModels& models_;
  GridModel& model_;
  QToolBar* commands_;
  CGridTable* table_;
  CSurface* surface_;
  CTraceGraph* trace_;
  CNudgeBar* nudge_bar_ = nullptr;
  std::vector<QAction*> ecu_actions_;
  QAction* undo_ = nullptr;
  QAction* redo_ = nullptr;
  QShortcut* undo_waiting_ = nullptr;
  QShortcut* redo_waiting_ = nullptr;
  int waiting_ = 0;  // edits that have been wanted and have not ended
  bool greyed_ = false;
  std::optional<GridAxes> unwritten_;  // the centres that this ECU was to get and did not take
  // Commands are greyed only while a procedure takes its time, not for the blink of a single cell.
  QTimer patience_;
};

}  // namespace zelorgas
