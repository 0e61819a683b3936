// Loading a stored configuration into the ECU, as the window does it: with a dialog that shows how
// far it has come. User-interface thread.
#pragma once

#include <QString>
#include <QWidget>

#include "app/LoadProcedure.h"
#include "ui/CEcuControl.h"

namespace zelorgas {

// To be run as a task of `control`. `what` is being done, for people, in front of `window`, which
// may be null. Once something has been written the pages are told, and the worker reads it all.
LoadResult LoadWithProgress(ClpgecuDoc& document, MessageBoxes& boxes, CEcuControl& control,
                            const LoadRequest& request, const QString& what, QWidget* window);

}  // namespace zelorgas
