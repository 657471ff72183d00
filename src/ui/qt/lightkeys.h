// The traffic light for who works by keyboard.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace gradino {

/// When a step was asked for by keyboard and waits, the focus goes to the green light; when it was answered
/// there, the focus goes back to where it was. Who asks with the mouse keeps the focus where it is.
class LightKeys : public QObject {
 public:
  explicit LightKeys(QWidget& window);

  void leave();  ///< before a light that has gone out is taken from the screen
  void enter();  ///< after one that has come up is on it

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& window_;
  QPointer<QWidget> before_;
  bool bykeys_ = false;  ///< what the user did last was a key, not a click
  bool waited_ = false;
};

}  // namespace gradino
