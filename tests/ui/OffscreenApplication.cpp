// The one application object of the test program, on the platform that the build has chosen.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

// ThreadSanitizer cannot see the locks of the toolkit's own libraries, which are not instrumented.
extern "C" const char* __tsan_default_suppressions();
extern "C" const char* __tsan_default_suppressions() {
  return "called_from_lib:libQt6Core.so.6\n"
         "called_from_lib:libQt6Gui.so.6\n"
         "called_from_lib:libglib-2.0.so.0\n";
}

namespace {

class OffscreenApplication final : public testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", ZELORGAS_TEST_PLATFORM);
    // A test fills the file dialog; the system's own would wait for a person.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    application_ = std::make_unique<QApplication>(argc_, argv_);
    // A window that one test closes does not end the others' event loops.
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override { application_.reset(); }

 private:
  char name_[8] = "ui_test";
  char* argv_[2] = {name_, nullptr};
  int argc_ = 1;
  std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const testing::Environment* const kEnvironment =
    testing::AddGlobalTestEnvironment(new OffscreenApplication);

}  // namespace
