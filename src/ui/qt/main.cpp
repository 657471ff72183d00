// Gradino, a sudoku teacher. Nothing is read at start: no settings, no command line.
#include <QApplication>
#include <QSettings>

#include "look.h"
#include "mainwindow.h"
#include "startup.h"

int main(int, char** argv) {
  int nameonly = 1;
  QApplication program(nameonly, argv);
  QApplication::setQuitOnLastWindowClosed(false);  // only closing the main window ends the program
  gradino::setlook();
  // The file dialog of the toolkit would leave a settings file.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");

  gradino::apppath = QApplication::applicationDirPath().toStdString();
  gradino::startprogram();
  gradino::MainWindow window;
  window.show();
  return QApplication::exec();
}
