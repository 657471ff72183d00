// The windows of the activity log, of the explanations and of the continuous generator.
#pragma once

#include <QPlainTextEdit>
#include <QPoint>
#include <QSize>
#include <QWidget>
#include <optional>
#include <string>

namespace gradino {

/// The size of the frame of a window, assumed until it has been shown once.
inline constexpr QSize unseenframe{12, 40};

/// The largest size of the windows beside the main one.
QSize roombeside();

/// Moves a window to a place beside the main one, but never off the screen. If there is not enough room, it
/// goes to the other side of the main window or gets smaller, down to its minimum size. If even that isn't
/// enough, it covers the board, but not what is above the board: close button, menu, keys, traffic light.
void placebeside(QWidget& window, const QPoint& wanted, const QSize& least);

/// Frmlog. A double click on a line goes back to that step. It opens below the place of the explanations, and
/// afterwards stays where the user has put it.
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

/// frmactivity. It opens beside the main window without taking the focus.
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
