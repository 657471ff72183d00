#include "lesson.h"

#include "boxes.h"
#include "light.h"
#include "words.h"

namespace gradino {
namespace {

/// While it lives, an explanation waits.
struct Explaining {
  Explaining() { explaining = true; }
  ~Explaining() { explaining = false; }
  Explaining(const Explaining&) = delete;
  Explaining& operator=(const Explaining&) = delete;
};

}  // namespace

Lesson& Lesson::line(std::string_view text) {
  if (begun_) text_ += newline;
  begun_ = true;
  text_ += text;
  return *this;
}

Lesson& Lesson::words(std::string_view text) {
  begun_ = true;
  text_ += text;
  return *this;
}

Answer Lesson::showandwait() const {
  frmactivity::Text3.text = text_;
  frmactivity::visible = true;
  const Explaining now;
  return waitatlight();
}

void closelesson() {
  frmactivity::visible = false;
}

}  // namespace gradino
