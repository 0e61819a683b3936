#include "ui/CSimulatedMenu.h"

#include "platform/FileSystem.h"
#include "ui/Text.h"

namespace zelorgas {

CSimulatedMenu::CSimulatedMenu(UiContext& context, QWidget* parent)
    : QMenu(tr("&Simulated ECU"), parent), context_(context) {
  setObjectName("simulated_menu");
  setToolTipsVisible(true);
  SimulatedBench& bench = context_.simulated;
  QAction* const plug =
      Add("unplug_ecu_action", tr("&Unplug the ECU"),
          tr("The ECU falls silent. Plugged in again, the link comes back by itself."));
  plug->setCheckable(true);
  connect(plug, &QAction::toggled, this, [&bench](bool out) { bench.SetEcuUnplugged(out); });
  QAction* const adapter = Add("unplug_adapter_action", tr("Unplug the &adapter"),
                               tr("The serial port vanishes. It is opened again once it is back."));
  adapter->setCheckable(true);
  connect(adapter, &QAction::toggled, this, [&bench](bool out) { bench.SetAdapterUnplugged(out); });
  QAction* const restart = Add("restart_ecu_action", tr("&Restart the ECU"),
                               tr("The ECU restarts; the program writes the configuration back."));
  connect(restart, &QAction::triggered, this, [&bench] { bench.RestartEcu(); });
  addSeparator();
  QAction* const bootloader =
      Add("enter_bootloader_action", tr("Put it into its &bootloader"),
          tr("As after an update that broke off: connecting then leads to the firmware update."));
  connect(bootloader, &QAction::triggered, this, [&bench] { bench.EnterBootloader(); });
  QAction* const image =
      Add("demo_image_action", tr("&Write a demo firmware image"),
          tr("Puts an image for the simulated ECU, and no other, where the firmware update looks "
             "for images."));
  connect(image, &QAction::triggered, this, &CSimulatedMenu::WriteDemoImage);
}

QAction* CSimulatedMenu::Add(const char* object_name, const QString& text, const QString& tip) {
  QAction* const action = addAction(text);
  action->setObjectName(object_name);
  action->setToolTip(tip);
  return action;
}

void CSimulatedMenu::WriteDemoImage() {
  Message problem;
  const auto file = SimulatedBench::WriteDemoImage(context_.firmware.ImageFolder(), problem);
  context_.boxes.Inform(
      ToMessage(file ? tr("The image was written to\n%1\nThe firmware update offers it for the "
                          "simulated ECU only.")
                           .arg(ToQString(PathText(*file)))
                     : tr("The image could not be written: %1").arg(TranslatedMessage(problem))),
      file ? MessageIcon::kInformation : MessageIcon::kExclamation);
}

}  // namespace zelorgas
