// Opening and saving through the real file dialog.
#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTreeView>

#include "mainwindow.h"
#include "user.h"

using namespace gradino;

class Files : public QObject {
  Q_OBJECT

 private slots:
  void opens();
  void openfilter();
  void patterns();
  void keepsitsname();
  void relativename();
  void cancelledopen();
  void missingfile();
  void saves();
  void suggestedname();
  void folderusedlast();
  void quotesinaname_data();
  void quotesinaname();
  void quotesinafolder();
  void quotesinthelist();
  void language();
  void fullboardsavesgivens();
  void folderthatcannotbewritten();
};

namespace {

/// One step of level 2, the rest is easier.
const QByteArray puzzlewithsteps =
    ".......1.4.........2...........5.4.7..8...3....1.9....3..4..2...5.1........8.6...";

const QString openwords =
    "Puzzle salvati (*.sav)|File di testo (*.txt)|schemi (*.sas)|sudokusol (*.sdk;*.txt)|"
    "Tutti i formati (*.sav;*.sdk;*.txt;*.lgc)";
const QString savewords = "Puzzle salvati (*.sav)|File di testo (*.txt)|sudokusol (*.sdk)|logicando (*.lgc)";

}  // namespace

void Files::opens() {
  User user;
  user.open(easypuzzle);
  QCOMPARE(user.text("filetxt"), user.file("puzzle.sav"));
  QCOMPARE(user.text("Text1_0"), "5");
  QCOMPARE(user.text("Text1_2"), "");
  QVERIFY(user.shown("Text1_0"));
  QVERIFY(!user.shown("Text1_2"));  // pencil marks are on
  QVERIFY(user.shown("candidate_21") && user.shown("candidate_24") && !user.shown("candidate_23"));
  QVERIFY(user.menu("mnupencil")->isChecked());
  QCOMPARE(user.text("txtesposti"), "30");
  QCOMPARE(user.text("txtvuoti"), "51");
  QVERIFY(user.text("txtlivello").startsWith("VERY EASY"));
  QVERIFY(!user.shown("bkglabel"));
  QCOMPARE(user.boxes, QStringList());
}

void Files::openfilter() {
  User user;
  user.press("Toolbar2_open");
  QCOMPARE(user.filters, QStringList{openwords});
  QCOMPARE(user.suggestions, QStringList{""});
}

// The words are only shown; the patterns after them decide what is listed.
void Files::patterns() {
  User user;
  QStringList listed;
  user.ondialog = [&] {
    auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
    listed = dialog->nameFilters();
    QTest::keyClick(dialog, Qt::Key_Escape);
  };
  user.press("Toolbar2_open");
  QCOMPARE(listed.value(3), "sudokusol (*.sdk *.txt)");
  QCOMPARE(listed.value(4), "Tutti i formati (*.sav *.sdk *.txt *.lgc)");
  QCOMPARE(listed.size(), 5);
}

void Files::keepsitsname() {
  User user;
  user.open(easypuzzle);
  user.press("Toolbar2_open");  // cancelled: the name stays, and the same file is opened again
  QCOMPARE(user.suggestions.value(1), "puzzle.sav");
  QCOMPARE(user.text("Text1_0"), "5");
}

// A name typed without a folder is in the one that the dialog shows; nothing is appended to the name.
void Files::relativename() {
  User user;
  user.open(easypuzzle);
  user.file("other", easypuzzle);
  user.names = {"other"};
  user.choose("mnuopen");
  QCOMPARE(user.text("filetxt"), user.file("other"));
  QCOMPARE(user.text("Text1_0"), "5");
}

void Files::cancelledopen() {
  User user;
  user.press("Toolbar2_open");
  QCOMPARE(user.boxes, QStringList());
  QCOMPARE(user.text("filetxt"), "");
}

void Files::missingfile() {
  User user;
  user.names = {user.file("none.sav")};
  user.choose("mnuopen");
  QCOMPARE(user.boxes, QStringList{"error on saving process"});
}

void Files::saves() {
  User user;
  user.open(easypuzzle);
  user.file("mine.sav", "an older file");  // replaced without a question
  user.names = {user.file("mine.sav")};
  user.choose("mnusave");
  QCOMPARE(user.filters.value(1), savewords);
  QCOMPARE(user.bytes("mine.sav"), easypuzzle + "\r\n");
  QCOMPARE(user.text("filetxt"), user.file("mine.sav"));
  QCOMPARE(user.boxes, QStringList());
}

