// The library's window: levels, preview, loading; both languages; a damaged store.
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <memory>

#include "boxes.h"
#include "browser.h"
#include "host.h"
#include "librarycursor.h"
#include "mainwindow.h"
#include "startup.h"
#include "store.h"
#include "user.h"

using namespace gradino;

class Library : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();
  void opensempty();
  void firstpick();
  void buttons();
  void typing();
  void thelastradioliesontheloops();
  void alevelsnamechoosesit();
  void countsreadasonerow();
  void loads();
  void italian();
  void closedbyitsuser();
  void damaged();
  void onlyread();

 private:
  std::unique_ptr<QTemporaryDir> folder_;
};

namespace {

constexpr const char* outside = "record fuori dal campo";

/// The library's window under the user's hand.
class Window {
 public:
  explicit Window(User& user) {
    user.press("Toolbar2_libreria");
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->objectName() == "frmlivello" && widget->isVisible()) window = widget;
    if (window == nullptr) qFatal("no library window");
    if (!QTest::qWaitForWindowExposed(window, patience)) qFatal("the library window doesn't come up");
  }
  template <class T = QWidget>
  T* get(const QString& name) const {
    return window->findChild<T*>(name);
  }
  /// A click on the screen, whatever widget lies on top there.
  void press(const QString& name) const {
    const QWidget* widget = get(name);
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                      widget->mapTo(window, widget->rect().center()));
  }
  QString text(const QString& name) const { return get<QLineEdit>(name)->text(); }
  QString label(const QString& name) const { return get<QLabel>(name)->text(); }

  QWidget* window = nullptr;
};

/// Five puzzles of level 1, one of the loops' level; difficulties 50 to 54, in no order.
void fill(const QString& folder) {
  Store store(folder.toStdString() + "/schemigenerati.mdb");
  const auto add = [&](int id, const char* level, int difficulty) {
    LibraryRow row;
    row[field::progressivo] = std::to_string(id);
    row[field::stringa] = easypuzzle.toStdString();
    row[field::livello] = level;
    row[field::difficolta] = std::to_string(difficulty);
    row[field::dettaglio] = "detail of " + std::to_string(id);
    store.insert(row);
  };
  add(1, "1", 52);
  add(2, "1", 50);
  add(3, "1", 54);
  add(4, "1", 51);
  add(5, "1", 53);
  add(6, "20", 99);
}

}  // namespace

void Library::init() {
  folder_ = std::make_unique<QTemporaryDir>();
  apppath = folder_->path().toStdString();
  fill(folder_->path());
}

void Library::cleanup() {
  apppath.clear();
  closelibrary();
}

void Library::opensempty() {
  User user;
  const Window library(user);
  for (int n = 0; n <= 22; ++n)
    QVERIFY(!library.get<QRadioButton>(QString("Option1_%1").arg(n))->isChecked());
  QVERIFY(!library.get("Text2_0")->isVisible());
  QCOMPARE(library.text("numeroselezionato"), "");
  QVERIFY(!library.window->isModal());
  QVERIFY(user.boxes.isEmpty());
}

void Library::firstpick() {
  User user;
  const Window library(user);
  host.random = [] { return 0.7; };  // of five the fourth
  library.press("Option1_1");
  QVERIFY(library.get<QRadioButton>("Option1_1")->isChecked());
  QCOMPARE(library.text("numerototale"), "5");
  QCOMPARE(library.text("numeroselezionato"), "4");
  QCOMPARE(library.text("difftxt"), "51");
  QCOMPARE(library.text("id"), "4");
  QCOMPARE(library.text("dettagliotxt"), "detail of 4");
  QVERIFY(library.get("Text2_80")->isVisible());
  QCOMPARE(library.label("Text2_0"), "5");
  QCOMPARE(library.label("Text2_2"), ".");
  QCOMPARE(library.get("Text2_0")->palette().color(QPalette::WindowText), QColor(255, 0, 0));
  QCOMPARE(library.get("Text2_3")->x() - library.get("Text2_2")->x(), 16);
}

