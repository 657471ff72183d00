#include "lesson.h"

#include "boxes.h"
#include "light.h"
#include "words.h"

namespace gradino {

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

bool Lesson::stopped() const {
  frmactivity::Text3.text = text_;
  frmactivity::visible = true;
  return gradino::stopped();
}

void closelesson() {
  frmactivity::visible = false;
}

}  // namespace gradino
