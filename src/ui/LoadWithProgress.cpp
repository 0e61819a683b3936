#include "ui/LoadWithProgress.h"

#include "ui/CProgressDlg.h"

namespace zelorgas {

LoadResult LoadWithProgress(ClpgecuDoc& document, MessageBoxes& boxes, CEcuControl& control,
                            const LoadRequest& request, const QString& what, QWidget* window) {
  constexpr auto kStages = static_cast<std::size_t>(TransferStage::kDone);
  CProgressDlg dialog(what, /*can_cancel=*/false, window);
  const auto progress = [&dialog](TransferStage stage, std::size_t words) {
    if (stage == TransferStage::kDone) {
      dialog.hide();
      return;
    }
    dialog.Step(static_cast<std::size_t>(stage) * kBlockWords + words, kStages * kBlockWords);
  };
  LoadResult result = LoadProcedure(document, boxes, progress).Run(request);
  if (result.words_written > 0) {
    // Every page shows what the ECU has now from the image that is read now.
    document.RequestRefresh();
    emit control.ConfigurationLoaded();
  }
  return result;
}

}  // namespace zelorgas
