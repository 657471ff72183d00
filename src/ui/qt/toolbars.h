// The two toolbars and the menu.
#pragma once

#include <QWidget>
#include <vector>

#include "commands.h"
#include "picturebutton.h"

class QAction;
class QMenu;
class QMenuBar;

namespace gradino {

/// A toolbar made from its command table.
class Toolbar : public QWidget {
 public:
  using Click = void (*)(const KeyRow& row);
  Toolbar(QWidget* client, const char* name, int y, std::span<const KeyRow> rows, Click click);
  void mirror();

 private:
  void addkey(const KeyRow& row, Click click);
  void placekeys();

  std::span<const KeyRow> rows_;
  std::vector<PictureButton*> keys_;  ///< by row; null for separators
};

/// The menu bar made from its command table.
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
