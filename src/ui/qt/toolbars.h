// The two toolbars, the loose buttons that stand over them, and the menu.
#pragma once

#include <QWidget>
#include <vector>

#include "commands.h"
#include "picturebutton.h"

class QAction;
class QMenu;
class QMenuBar;

namespace gradino {

/// A toolbar as its command table tells it.
class Toolbar : public QWidget {
 public:
  using Click = void (*)(const KeyRow& row);
  Toolbar(QWidget* client, const char* name, int y, std::span<const KeyRow> rows, Click click);
  void mirror();

 private:
  void addkey(const KeyRow& row, Click click);
  void placekeys();

  std::span<const KeyRow> rows_;
  std::vector<PictureButton*> keys_;  ///< by row; none for separators
};

/// The menu bar as its command table tells it.
class Menus {
 public:
  explicit Menus(QMenuBar* bar);
  void mirror();

 private:
  struct Entry {
    const Control* control;
    QAction* action;
  };
  std::vector<Entry> entries_;  ///< titles too
};

}  // namespace gradino
