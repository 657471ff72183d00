// A user of the real window: clicks on widgets at their position on the screen, types, answers waits, message
// boxes and file dialogs.
//
//   User user;                                    // a program just started
//   user.names = {path};                          // the file dialogs, one after the other
//   user.press("Toolbar2_open");
//   user.acts = {[&] { user.press("Pictgo"); }};  // one a wait; the last thing each does is to answer it
//   user.press("Toolbar1_suggerisci");
//   QCOMPARE(user.boxes, QStringList());          // the message boxes, in order
#pragma once

#include <QColor>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

class QAction;

namespace gradino {

class MainWindow;

/// Milliseconds for what has to happen at some time, however busy the machine is: as long as ctest gives a test.
constexpr int patience = 10 * 60 * 1000;

class User : public QObject {
 public:
  User();
  ~User() override;

  MainWindow& window() { return *window_; }
  /// The widget of this name, or a failed test.
  QWidget* find(const QString& name) const;
  QAction* menu(const QString& name) const;
  template <class T>
  T* get(const QString& name) const {
    return dynamic_cast<T*>(find(name));
  }

  // What can be seen.
  QRect place(const QString& name) const;  ///< in the client area
  bool shown(const QString& name) const;   ///< not hidden, and not only a frame of the focus
  QString text(const QString& name) const;
  QColor ground(const QString& name) const;
  bool focused(const QString& name) const;
  QStringList ring() const;  ///< the ring's pictures that are shown

  // What he does.
  void press(const QString& name);  ///< a click on its middle, whatever is there
  void pressat(QPoint place);       ///< of the client area
  void moveto(QPoint place);
  void choose(const QString& entry);  ///< of the menu
  void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void type(const QString& ascii);

  /// A file in a folder of its own.
  QString file(const QString& name, const QByteArray& bytes = {}) const;
  QByteArray bytes(const QString& name) const;
  void open(const QByteArray& puzzle);
  void comeback();  ///< to the main window, after a dialog

  std::deque<std::function<void()>> acts;
  std::deque<std::optional<QString>> names;  ///< none: cancel
  QStringList boxes;
  std::function<void()> onwait, onbox, ondialog;  ///< instead of answering
  QStringList filters, suggestions;  ///< of the file dialogs: the words of each; the names offered
  int asked = 0;                     ///< waits that asked

 private:
  void answermodal();
  void answerdialog(QWidget* dialog);
  void waitasks();

  std::unique_ptr<MainWindow> window_;
  QTemporaryDir folder_;
  QTimer eyes_;
  bool reacting_ = false;
};

/// A puzzle for everyday tests, with one solution; its first step is a hidden single, 8 in r1c6.
inline const QByteArray easypuzzle =
    "53..7....6..195....98....6.8...6...34..8.3..17...2...6.6....28....419..5....8..79";
inline const QByteArray easysolution =
    "534678912672195348198342567859761423426853791713924856961537284287419635345286179";

/// Runs a class of tests in the look and with the platform of the program.
int runtests(QObject& tests, int argc, char** argv);

}  // namespace gradino

#define WINDOW_TESTS(Class)                      \
  int main(int argc, char** argv) {              \
    Class tests;                                 \
    return gradino::runtests(tests, argc, argv); \
  }
