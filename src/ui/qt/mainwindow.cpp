#include "mainwindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QEnterEvent>
#include <QLayout>
#include <QMenuBar>
#include <QScreen>
#include <QWindow>

#include "browser.h"
#include "clock.h"
#include "commands.h"
#include "events.h"
#include "host.h"
#include "look.h"
#include "windowhost.h"

namespace gradino {
namespace {

constexpr int toolbar2y = 0, toolbar1y = 28, toolbarsend = 56;

/// The area of the layout, of a fixed size below the menu bar.
QWidget* newclient(QMainWindow& window) {
  auto* client = new QWidget(&window);
  client->setObjectName("main");
  client->setFixedSize(frmmain::clientwidth, frmmain::clientheight);
  setcolours(*client, teal, paleyellow);
  client->setAutoFillBackground(true);
  window.setCentralWidget(client);
  window.layout()->setSizeConstraint(QLayout::SetFixedSize);
  return client;
}

// The Tab order after the board, which is one stop, or two while pencil marks are edited: the arrow keys go
// from cell to cell. The lights come after the keys that make them appear, colours and texts in the order of
// the screen. A toolbar stands for its keys.
constexpr const char* taborder[] = {
    "Toolbar2",    "cmdnice",    "Cmdtest",  "cmdlan",   "Toolbar1",   "cmdimpossibili",
    "Pictgo",      "Pictalt",    "Picthelp", "colore_3", "colore_2",   "colore_0",
    "colore_1",    "colore_5",   "colore_6", "colore_7", "colore_4",   "colore_8",
    "picstart",    "Picture2",   "txthint",  "filetxt",  "txtlivello", "testototale",
    "txtlivello1", "txtesposti", "txtvuoti", "Text5",    "tempotot",   "txtprogressivo",
};

void settaborder(const QWidget& client) {
  QWidget* last = client.findChild<QWidget*>("Text1_80");
  const auto follow = [&last](QWidget* next) {
    QWidget::setTabOrder(last, next);
    last = next;
  };
  for (const char* name : taborder) {
    auto* widget = client.findChild<QWidget*>(name);
    if (auto* bar = dynamic_cast<Toolbar*>(widget)) {
      for (auto* key : bar->findChildren<QAbstractButton*>()) follow(key);
    } else {
      follow(widget);
    }
  }
}

/// There should be room for the other windows beside this one. Some desktops take the position for that of
/// the window without its frame; its title must be on the screen there too.
QPoint startplace(const QScreen& screen, const QSize& window) {
  const QRect room = screen.availableGeometry();
  const QSize side = roombeside(), framed = window + unseenframe;
  const QSize all(framed.width() + side.width(), qMax(framed.height(), side.height()));
  return {qMax(room.left(), room.center().x() - all.width() / 2),
          qMax(room.top() + unseenframe.height(), room.center().y() - all.height() / 2)};
}

/// As long as it exists, the toolkit takes the pointer to be outside the window. Otherwise, for every box
/// that appears in a window with the pointer in it, the toolkit asks the display server for the position of
/// the pointer, and waits for the answer.
class PointerAway {
 public:
  explicit PointerAway(const QWidget& window) : window_(window), was_(window.underMouse()) {
    QEvent leave(QEvent::Leave);
    if (was_) QCoreApplication::sendEvent(window.windowHandle(), &leave);
  }
  ~PointerAway() {
    const QPoint pointer = QCursor::pos();
    const QPoint place = window_.mapFromGlobal(pointer);
    QEnterEvent enter(place, place, pointer);
    if (was_ && window_.rect().contains(place)) QCoreApplication::sendEvent(window_.windowHandle(), &enter);
  }
  PointerAway(const PointerAway&) = delete;
  PointerAway& operator=(const PointerAway&) = delete;

 private:
  const QWidget& window_;
  bool was_;
};

/// The other windows are made when they are first shown, since few runs need them.
template <class Window, class... From>
void mirrorwindow(std::optional<Window>& window, bool visible, From&... from) {
  if (!window && visible) window.emplace(from...);
  if (window) window->mirror();
}

}  // namespace

MainWindow::MainWindow() {
  beginprogram();
  meetscreenreaders();
  setWindowTitle("Gradino");
  QWidget* client = newclient(*this);
  client->installEventFilter(this);
  cells_ = std::make_unique<CellBoxes>(client);
  panel_ = std::make_unique<Panel>(client);
  toolbar2_ = new Toolbar(client, "Toolbar2", toolbar2y, toolbar2rows(), Toolbar2_ButtonClick);
  toolbar1_ = new Toolbar(client, "Toolbar1", toolbar1y, toolbar1rows(), Toolbar1_ButtonClick);
  panel_->raisepictures();
  settaborder(*client);
  menus_ = std::make_unique<Menus>(menuBar());
  nameby(*this, [this] { return spokenmainwindow(windowTitle().toStdString()); });
  announcer_ = new Announcer(this);
  timer2_.setTimerType(Qt::PreciseTimer);
  timer2_.setInterval(1000);
  timer2_.callOnTimeout(this, [] { onevent(Timer2_Timer); });

  usewindows(*this, *client);
  showchanges = [this] { mirror(); };
  frmmain::focusrequest = {.on = frmmain::Focus::On::text1, .cell = 0};
  mirror();
  move(startplace(*screen(), sizeHint()));
}

MainWindow::~MainWindow() {
  showchanges = [] {};
  host = {};
}

void MainWindow::mirror() {
  noteplace();
  lightkeys_.leave();
  cells_->mirror();
  panel_->mirror();
  lightkeys_.enter();
  toolbar1_->mirror();
  toolbar2_->mirror();
  menus_->mirror();
  mirrorwindow(log_, Frmlog::visible);
  mirrorwindow(activity_, frmactivity::visible);
  mirrorwindow(generator_, frmgeneratore::visible);
  mirrorwindow(library_, frmlivello::visible, *this);
  mirrornames();
  announcer_->mirror();
  if (timer2on == timer2_.isActive()) return;
  if (timer2on) {
    timer2_.start();
  } else {
    timer2_.stop();
  }
}

void MainWindow::noteplace() const {
  const QRect place = frameGeometry();
  frmmain::left = place.left();
  frmmain::top = place.top();
  frmmain::width = place.width();
  frmmain::head = centralWidget()->mapToGlobal(QPoint(0, toolbarsend)).y() - place.top();
}

// The window is on the screen sooner if the covered boxes are made after it has been painted.
bool MainWindow::eventFilter(QObject* client, QEvent* event) {
  if (event->type() == QEvent::Paint) {
    client->removeEventFilter(this);
    QTimer::singleShot(0, this, [this] {
      const PointerAway away(*this);
      onevent([this] { cells_->addcovered(); });
    });
  }
  return QMainWindow::eventFilter(client, event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  endprogram();
}

void MainWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  noteplace();
}

}  // namespace gradino
