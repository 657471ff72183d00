#include "lightkeys.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <iterator>
#include <utility>

#include "boxes.h"
#include "editing.h"
#include "light.h"

namespace gradino {
namespace {

bool onlight(const QWidget* focus) {
  constexpr const char* pictures[] = {"Pictgo", "Pictalt", "Picthelp"};
  return focus != nullptr && std::any_of(std::begin(pictures), std::end(pictures),
                                         [focus](const char* name) { return focus->objectName() == name; });
}

}  // namespace

LightKeys::LightKeys(QWidget& window) : window_(window) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool LightKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) bykeys_ = true;
  if (event->type() == QEvent::MouseButtonPress) bykeys_ = false;
  return QObject::eventFilter(watched, event);
}

void LightKeys::enter() {
  if (!waiting() || waited_) return;
  waited_ = true;
  if (!bykeys_) return;
  before_ = window_.focusWidget();
  window_.findChild<QWidget*>("Pictgo")->setFocus(Qt::OtherFocusReason);
}

void LightKeys::leave() {
  if (waiting() || !waited_) return;
  waited_ = false;
  const QPointer<QWidget> back = std::exchange(before_, nullptr);
  if (!back || !onlight(window_.focusWidget())) return;
  if (back->isVisible()) return back->setFocus(Qt::OtherFocusReason);
  frmmain::focusrequest = {.on = frmmain::Focus::On::text1, .cell = navcell};
}

}  // namespace gradino
