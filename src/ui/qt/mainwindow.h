// The main window: it shows the content of the boxes and passes on what the user does.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <memory>
#include <optional>

#include "cellboxes.h"
#include "librarywindow.h"
#include "lightkeys.h"
#include "panel.h"
#include "screenreader.h"
#include "smallwindows.h"
#include "toolbars.h"
#include "toolkitwords.h"

namespace gradino {

/// There is one at a time, made after startprogram(). Closing it ends the event loop and closes all other
/// windows.
class MainWindow : public QMainWindow {
 public:
  MainWindow();
  ~MainWindow() override;

 protected:
  bool eventFilter(QObject* client, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  void mirror();
  void noteplace() const;

  ToolkitWords words_;
  LightKeys lightkeys_{*this};
  std::unique_ptr<CellBoxes> cells_;
  std::unique_ptr<Panel> panel_;
  Toolbar *toolbar1_ = nullptr, *toolbar2_ = nullptr;
  std::unique_ptr<Menus> menus_;
  Announcer* announcer_ = nullptr;
  std::optional<LogWindow> log_;
  std::optional<ActivityWindow> activity_;
  std::optional<GeneratorWindow> generator_;
  std::optional<LibraryWindow> library_;
  QTimer timer2_;
};

}  // namespace gradino
