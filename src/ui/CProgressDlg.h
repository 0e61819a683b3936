// How far a procedure has come that takes several exchanges, with a button to end it between two of
// them. It stays away from what is done at once. User-interface thread, inside a procedure.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>

namespace zelorgas {

class CProgressDlg final : public QDialog {
  Q_OBJECT

 public:
  // `what` is being done, for people. With `can_cancel` false there is no button.
  CProgressDlg(const QString& what, bool can_cancel, QWidget* parent);

  // Shows that `done` of `total` steps are through, and lets the window work. False once the person
  // wants the procedure to end.
  bool Step(std::size_t done, std::size_t total);

  void reject() override { cancelled_ = can_cancel_; }

 private:
  static constexpr int kPatienceMs = 400;

  const bool can_cancel_;
  bool cancelled_ = false;
  QElapsedTimer since_start_;
  QProgressBar* bar_;
};

}  // namespace zelorgas
