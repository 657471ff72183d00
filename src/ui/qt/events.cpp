#include "events.h"

#include <QCoreApplication>

#include "host.h"
#include "runevent.h"

namespace gradino {
namespace {

bool ended = false;

}  // namespace

void onevent(const std::function<void()>& body) {
  if (ended) return;
  try {
    runevent(body);
    leaveifended();
    showchanges();
  } catch (const ProgramEnd&) {
    // The window is closed: there is nothing left to show.
  }
}

void endprogram() {
  ended = true;
  QCoreApplication::exit(0);
}

void leaveifended() {
  if (ended) throw ProgramEnd{};
}

void beginprogram() {
  ended = false;
}

}  // namespace gradino