// "The library contains 5 puzzles           puzzle selected 1".
void Library::countsreadasonerow() {
  for (const bool italian : {false, true}) {
    User user;
    if (italian) user.press("cmdlan");
    const Window library(user);
    QCOMPARE(library.label("Label12"), italian ? "La libreria contiene" : "The library contains");
    QCOMPARE(library.label("Label13"),
             italian ? "schemi         schema selezionato" : "puzzles           puzzle selected");
    QRect last;
    for (const char* name : {"Label12", "numerototale", "Label13", "numeroselezionato"}) {
      const QWidget* part = library.get(name);
      const QRect place = part->geometry();
      QVERIFY2(place.width() >= part->sizeHint().width() || part->inherits("QLineEdit"), name);
      QVERIFY2(library.window->rect().contains(place), name);
      for (const QWidget* other :
           library.window->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        QVERIFY2(other == part || !other->isVisible() || !other->geometry().intersects(place), name);
      if (!last.isNull()) {
        QVERIFY2(qAbs(place.center().y() - last.center().y()) <= 1, name);
        QVERIFY2(place.left() > last.right() && place.left() - last.right() < 12, name);
      }
      last = place;
    }
    QVERIFY(library.get<QLineEdit>("numerototale")->fontMetrics().horizontalAdvance("24396") <
            library.get("numerototale")->width() - 10);
    library.window->close();
  }
}

void Library::buttons() {
  User user;
  const Window library(user);
  host.random = [] { return 0.0; };
  library.press("Option1_1");
  const auto pressed = [&](const char* button) {
    library.press(button);
    return library.text("numeroselezionato") + ": " + library.text("difftxt");
  };
  QCOMPARE(pressed("Command2"), "1: 54");  // none before the first
  QCOMPARE(pressed("Command3"), "2: 53");
  QCOMPARE(pressed("Command4"), "5: 50");
  QCOMPARE(pressed("Command3"), "5: 50");
  QCOMPARE(pressed("Command2"), "4: 51");
  QCOMPARE(pressed("Command5"), "1: 54");
  QCOMPARE(user.boxes, QStringList());
  const QStringList texts = {"carica schema", "precedente", "successivo", "ultimo record", "primo record"};
  for (int n = 0; n < 5; ++n) {
    auto* button = library.get<QPushButton>(QString("Command%1").arg(n + 1));
    QCOMPARE(button->text(), texts[n]);
    QVERIFY(!button->icon().pixmap(22).toImage().isNull());
  }
}

void Library::typing() {
  User user;
  const Window library(user);
  library.press("Option1_1");
  auto* number = library.get<QLineEdit>("numeroselezionato");
  const auto typed = [&](const char* text) {
    number->selectAll();
    QTest::keyClicks(number, text);
    return library.text("id");
  };
  QCOMPARE(typed("2"), "5");
  QCOMPARE(typed("0"), "5");
  QCOMPARE(typed("x"), "5");
  QCOMPARE(user.boxes, QStringList());
  QCOMPARE(typed("6"), "5");
  QCOMPARE(user.boxes, QStringList{outside});
  QCOMPARE(typed("3"), "1");
  QVERIFY(library.get<QLineEdit>("id")->isReadOnly());
}

void Library::thelastradioliesontheloops() {
  User user;
  const Window library(user);
  library.press("Option1_20");
  QVERIFY(library.get<QRadioButton>("Option1_22")->isChecked());
  QVERIFY(!library.get<QRadioButton>("Option1_20")->isChecked());
  QCOMPARE(QString::fromStdString(frmlivello::livelloscelto.text), "22");
  QCOMPARE(library.text("numerototale"), "0");
  QCOMPARE(user.boxes, QStringList{outside});
  QVERIFY(!library.get("Text2_0")->isVisible());
}

void Library::alevelsnamechoosesit() {
  User user;
  const Window library(user);
  library.press("LabelL20");
  QVERIFY(library.get<QRadioButton>("Option1_20")->isChecked());
  QCOMPARE(library.text("difftxt"), "99");
  QCOMPARE(user.boxes, QStringList());
  library.press("labelL14");
  QCOMPARE(user.boxes, QStringList{outside});
}

void Library::loads() {
  User user;
  const Window library(user);
  host.random = [] { return 0.0; };
  library.press("Option1_1");
  library.press("Command1");
  QVERIFY(!library.window->isVisible());
  QCOMPARE(user.text("filetxt"), "Level 1, puzzle 1");
  QCOMPARE(user.text("Text1_0"), "5");
  QCOMPARE(user.text("txtesposti"), "30");
  QVERIFY(!user.shown("bkglabel"));
  QCOMPARE(user.find("Text1_0")->palette().color(QPalette::Text), QColor(255, 0, 0));
  QCOMPARE(user.find("Text1_2")->palette().color(QPalette::Text), QColor(0, 0, 0));
  QVERIFY(!user.text("txtlivello").isEmpty());
  QCOMPARE(user.boxes, QStringList());
}

// The language is the one in force when the window was opened.
void Library::italian() {
  User user;
  const Window english(user);
  QCOMPARE(english.window->windowTitle(), "Select Level");
  QCOMPARE(english.label("LabelL19"), "Level 19 - EXTREME - XY-Chains");
  user.press("cmdlan");
  QCOMPARE(english.window->windowTitle(), "Select Level");
  english.window->close();
  const Window library(user);
  QCOMPARE(library.window->windowTitle(), "Selezione Livello");
  QCOMPARE(library.label("LabelL19"), "Level 19 - ESTREMO - CATENE XY");
  QCOMPARE(library.label("LabelL11"), "Livello 11 - MOLTO DIFFICILE - Sfordfish");
  QCOMPARE(library.label("Label12"), "La libreria contiene");
  QCOMPARE(library.label("Label13"), "schemi         schema selezionato");
  QCOMPARE(library.label("Label14"), "difficoltà");
  QCOMPARE(library.label("Label15"), "dettaglio");
  QCOMPARE(library.label("Label20"), "Schemi ordinati per difficoltà decrescente");
  QCOMPARE(library.label("Label1"), "schema nr.");
}

void Library::closedbyitsuser() {
  User user;
  const Window library(user);
  library.press("Option1_1");
  library.window->close();
  QVERIFY(!library.window->isVisible());
  QVERIFY(user.window().isVisible());
  const Window again(user);
  QVERIFY(!again.get<QRadioButton>("Option1_1")->isChecked());
  QCOMPARE(again.text("numeroselezionato"), "");
}

void Library::damaged() {
  const QString path = folder_->filePath("schemigenerati.mdb");
  const QByteArray damaged = QByteArray("this is no library\n").repeated(300);
  QFile file(path);
  QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
  file.write(damaged);
  file.close();
  User user;
  QCOMPARE(user.boxes, QStringList());  // reported when the library is first needed, not before
  user.press("Toolbar2_libreria");
  QCOMPARE(user.boxes.size(), 1);
  QVERIFY2(user.boxes.first().contains("schemigenerati.mdb"), qPrintable(user.boxes.first()));
  user.open(easypuzzle);
  QCOMPARE(user.text("Text1_0"), "5");
  QVERIFY(file.open(QIODevice::ReadOnly));
  QCOMPARE(file.readAll(), damaged);
}

// A folder can't be made where there is a file of this name.
void Library::onlyread() {
  QDir folder(folder_->path());
  QVERIFY(folder.mkpath("prefix/bin") && folder.mkpath("prefix/share/gradino"));
  const QString shipped = folder.filePath("prefix/share/gradino/schemigenerati.mdb"),
                wall = folder.filePath("wall");
  QVERIFY(QFile::rename(folder.filePath("schemigenerati.mdb"), shipped));
  QVERIFY(QFile(wall).open(QIODevice::WriteOnly));
  const QByteArray before = qgetenv("XDG_DATA_HOME");
  qputenv("XDG_DATA_HOME", wall.toUtf8());
  apppath = folder.filePath("prefix/bin").toStdString();
  User user;
  qputenv("XDG_DATA_HOME", before);
  QCOMPARE(user.boxes, QStringList());
  const Window library(user);
  QCOMPARE(user.boxes,
           QStringList{"Your own copy of the library, \"" + wall +
                       "/gradino/schemigenerati.mdb\", can't be made: its folder doesn't exist or can't be "
                       "written to. The one that came with the program, \"" +
                       shipped + "\", is used, which can only be read: nothing is stored in it."});
  library.window->close();
  const Window again(user);
  QCOMPARE(user.boxes.size(), 1);
  again.press("Option1_1");
  QCOMPARE(again.text("numerototale"), "5");
}

WINDOW_TESTS(Library)
#include "library.moc"
