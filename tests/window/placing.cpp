// The positions of the windows beside the main one, on the screen of the platform: what they leave free, and
// that their titles can be read.
#include <QScreen>
#include <QStyle>

#include "boxes.h"
#include "host.h"
#include "mainwindow.h"
#include "user.h"

using namespace gradino;

class Placing : public QObject {
  Q_OBJECT

 private slots:
  void screen();
  void explanationsandlog();
  void titles_data();
  void titles();
  void explanationsfollow();
  void logstays();
  void library();
  void generator();
  void atthescreensedge();
};

namespace {

/// The screen that the test is meant for, or the platform's own.
QSize wantedscreen() {
  const QStringList sides = qEnvironmentVariable("GRADINO_SCREEN", "800x800").split('x');
  return {sides[0].toInt(), sides[1].toInt()};
}

bool wideenough() {
  return wantedscreen().width() >= 1280;
}

QWidget* toplevel(const QString& name) {
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (widget->objectName() == name && widget->isVisible()) return widget;
  return nullptr;
}

QRect frame(const QString& name) {
  QWidget* window = toplevel(name);
  if (window == nullptr) qFatal("no window %s", qPrintable(name));
  return window->frameGeometry();
}

/// What must be in reach: title with close button, menu, both toolbars with the traffic light in them.
QRect head(User& user) {
  const QRect main = user.window().frameGeometry();
  const int end = user.find("main")->mapToGlobal(user.place("Toolbar1").bottomLeft()).y();
  return {main.topLeft(), QPoint(main.right(), end)};
}

QRect screenroom(User& user) {
  return user.window().screen()->availableGeometry();
}

/// Brings a hint's explanation up, looks on, and stops.
void explain(User& user, const std::function<void()>& look) {
  user.acts = {[&] { user.press("Picthelp"); },
               [&, look] {
                 look();
                 user.press("Pictalt");
               }};
  user.press("Toolbar1_suggerisci");
}

}  // namespace

#define APART(a, b)                                                               \
  QVERIFY2(!(a).intersects(b), qPrintable(QString("%1 %2 %3 %4 over %5 %6 %7 %8") \
                                              .arg((a).x())                       \
                                              .arg((a).y())                       \
                                              .arg((a).width())                   \
                                              .arg((a).height())                  \
                                              .arg((b).x())                       \
                                              .arg((b).y())                       \
                                              .arg((b).width())                   \
                                              .arg((b).height())))

void Placing::screen() {
  User user;
  QCOMPARE(user.window().screen()->size(), wantedscreen());
  QCOMPARE(user.find("main")->size(), QSize(491, 530));
  QVERIFY(wantedscreen().height() < 640 || screenroom(user).contains(user.window().frameGeometry()));
}

void Placing::explanationsandlog() {
  for (const bool logfirst : {true, false}) {
    User user;
    user.open(easypuzzle);
    if (logfirst) user.press("Toolbar1_activity");
    explain(user, [&] {
      if (!logfirst) user.choose("mnuactivity");
      const QRect main = user.window().frameGeometry();
      const QRect activity = frame("frmactivity"), log = frame("Frmlog");
      QVERIFY(screenroom(user).contains(activity) && screenroom(user).contains(log));
      APART(activity, head(user));
      APART(log, head(user));
      if (wantedscreen().width() < 1024) return;
      QCOMPARE(activity.topLeft(), QPoint(main.right() + 1, main.top()));
      APART(activity, main);
      APART(log, main);
      APART(activity, log);
      QVERIFY(log.height() >= 160);
    });
    QCOMPARE(user.asked, 2);
  }
}

void Placing::titles_data() {
  QTest::addColumn<bool>("italian");
  QTest::newRow("English") << false;
  QTest::newRow("Italian") << true;
}
// Only the titles say what to do next.
void Placing::titles() {
  if (!wideenough()) QSKIP("no room for it");
  QFETCH(bool, italian);
  User user;
  if (italian) user.press("cmdlan");
  user.open(easypuzzle);
  user.press("Toolbar1_activity");
  QFont large("Liberation Sans");
  large.setPixelSize(14);
  large.setBold(true);
  constexpr int iconandbuttons = 120;
  explain(user, [&] {
    for (const char* name : {"frmactivity", "Frmlog"}) {
      const QString title = toplevel(name)->windowTitle();
      const int needed = QFontMetrics(large).horizontalAdvance(title) + iconandbuttons;
      QVERIFY2(toplevel(name)->width() >= needed, qPrintable(QString("%1: %2").arg(title).arg(needed)));
    }
  });
  QCOMPARE(user.asked, 2);
}

// They are beside the main window wherever it has been moved.
void Placing::explanationsfollow() {
  if (!wideenough()) QSKIP("no room for it");
  User user;
  user.open(easypuzzle);
  user.window().move(40, 60);
  explain(user, [&] {
    const QRect main = user.window().frameGeometry();
    QCOMPARE(frame("frmactivity").topLeft(), QPoint(main.right() + 1, main.top()));
  });
  QCOMPARE(user.asked, 2);
}

// The position that the user has chosen for the log survives hiding.
void Placing::logstays() {
  User user;
  user.open(easypuzzle);
  user.press("Toolbar1_activity");
  toplevel("Frmlog")->resize(400, 200);
  toplevel("Frmlog")->move(77, 111);
  const QRect chosen = frame("Frmlog");
  user.choose("mnuactivity");
  QVERIFY(toplevel("Frmlog") == nullptr);
  user.choose("mnuactivity");
  QCOMPARE(frame("Frmlog"), chosen);
}

void Placing::library() {
  User user;
  user.press("Toolbar2_libreria");
  const QRect library = frame("frmlivello");
  QVERIFY(screenroom(user).contains(library));
  if (wideenough()) APART(library, user.window().frameGeometry());
  APART(library, head(user));
}

void Placing::generator() {
  User user;
  frmgeneratore::visible = frmactivity::visible = true;
  user.press("cmdlan");
  const QRect activity = frame("frmactivity"), list = frame("frmgeneratore");
  QVERIFY(screenroom(user).contains(activity) && screenroom(user).contains(list));
  APART(list, head(user));
  if (wantedscreen().width() < 1024) return;
  APART(list, activity);
  APART(list, user.window().frameGeometry());
}

// Pushed against the right edge, the main window has the explanations on its left.
void Placing::atthescreensedge() {
  if (!wideenough()) QSKIP("no room for it");
  User user;
  user.open(easypuzzle);
  const QRect room = screenroom(user);
  user.window().move(room.right() + 1 - user.window().frameGeometry().width(), 60);
  user.press("Toolbar1_activity");
  explain(user, [&] {
    const QRect main = user.window().frameGeometry();
    const QRect activity = frame("frmactivity"), log = frame("Frmlog");
    QCOMPARE(activity.top(), main.top());
    QVERIFY(room.contains(activity) && room.contains(log));
    APART(activity, main);
    APART(log, main);
    APART(activity, log);
  });
  QCOMPARE(user.asked, 2);
}

WINDOW_TESTS(Placing)
#include "placing.moc"
