#include "ui/CTabGrid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QSplitter>
#include <QVBoxLayout>
#include <memory>
#include <utility>

#include "ui/CCellChangeDlg.h"
#include "ui/CMapRefsDlg.h"
#include "ui/CProgressDlg.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kPatienceMs = 200;

// Gives the two halves their shares of whatever room there is.
void ShareOut(QSplitter& splitter, int first, int second) {
  constexpr int kMuch = 1000;
  splitter.setSizes({first * kMuch, second * kMuch});
  splitter.setStretchFactor(0, first);
  splitter.setStretchFactor(1, second);
}

}  // namespace

CTabGrid::CTabGrid(UiContext& context, PageModels& models, QWidget* parent)
    : CEcuPage(parent), context_(context), models_(models), model_(models.Grid()) {
  setObjectName("grid_page");
  setAccessibleName(tr("Correction grid"));
  commands_ = new QToolBar(this);
  commands_->setObjectName("grid_commands");
  commands_->setAccessibleName(tr("Commands of the correction grid"));
  commands_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  table_ = new CGridTable(model_, this);
  table_->setContextMenuPolicy(Qt::ActionsContextMenu);
  surface_ = new CSurface(model_, this);
  trace_ = new CTraceGraph(models.Trace(), this);
  MakeCommands();

  auto* const left = new QWidget(this);
  auto* const left_column = new QVBoxLayout(left);
  left_column->setContentsMargins({});
  left_column->addWidget(table_, 1);
  left_column->addWidget(nudge_bar_);
  auto* const pictures = new QSplitter(Qt::Vertical, this);
  pictures->setObjectName("grid_pictures");
  pictures->addWidget(surface_);
  pictures->addWidget(trace_);
  pictures->setChildrenCollapsible(false);
  ShareOut(*pictures, 3, 2);
  auto* const halves = new QSplitter(Qt::Horizontal, this);
  halves->setObjectName("grid_halves");
  halves->addWidget(left);
  halves->addWidget(pictures);
  halves->setChildrenCollapsible(false);
  ShareOut(*halves, 3, 2);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, fontMetrics().height() / 2);
  layout->addWidget(commands_);
  layout->addWidget(halves, 1);

  connect(table_, &CCellTable::Entered, this, [this](TableCell cell, const QString& text) {
    const GridCell grid_cell{static_cast<std::uint16_t>(cell.row),
                             static_cast<std::uint16_t>(cell.column)};
    Run(tr("Edit"), [this, grid_cell, typed = text.toStdString()](const GridWatch& watch) {
      return model_.EditCell(grid_cell, typed, watch);
    });
  });
  patience_.setSingleShot(true);
  patience_.setInterval(kPatienceMs);
  connect(&patience_, &QTimer::timeout, this, [this] { FollowBusy(true); });
  connect(&context_.control, &CEcuControl::BusyChanged, this, [this](bool busy) {
    if (busy) {
      patience_.start();
    } else {
      patience_.stop();
      FollowBusy(false);
    }
  });
  connect(&context_.control, &CEcuControl::StateChanged, this, [this] { unwritten_.reset(); });
}

QAction* CTabGrid::AddCommand(const QString& object_name, const QString& text,
                              const QKeySequence& keys, const QString& tip,
                              std::function<void()> command) {
  auto* const action = new QAction(text, this);
  action->setObjectName(object_name + "_action");
  action->setShortcut(keys);
  action->setShortcutContext(Qt::WidgetShortcut);
  // A held key must not pile up edits that go on after it has been let go.
  action->setAutoRepeat(false);
  action->setToolTip(tip + " (" + keys.toString(QKeySequence::NativeText) + ')');
  connect(action, &QAction::triggered, this, std::move(command));
  table_->addAction(action);
  return action;
}

QAction* CTabGrid::AddAreaCommand(
    const QString& object_name, const QString& text, const QKeySequence& keys, const QString& tip,
    std::function<GridResult(const Cells&, const GridWatch&)> change) {
  return AddCommand(object_name, text, keys, tip, [this, text, change = std::move(change)] {
    Run(text, [cells = table_->SelectedCells(), change](const GridWatch& watch) {
      return change(cells, watch);
    });
  });
}

