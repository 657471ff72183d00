// The windows of the activity log and of the explanations.
#pragma once

#include <QPlainTextEdit>
#include <QPoint>
#include <QSize>
#include <QWidget>
#include <optional>
#include <string>

namespace gradino {

/// What the window manager will put around a window: not known before it was shown once.
inline constexpr QSize unseenframe{12, 40};

/// What the windows beside the main one take at most.
QSize roombeside();

/// Moves a window to a place beside the main one, but never off the screen. Where there is not enough room it
/// stands on the main window's other side, or gets smaller, down to its least size. Where even that isn't
/// enough it covers the board, but not what stands above it: close button, menu, keys, traffic light.
void placebeside(QWidget& window, const QPoint& wanted, const QSize& least);

/// Frmlog. A double click on a line goes back to that step. It comes up below the place of the explanations;
/// once shown it stays where its user has put it.
class LogWindow : public QWidget {
 public:
  LogWindow();
  void mirror();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QPlainTextEdit* text_;
  std::optional<std::string> shown_;
  bool placed_ = false;
};

/// frmactivity. It comes up beside the main window without taking the focus.
class ActivityWindow : public QWidget {
 public:
  ActivityWindow();
  void mirror();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void place();

  QPlainTextEdit* text_;
  std::optional<std::string> shown_;
};

/// frmgeneratore: the list of what the continuous generator has made, newest on top.
class GeneratorWindow : public QWidget {
 public:
  GeneratorWindow();
  void mirror();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void showlist();
  QPoint place() const;

  QPlainTextEdit* text_;
  std::string shown_;
};

}  // namespace gradino