// The suggested name is the short form of the steps, including its final blank.
void Files::suggestedname() {
  User user;
  user.open(puzzlewithsteps);
  user.names = {user.file("mine.sav")};
  user.choose("mnusave");
  QCOMPARE(user.suggestions.value(1), "1x2 ");
  QCOMPARE(user.bytes("mine.sav"), puzzlewithsteps + "\r\n");
}

// The folder last used by either dialog; a cancelled dialog doesn't count.
void Files::folderusedlast() {
  User user;
  QStringList folders;
  const auto note = [&](const QString& name) {
    auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* field = dialog->findChild<QLineEdit*>("fileNameEdit");
    folders << dialog->directory().absolutePath() + "|" + field->text();
    if (name.isEmpty()) return QTest::keyClick(dialog, Qt::Key_Escape);
    field->setText(name);
    dialog->findChild<QDialogButtonBox*>()->buttons().first()->click();
  };
  const QDir base(QFileInfo(user.file("x")).absolutePath());
  QVERIFY(base.mkdir("opened") && base.mkdir("saved"));
  user.file("opened/puzzle.sav", puzzlewithsteps);
  const auto answer = [&](const QString& name) { user.ondialog = [&note, name] { note(name); }; };
  answer(user.file("opened/puzzle.sav"));
  user.choose("mnuopen");
  answer(user.file("saved/mine.sav"));
  user.choose("mnusave");
  answer("again.sav");
  user.choose("mnusave");
  answer("");
  user.choose("mnuopen");
  QCOMPARE(folders.mid(1), QStringList({user.file("opened") + "|1x2 ", user.file("saved") + "|1x2 ",
                                        user.file("saved") + "|again.sav"}));
  QCOMPARE(user.bytes("saved/again.sav"), puzzlewithsteps + "\r\n");
}

void Files::quotesinaname_data() {
  QTest::addColumn<QString>("name");
  for (const char* name : {R"(a"b"c.sav)", R"("b")", R"(a"b)", R"(b")", R"("")"}) QTest::newRow(name) << name;
}
// The name is taken as typed; no file of another name is touched.
void Files::quotesinaname() {
  QFETCH(QString, name);
  User user;
  user.open(easypuzzle);
  user.file("b", "another file");
  user.names = {name};
  user.choose("mnusave");
  QCOMPARE(user.text("filetxt"), user.file(name));
  QCOMPARE(user.bytes(name), easypuzzle + "\r\n");
  QCOMPARE(user.bytes("b"), "another file");
  user.choose("mnunew");
  user.names = {name};
  user.choose("mnuopen");
  QCOMPARE(user.text("filetxt"), user.file(name));
  QCOMPARE(user.text("Text1_0"), "5");
}

// The name of a folder opens it.
void Files::quotesinafolder() {
  User user;
  user.open(easypuzzle);
  QVERIFY(QDir().mkdir(user.file(R"(a"b"c)")));
  QString entered, left;
  user.ondialog = [&] {
    auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* field = dialog->findChild<QLineEdit*>("fileNameEdit");
    if (!entered.isEmpty()) return QTest::keyClick(dialog, Qt::Key_Escape);
    field->setText(R"(a"b"c)");
    dialog->findChild<QDialogButtonBox*>()->buttons().first()->click();
    entered = dialog->directory().absolutePath();
    left = field->text();
  };
  user.choose("mnuopen");
  QCOMPARE(entered, user.file(R"(a"b"c)"));
  QCOMPARE(left, "");
}

// A click on a file in the list chooses it.
void Files::quotesinthelist() {
  User user;
  user.file(R"(a"b.sav"c.sav)", easypuzzle);
  user.file("b.sav", easysolution);
  user.open(easypuzzle);
  const QString before = QDir::currentPath();
  QDir::setCurrent(QFileInfo(user.file("b.sav")).absolutePath());
  user.ondialog = [&] {
    auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* list = dialog->findChild<QListView*>("listView");
    const QModelIndex index = list->model()
                                  ->match(list->model()->index(0, 0, list->rootIndex()), Qt::DisplayRole,
                                          R"(a"b.sav"c.sav)", 1, Qt::MatchExactly)
                                  .value(0);
    if (!index.isValid()) return;  // the folder is still being read
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(index).center());
    if (!list->selectionModel()->isSelected(index)) return;  // it has moved on
    dialog->findChild<QDialogButtonBox*>()->buttons().first()->click();
  };
  user.choose("mnuopen");
  QDir::setCurrent(before);
  QCOMPARE(user.text("filetxt"), user.file(R"(a"b.sav"c.sav)"));
}

