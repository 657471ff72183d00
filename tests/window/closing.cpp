// Closing the main window ends the program at once, at any depth of waits, with the exit code 0.
#include "boxes.h"
#include "mainwindow.h"
#include "menu.h"
#include "user.h"

using namespace gradino;

class Closing : public QObject {
  Q_OBJECT

 private slots:
  void idle();
  void inwait();
  void inexplanation();
  void inmessagebox();
  void inmessageboxofopening();
  void inmessageboxinwait();
  void infiledialog();
  void inreplayinwait();
  void withotherwindows();
  void nothinghappensafter();
};

namespace {

/// Runs the program from its event loop's start to its end.
int run(User& user, const std::function<void()>& firstevent) {
  QTimer::singleShot(0, &user, firstevent);
  QTimer::singleShot(5000, &user, [] { QCoreApplication::exit(99); });
  return QCoreApplication::exec();
}

constexpr const char* hintkey = "Toolbar1_suggerisci";

}  // namespace

void Closing::idle() {
  User user;
  QCOMPARE(run(user, [&] { user.window().close(); }), 0);
  QVERIFY(!user.window().isVisible());
}

void Closing::inwait() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] { user.window().close(); }};
  bool unwound = false;
  QCOMPARE(run(user,
               [&] {
                 user.press(hintkey);
                 unwound = true;
               }),
           0);
  QVERIFY(unwound);
  QCOMPARE(user.asked, 1);
  QCOMPARE(frmmain::Text1(5).text, std::string());
}

void Closing::inexplanation() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] { user.press("Picthelp"); }, [&] { user.window().close(); }};
  QCOMPARE(run(user, [&] { user.press(hintkey); }), 0);
  QCOMPARE(user.asked, 2);
}

void Closing::inmessagebox() {
  User user;
  bool open = false;
  user.onbox = [&] {
    open = true;
    user.window().close();
  };
  QCOMPARE(run(user, [&] { user.press(hintkey); }), 0);
  QVERIFY(open);
}

// What the routine would have done after the box is not done.
void Closing::inmessageboxofopening() {
  User user;
  user.onbox = [&] { user.window().close(); };
  user.names = {user.file("several.sav", QByteArray(18, '.') + easysolution.mid(18) + "\r\n")};
  QCOMPARE(run(user, [&] { user.press("Toolbar2_open"); }), 0);
  QVERIFY(frmmain::filetxt.text.ends_with("several.sav"));
  QCOMPARE(frmmain::mnupencil.ticked, false);
}

void Closing::inmessageboxinwait() {
  User user;
  user.open(easypuzzle);
  bool open = false;
  user.onbox = [&] {
    open = true;
    user.window().close();
  };
  user.acts = {[&] { user.press("Text1_0"); }};
  QCOMPARE(run(user, [&] { user.press(hintkey); }), 0);
  QVERIFY(open);
}

void Closing::infiledialog() {
  User user;
  bool open = false;
  user.ondialog = [&] {
    open = true;
    user.window().close();
  };
  QCOMPARE(run(user, [&] { user.press("Toolbar2_open"); }), 0);
  QVERIFY(open);
}

// The menu has no lock, so a step can start inside the wait of another one.
void Closing::inreplayinwait() {
  User user;
  user.open(easypuzzle);
  user.acts = {[&] { user.choose("mnuposition"); }, [&] { user.choose("mnuposition"); },
               [&] { user.window().close(); }};
  QCOMPARE(run(user, [&] { user.press(hintkey); }), 0);
  QCOMPARE(user.asked, 3);
}

void Closing::withotherwindows() {
  User user;
  user.open(easypuzzle);
  user.choose("mnuactivity");
  QCOMPARE(run(user, [&] { user.window().close(); }), 0);
}

void Closing::nothinghappensafter() {
  User user;
  user.window().close();
  user.choose("mnupencil");
  QVERIFY(!user.menu("mnupencil")->isChecked());
}

WINDOW_TESTS(Closing)
#include "closing.moc"
