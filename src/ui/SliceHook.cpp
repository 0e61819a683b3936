#include "ui/SliceHook.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <memory>
#include <thread>

namespace zelorgas {

SerialDevice::SliceHook MakeUiSliceHook() {
  return [ui_thread = std::this_thread::get_id(), dispatching = std::make_shared<bool>(false)] {
    if (std::this_thread::get_id() != ui_thread || *dispatching) return;
    *dispatching = true;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    *dispatching = false;
  };
}

}  // namespace zelorgas
