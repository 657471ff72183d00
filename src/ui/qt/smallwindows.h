// The windows of the activity log and of the explanations.
#pragma once

#include <QPlainTextEdit>
#include <QSize>
#include <QWidget>
#include <optional>
#include <string>

namespace gradino {

inline constexpr QSize activitysize{440, 420};

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