void CTabGrid::MakeCommands() {
  undo_ = AddCommand(
      "undo", tr("Undo"), QKeySequence::Undo, tr("Takes the last change back"),
      [this] { Run(tr("Undo"), [this](const GridWatch& watch) { return model_.Undo(watch); }); });
  redo_ = AddCommand(
      "redo", tr("Redo"), QKeySequence("Ctrl+Y"), tr("Makes the change again that was taken back"),
      [this] { Run(tr("Redo"), [this](const GridWatch& watch) { return model_.Redo(watch); }); });
  QAction* const area =
      AddCommand("modify_area", tr("Modify area..."), QKeySequence("Ctrl+M"),
                 tr("Changes the selected cells by a percentage, by an amount, or to a value"),
                 [this] { AskAreaChange(); });
  QAction* const interpolate = AddAreaCommand("interpolate", tr("Interpolate"), QKeySequence("/"),
                                              tr("Fills the selection evenly between its corners"),
                                              [this](const Cells& cells, const GridWatch& watch) {
                                                return model_.Interpolate(cells, watch);
                                              });
  QAction* const smooth = AddAreaCommand(
      "smooth", tr("Smooth"), QKeySequence("S"),
      tr("Draws every selected cell towards its neighbours"),
      [this](const Cells& cells, const GridWatch& watch) { return model_.Smooth(cells, watch); });
  QAction* const equal = AddCommand(
      "equal", tr("Set equal"), QKeySequence("="),
      tr("Gives all selected cells the coefficient of the cell with the cursor"), [this] {
        Run(tr("Set equal"),
            [this, cells = table_->SelectedCells(), cursor = table_->CursorCell()](
                const GridWatch& watch) { return model_.SetEqual(cells, cursor, watch); });
      });
  const auto add_step = [this](const char* object_name, const char* text, const char* keys,
                               const QString& tip, int hundredths) {
    return AddAreaCommand(object_name, text, QKeySequence(keys), tip,
                          [this, hundredths](const Cells& cells, const GridWatch& watch) {
                            return model_.Step(cells, hundredths, watch);
                          });
  };
  QAction* const up =
      add_step("step_up", "+0.01", "+", tr("Raises the selected cells by a hundredth"), 1);
  QAction* const down =
      add_step("step_down", "\u22120.01", "-", tr("Lowers the selected cells by a hundredth"), -1);
  QAction* const copy =
      AddCommand("copy", tr("Copy"), QKeySequence::Copy,
                 tr("Copies the selected cells, as spreadsheets take them"), [this] { Copy(); });
  QAction* const paste =
      AddCommand("paste", tr("Paste"), QKeySequence::Paste,
                 tr("Pastes a block from the first selected cell on"), [this] { Paste(); });
  QAction* const centres =
      AddCommand("cell_centres", tr("Cell centres..."), QKeySequence("Ctrl+K"),
                 tr("Moves the centres of the rows and columns"), [this] { AskCentres(); });

  const auto add_nudge = [this](const char* object_name, const QString& text, const char* keys,
                                const QString& tip, NudgeDirection direction) {
    return AddCommand(object_name, text, QKeySequence(keys), tip, [this, text, direction] {
      Run(text, [this, direction, percent = nudge_bar_->Percent()](const GridWatch& watch) {
        return model_.Nudge(percent, direction, watch);
      });
    });
  };
  QAction* const decrease =
      add_nudge("nudge_decrease", tr("Decrease"), "Ctrl+PgDown",
                tr("Leans the mixture where the engine runs"), NudgeDirection::kDecrease);
  QAction* const increase =
      add_nudge("nudge_increase", tr("Increase"), "Ctrl+PgUp",
                tr("Enriches the mixture where the engine runs"), NudgeDirection::kIncrease);
  nudge_bar_ = new CNudgeBar(model_, decrease, increase, this);

  // These do not need the table's selection.
  for (QAction* const action : {undo_, redo_, decrease, increase, centres}) {
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(action);
  }
  // The menu of the table is for its cells.
  for (QAction* const action : {decrease, increase}) table_->removeAction(action);
  ecu_actions_ = {area, interpolate, smooth, equal, up, down, paste, centres, decrease, increase};
  commands_->addActions({undo_, redo_});
  commands_->addSeparator();
  commands_->addActions({area, interpolate, smooth, equal, down, up});
  commands_->addSeparator();
  commands_->addActions({copy, paste});
  commands_->addSeparator();
  commands_->addAction(centres);
  for (QAction* const action : commands_->actions()) {
    if (action->isSeparator()) continue;
    auto* const button = qobject_cast<QToolButton*>(commands_->widgetForAction(action));
    button->setAutoRaise(false);
    button->setObjectName(action->objectName().replace("_action", "_button"));
    button->setAccessibleName(action->text());
    button->setFocusPolicy(Qt::TabFocus);
  }
  undo_waiting_ = AddKeysForWaiting(undo_);
  redo_waiting_ = AddKeysForWaiting(redo_);
  FollowSteps();
}

