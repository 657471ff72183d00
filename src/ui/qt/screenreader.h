// The texts for screen readers. Names are made only while a reader is running, so that they don't slow long
// jobs for nothing.
#pragma once

#include <QAccessible>
#include <QWidget>
#include <functional>
#include <string>

#include "access.h"

namespace gradino {

/// Whether a reader is running. Tests, which have none, set an answer of their own.
inline bool (*readerlistens)() = QAccessible::isActive;

/// From now on the widget has the name and description that the function returns.
void nameby(QWidget& widget, std::function<Telling()> tell);

/// Updates all names, if a reader is running.
void mirrornames();

/// As long as it exists, neither names nor announcements change. For the intermediate boards of a long job,
/// with which a reader would still be busy long after its end.
struct Hush {
  Hush();
  ~Hush();
  Hush(const Hush&) = delete;
  Hush& operator=(const Hush&) = delete;
};

/// The voice of the program: announces what is plain to see, wherever the focus is. It is an invisible widget
/// of the main window; readers know it as a notification.
class Announcer : public QWidget {
 public:
  explicit Announcer(QWidget* parent);

  /// Announces the sentence of a step when it is new or waits at the light, and new parts of an explanation.
  void mirror();

 private:
  std::string newsentence();
  std::string newexplanation();
  void say(const std::string& text);

  bool waited_ = false;
  std::string sentence_, explanation_;
};

/// To be called before the first window.
void meetscreenreaders();

}  // namespace gradino
