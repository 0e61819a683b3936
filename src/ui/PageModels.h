// What the pages show and edit: the models that live on while no page is visible, fed with what the
// worker reads. User-interface thread.
#pragma once

#include <QObject>
#include <cstdint>
#include <optional>

#include "diag/Oscilloscope.h"
#include "errors/ErrorLog.h"
#include "injectors/ConfigurationModel.h"
#include "maps/GridModel.h"
#include "maps/GridTrace.h"
#include "ui/UiContext.h"

namespace zelorgas {

class ClpgecuView;

class PageModels final : public QObject {
  Q_OBJECT

 public:
  // Both outlive the models.
  PageModels(UiContext& context, ClpgecuView& view);
  ~PageModels() override;

  [[nodiscard]] ConfigurationModel& Configuration() { return configuration_; }
  // What the fitter has noted of the vehicle on the line.
  [[nodiscard]] VehicleData& Vehicle() { return vehicle_; }

  // The correction grid with its undo steps, and the trace of the injection times.
  [[nodiscard]] GridModel& Grid() { return grid_; }
  // Makes the grid what the image has, once that was read: it may be behind while a procedure runs.
  void SyncGrid();
  [[nodiscard]] const GridTrace& Trace() const { return trace_; }

  // Records from the first OpenScope on: what nobody has looked at needs no saving.
  [[nodiscard]] Oscilloscope& OpenScope();
  [[nodiscard]] const Oscilloscope& Scope() const { return scope_; }

  [[nodiscard]] ErrorLog& Errors() { return errors_; }
  // Reads the errors that the ECU has stored; also done with every connection, and when a link that
  // was lost has brought everything anew.
  void ReadErrors();
  [[nodiscard]] bool HasErrors();

 private:
  // The worker has read the configuration, or live values.
  void TakeImage();
  void TakeLive();
  void FollowControl();
  void FollowGrid();
  void FollowLink(CommStatus status);

  UiContext& context_;
  ConfigurationModel configuration_;
  VehicleData vehicle_;
  GridModel grid_;
  GridTrace trace_;
  // Of the ECU whose undo steps, vehicle and choice of a routing map they are.
  std::optional<std::uint32_t> serial_;
  bool image_read_ = false;
  Oscilloscope scope_;
  bool scope_open_ = false;
  ErrorLog errors_;
  bool link_was_lost_ = false;  // since the image was read
};

}  // namespace zelorgas