QShortcut* CTabGrid::AddKeysForWaiting(QAction* action) {
  auto* const keys = new QShortcut(action->shortcut(), this);
  keys->setContext(Qt::WidgetWithChildrenShortcut);
  keys->setAutoRepeat(false);
  connect(keys, &QShortcut::activated, action, [action] { emit action->triggered(); });
  return keys;
}

void CTabGrid::AskAreaChange() {
  const Cells cells = table_->SelectedCells();
  auto* const dialog = new CCellChangeDlg(model_.LastAreaChange(), cells.size(), this);
  connect(dialog, &QDialog::accepted, this, [this, dialog, cells] {
    Run(dialog->windowTitle(), [this, cells, change = *dialog->Change()](const GridWatch& watch) {
      return model_.ModifyArea(cells, change, watch);
    });
  });
  Open(dialog);
}

void CTabGrid::AskCentres() {
  auto* const dialog = new CMapRefsDlg(unwritten_.value_or(model_.Axes()), context_.boxes, this);
  connect(dialog, &QDialog::accepted, this, [this, dialog] {
    Run(dialog->windowTitle(), [this, axes = dialog->Axes()](const GridWatch&) {
      const GridModel::CentresResult written = model_.WriteCentres(axes);
      unwritten_.reset();
      if (!written.columns_written || !written.rows_written) unwritten_ = axes;
      return GridResult{};
    });
  });
  Open(dialog);
}

void CTabGrid::Open(QDialog* dialog) {
  // What it asks is about the ECU of this connection.
  connect(&context_.control, &CEcuControl::StateChanged, dialog, &QDialog::reject);
  dialog->open();
}

void CTabGrid::Copy() {
  QGuiApplication::clipboard()->setText(
      QString::fromStdString(model_.Copy(table_->SelectedCells())));
}

void CTabGrid::Paste() {
  const std::string text = QGuiApplication::clipboard()->text().toStdString();
  Run(tr("Paste"), [this, cells = table_->SelectedCells(), text](const GridWatch& watch) {
    return model_.Paste(cells, text, watch);
  });
}

void CTabGrid::Run(const QString& what, Edit edit) {
  ++waiting_;
  FollowSteps();
  // Goes with the task, be it that the task has never run.
  const std::shared_ptr<void> wanted(nullptr, [page = QPointer(this)](void*) {
    if (!page) return;
    --page->waiting_;
    page->FollowSteps();
  });
  // Later: the field or the dialog that wants it has still to be closed.
  context_.control.RunLaterOnThisEcu(
      this, [this, what, edit = std::move(edit), wanted] { Perform(what, edit); });
}

void CTabGrid::Perform(const QString& what, const Edit& edit) {
  // The edit counts from what the ECU has now, not from what it had before the wait.
  models_.SyncGrid();
  CProgressDlg progress(tr("%1: writing the cells").arg(what), true, window());
  std::size_t of = 0;
  const GridResult result = edit({.cell_written = [this](GridCell cell) { table_->ShowCell(cell); },
                                  .keep_going =
                                      [&](std::size_t done, std::size_t total) {
                                        of = total;
                                        const bool go_on = progress.Step(done, total);
                                        // Before what has to be said at the end.
                                        if (!go_on || done == total) {
                                          progress.hide();
                                          surface_->ShowGrid();
                                        }
                                        return go_on;
                                      }});
  ShowGrid();
  if (result.cancelled) {
    context_.boxes.Status(
        ToMessage(tr("Cancelled: %1 of %2 cells have been written.").arg(result.written).arg(of)));
  }
}

void CTabGrid::FollowBusy(bool busy) {
  for (QAction* const action : ecu_actions_) action->setEnabled(!busy);
  greyed_ = busy;
  FollowSteps();
}

void CTabGrid::FollowSteps() {
  undo_->setEnabled(!greyed_ && model_.CanUndo());
  redo_->setEnabled(!greyed_ && model_.CanRedo());
  undo_waiting_->setEnabled(waiting_ > 0 && !undo_->isEnabled());
  redo_waiting_->setEnabled(waiting_ > 0 && !redo_->isEnabled());
}

void CTabGrid::ShowGrid() {
  table_->ShowGrid();
  surface_->ShowGrid();
  FollowSteps();
}

void CTabGrid::ShowImage() {
  ShowGrid();
  ShowLive();
}

void CTabGrid::ShowLive() {
  table_->ShowLive();
  surface_->ShowLive();
  trace_->ShowTrace();
  nudge_bar_->ShowLive();
}

}  // namespace zelorgas
