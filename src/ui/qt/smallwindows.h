// The windows of the activity log and of the explanations.
#pragma once

#include <QPlainTextEdit>
#include <QPoint>
#include <QSize>
#include <QWidget>
#include <optional>
#include <string>

namespace gradino {

inline constexpr QSize activitysize{440, 420};

/// Moves a window to a place beside the main one, but never off the screen: beside a main window at the
/// screen's right edge it stands on the other side, so that the traffic light is not covered.
void placebeside(QWidget& window, const QPoint& wanted, const QSize& content);

/// Frmlog. A double click on a line goes back to that step.
class LogWindow : public QWidget {
 public:
  LogWindow();
  void mirror();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QPlainTextEdit* text_;
  std::optional<std::string> shown_;
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

  QPlainTextEdit* text_;
  std::string shown_;
};

}  // namespace gradino
