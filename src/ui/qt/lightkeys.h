// The traffic light for keyboard users.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace gradino {

/// When a step that was requested by keyboard waits, the focus moves to the green light; when it is answered
/// there, the focus returns to where it was. A request with the mouse leaves the focus alone.
class LightKeys : public QObject {
 public:
  explicit LightKeys(QWidget& window);

  void leave();  ///< before a light that is out disappears from the screen
  void enter();  ///< after a new light has appeared on it

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& window_;
  QPointer<QWidget> before_;
  bool bykeys_ = false;  ///< the user's last input was a key, not a click
  bool waited_ = false;
};

}  // namespace gradino
