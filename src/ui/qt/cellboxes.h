// The 81 cells. Each is a stack of an editable box for pencil marks, nine small labels, and the digit box,
// which covers the others while it is visible.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPoint>
#include <array>
#include <optional>
#include <string>

#include "boxes.h"

namespace gradino {

inline constexpr int cellsize = 41;

/// Top left corner of a cell, in the client area.
QPoint cellplace(int cell);

/// Text1: the digit. While pencil marks are visible in its place, it can still have the focus: it then shows
/// only a frame, lets the mouse through and takes what is typed.
class DigitBox : public QLineEdit {
 public:
  DigitBox(QWidget* parent, int cell);
  void mirror(const gradino::Box& box, bool reachable);

 protected:
  bool event(QEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void taketext();
  void showtext(const std::string& shown);
  void setghost(bool ghost);

  int cell_;
  bool ghost_ = false;
  std::optional<gradino::Box> shown_;
};

/// Text2: the background of the cell, and its pencil marks while they are edited.  (A frame of the toolkit
/// has a Box of its own.)
class MarksBox : public QPlainTextEdit {
 public:
  MarksBox(QWidget* parent, int cell);
  void mirror(const gradino::Box& box, bool editable, bool reachable);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void taketext();
  void showtext(const std::string& shown);

  int cell_;
  std::optional<gradino::Box> shown_;
};

/// A pencil mark.
class CandidateBox : public QLabel {
 public:
  CandidateBox(QWidget* parent, int index);
  void mirror(const gradino::Box& box);
  int index() const { return index_; }
  void click();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  int index_;
  std::optional<gradino::Box> shown_;
};

/// All cells, inside the client area.
class CellBoxes {
 public:
  explicit CellBoxes(QWidget* client);
  void mirror();

  /// Adds the boxes that the digits cover, if they aren't there yet; called at the latest when one of them
  /// shows.
  void addcovered();

 private:
  void leavemarks() const;
  void movefocus();

  std::array<DigitBox*, 81> digits_{};
  std::array<MarksBox*, 81> marks_{};
  std::array<CandidateBox*, 810> candidates_{};
};

}  // namespace gradino