// Headings, tips and buttons of the dialog follow the language; the filters don't.
void Files::language() {
  User user;
  QList<QStringList> seen;
  int cutoff = 0;  // headings with too little room
  user.ondialog = [&] {
    auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
    QStringList words;
    const QHeaderView* heads = dialog->findChild<QTreeView*>("treeView")->header();
    for (int column = 0; column < 4; ++column)
      if (heads->sectionSize(column) < heads->sectionSizeHint(column)) ++cutoff;
    for (int column = 0; column < 4; ++column)
      words << dialog->findChild<QTreeView*>("treeView")
                   ->model()
                   ->headerData(column, Qt::Horizontal)
                   .toString();
    for (const char* key : {"backButton", "forwardButton", "toParentButton", "newFolderButton",
                            "listModeButton", "detailModeButton"})
      words << dialog->findChild<QWidget*>(key)->toolTip();
    for (const char* action :
         {"qt_rename_action", "qt_delete_action", "qt_show_hidden_action", "qt_new_folder_action"})
      words << dialog->findChild<QAction*>(action)->text();
    words << dialog->windowTitle();
    for (const QAbstractButton* button : dialog->findChild<QDialogButtonBox*>()->buttons())
      words << button->text();
    for (const char* label : {"lookInLabel", "fileNameLabel", "fileTypeLabel"})
      words << dialog->findChild<QLabel*>(label)->text();
    words << dialog->findChild<QComboBox*>("fileTypeCombo")->itemText(1);
    seen << words;
    QTest::keyClick(dialog, Qt::Key_Escape);
  };
  user.choose("mnuopen");
  user.press("cmdlan");
  user.choose("mnuopen");
  user.press("cmdlan");
  user.choose("mnuopen");
  const QStringList inenglish = {"Name",
                                 "Size",
                                 "Type",
                                 "Date Modified",
                                 "Back",
                                 "Forward",
                                 "Parent Directory",
                                 "Create New Folder",
                                 "List View",
                                 "Detail View",
                                 "&Rename",
                                 "&Delete",
                                 "Show &hidden files",
                                 "&New Folder",
                                 "Open",
                                 "Open",
                                 "Cancel",
                                 "Look in:",
                                 "File name:",
                                 "Files of type:",
                                 "File di testo (*.txt)"};
  const QStringList initalian = {"Nome",
                                 "Dimensione",
                                 "Tipo",
                                 "Ultima modifica",
                                 "Indietro",
                                 "Avanti",
                                 "Cartella superiore",
                                 "Crea nuova cartella",
                                 "Elenco",
                                 "Dettagli",
                                 "&Rinomina",
                                 "&Elimina",
                                 "Mostra i file &nascosti",
                                 "&Nuova cartella",
                                 "Apri",
                                 "Apri",
                                 "Annulla",
                                 "Cerca in:",
                                 "Nome file:",
                                 "Tipo file:",
                                 "File di testo (*.txt)"};
  QCOMPARE(seen, QList<QStringList>({inenglish, initalian, inenglish}));
  QCOMPARE(cutoff, 0);
}

void Files::fullboardsavesgivens() {
  User user;
  user.open(easypuzzle);
  user.choose("mnusolve");
  QCOMPARE(user.text("txtesposti"), "81");
  user.names = {user.file("whole.sav")};
  user.choose("mnusave");
  QCOMPARE(user.bytes("whole.sav"), easysolution + "\r\n");

  user.open(easypuzzle);
  user.choose("mnusolve");
  user.names = {user.file("givens.sav")};
  user.press("Toolbar2_save");
  QCOMPARE(user.bytes("givens.sav"), easypuzzle + "\r\n");
}

void Files::folderthatcannotbewritten() {
  User user;
  user.open(easypuzzle);
  user.names = {"/proc/nowhere.sav"};
  user.choose("mnusave");
  QCOMPARE(user.boxes.size(), 1);
  QVERIFY(user.boxes[0].contains("/proc/nowhere.sav"));
  QCOMPARE(user.text("filetxt"), user.file("puzzle.sav"));
  user.press("Text1_80");  // and the program goes on
  QCOMPARE(user.ring().size(), 10);
}

WINDOW_TESTS(Files)
#include "files.moc"
