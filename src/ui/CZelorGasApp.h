// The program from its start to its end: what is initialised and made in which order, and the event
// loop. User-interface thread.
#pragma once

#include <QApplication>
#include <QStringList>

#include "platform/SystemStart.h"

namespace zelorgas {

class CZelorGasApp {
 public:
  // As main() gets them; the toolkit takes its own arguments out.
  CZelorGasApp(int& argc, char** argv);

  // Gives the program's exit status.
  int Run();

 private:
  // Before the toolkit, which uses what is initialised here.
  SystemStart system_;
  QApplication qt_;
  QStringList arguments_;  // without the program's name
};

}  // namespace zelorgas
