// What a screen reader is told. Names are worked out only while one listens: a long job isn't slowed for
// nobody.
#pragma once

#include <QAccessible>
#include <QWidget>
#include <functional>
#include <string>

#include "access.h"

namespace gradino {

/// Whether anybody listens. Tests, which have no reader, put an answer of their own here.
inline bool (*readerlistens)() = QAccessible::isActive;

/// From now on the widget has the name and description that the function tells.
void nameby(QWidget& widget, std::function<Telling()> tell);

/// Brings all names up to date. Does nothing while nobody listens.
void mirrornames();

/// While it lives, neither names nor announcements change. For the boards that a long job shows on its way: a
/// reader would still be busy with them when the job is long over.
struct Hush {
  Hush();
  ~Hush();
  Hush(const Hush&) = delete;
  Hush& operator=(const Hush&) = delete;
};

/// The voice of the program: says what a user who sees notices by himself, wherever the focus is. It stands
/// in the main window without being seen; readers know it as a notification.
class Announcer : public QWidget {
 public:
  explicit Announcer(QWidget* parent);

  /// Announces the sentence of a step when it is new or waits at the light, and what is new of an
  /// explanation.
  void mirror();

 private:
  std::string newsentence();
  std::string newexplanation();
  void say(const std::string& text);

  bool waited_ = false;
  std::string sentence_, explanation_;
};

/// Before the first window.
void meetscreenreaders();

}  // namespace gradino
