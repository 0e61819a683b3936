// An empty Qt Widgets program: a main window with one menu title and nothing else. What start_up
// compares with.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

#include "FirstIdle.h"

int main(int argc, char** argv) {
  const QApplication qt(argc, argv);
  zelorgas::FirstIdle idle;
  QCoreApplication::instance()->installEventFilter(&idle);
  QMainWindow window;
  window.menuBar()->addMenu("&File");
  window.show();
  return QApplication::exec();
}
