#include "librarywindow.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>
#include <functional>
#include <utility>

#include "browser.h"
#include "events.h"
#include "look.h"
#include "screenreader.h"
#include "smallwindows.h"

namespace gradino {

using namespace frmlivello;

namespace {

constexpr int levelsx = 12, levelsy = 10, levelheight = 19, radiosize = 17, namewidth = 470;
constexpr QPoint previeworigin{566, 14};
constexpr double unitsperpixel = 15;
constexpr int countsx = 12, countsy = 468, countsgap = 6;  // a row: y is its middle

// Only the sizes of the counts matter: they follow each other in a row.
// clang-format off
struct LabelRow { const Box* box; const char* name; int x, y; };
const LabelRow labelrows[] = {
    {&Label20,            "Label20", 12,  436},
    {&frmlivello::Label1, "Label1",  522, 158},
    {&Label14,            "Label14", 522, 188},
    {&Label15,            "Label15", 522, 218},
    {&Label12,            "Label12", 0, 0},
    {&Label13,            "Label13", 0, 0},
};

struct TextRow { const Box* box; const char* name; QRect place; bool editable; };
const TextRow textrows[] = {
    {&id,                "id",                {620, 155, 128, 22}, false},
    {&difftxt,           "difftxt",           {620, 185, 128, 22}, false},
    {&dettagliotxt,      "dettagliotxt",      {522, 240, 226, 22}, false},
    {&numerototale,      "numerototale",      {  0,   0,  50, 22}, false},
    {&numeroselezionato, "numeroselezionato", {  0,   0,  60, 22}, true},
};

struct ButtonRow { const Control* control; const char* name; const char* art; QRect place; void (*click)(); };
const ButtonRow buttonrows[] = {
    {&Command5, "Command5", "library/first",    {522, 382, 112, 28}, Command5_Click},
    {&Command4, "Command4", "library/last",     {636, 382, 112, 28}, Command4_Click},
    {&Command2, "Command2", "library/previous", {522, 414, 112, 28}, Command2_Click},
    {&Command3, "Command3", "library/next",     {636, 414, 112, 28}, Command3_Click},
    {&Command1, "Command1", "library/load",     {522, 448, 226, 32}, Command1_Click},
};
// clang-format on

/// A level without its name, which is a label beside it: the toolkit would frame the name.
class LevelOption : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QRadioButton::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    drawframe(painter, rect(), 2, darkblue);
  }
};

/// A level's name: a click on it chooses the level too.
class LevelName : public QLabel {
 public:
  LevelName(QWidget* parent, int level) : QLabel(parent), level_(level) {}

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
      onevent([this] { Option1_Click(level_); });
  }

 private:
  int level_;
};

QFont smallfont() {
  return pixelfont(mssansserif, 12);
}

int inpixels(int units) {
  return qRound(units / unitsperpixel);
}

}  // namespace

LibraryWindow::LibraryWindow(const QWidget& mainwindow) : mainwindow_(mainwindow) {
  setObjectName("frmlivello");
  nameby(*this, [] { return spokenwindow(caption); });
  setFixedSize(librarysize);
  addlevels();
  addpreview();
  addtexts();
  addbuttons();
}

void LibraryWindow::addlevels() {
  for (int n = 0; n <= 22; ++n) {
    auto* option = new LevelOption(this);
    option->setObjectName(QString("Option1_%1").arg(n));
    // The last one is on top of the level of the loops, and asks for a level that doesn't exist.
    option->setGeometry(levelsx, levelsy + (n == 22 ? 20 : n) * levelheight, radiosize, radiosize);
    connect(option, &QRadioButton::clicked, this, [n] { onevent([n] { Option1_Click(n); }); });
    nameby(*option, [n] { return spokenlevel(n); });
    options_[static_cast<std::size_t>(n)] = option;
    if (n == 22) continue;
    auto* name = new LevelName(this, n);
    name->setObjectName(n == 14 ? "labelL14" : QString("LabelL%1").arg(n));
    name->setTextFormat(Qt::PlainText);
    name->setFont(smallfont());
    name->setGeometry(levelsx + radiosize + 4, levelsy + n * levelheight, namewidth, radiosize);
    labels_.push_back({&LabelL(n), name});
  }
}

void LibraryWindow::addpreview() {
  const int size = inpixels(previewsize);
  for (int cell = 0; cell < 81; ++cell) {
    auto* box = new QLabel(this);
    box->setObjectName(QString("Text2_%1").arg(cell));
    box->setAlignment(Qt::AlignCenter);
    box->setFont(pixelfont(arial, 11));
    box->setAutoFillBackground(true);
    setcolours(*box, Qt::white, screencolour(red));
    box->setGeometry(
        QRect(previeworigin + QPoint(inpixels(previewplace(cell % 9)), inpixels(previewplace(cell / 9))),
              QSize(size, size)));
    box->hide();
    nameby(*box, [cell] { return spokenpreview(cell); });
    preview_[static_cast<std::size_t>(cell)] = box;
  }
}

void LibraryWindow::addtexts() {
  for (const LabelRow& row : labelrows) {
    auto* label = new QLabel(this);
    label->setObjectName(row.name);
    label->setTextFormat(Qt::PlainText);
    label->setFont(smallfont());
    label->move(row.x, row.y);
    labels_.push_back({row.box, label});
  }
  for (const TextRow& row : textrows) {
    auto* edit = new QLineEdit(this);
    edit->setObjectName(row.name);
    edit->setGeometry(row.place);
    edit->setReadOnly(!row.editable);
    edit->setFont(smallfont());
    nameby(*edit, [&row] { return spoken(*row.box); });
    texts_.push_back({row.box, edit});
    if (row.editable)
      connect(edit, &QLineEdit::textEdited, this, [](const QString& text) {
        onevent([typed = text.toStdString()] { numeroselezionato_Typed(typed); });
      });
  }
}

void LibraryWindow::addbuttons() {
  for (const ButtonRow& row : buttonrows) {
    auto* button = new QPushButton(this);
    button->setObjectName(row.name);
    button->setIcon(articon(row.art));
    button->setFont(smallfont());
    button->setGeometry(row.place);
    connect(button, &QPushButton::clicked, this, [&row] { onevent(row.click); });
    nameby(*button, [&row] { return spoken(*row.control); });
    buttons_.push_back({row.control, button});
  }
}

void LibraryWindow::showover() {
  placebeside(*this, {frmmain::left + frmmain::width, frmmain::top}, librarysize);
  winId();  // makes the native window, which can then stay above another
  windowHandle()->setTransientParent(mainwindow_.windowHandle());
}

void LibraryWindow::mirror() {
  if (frmlivello::visible && !isVisible()) showover();
  if (frmlivello::visible != isVisible()) setVisible(frmlivello::visible);
  if (!frmlivello::visible) return;
  if (std::exchange(raised, false)) {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
  }
  setWindowTitle(QString::fromStdString(caption));
  for (int n = 0; n <= 22; ++n) {
    QRadioButton* option = options_[static_cast<std::size_t>(n)];
    // The checked button of an exclusive group can't be unchecked, so a new window lifts the exclusion.
    option->setAutoExclusive(false);
    option->setChecked(Option1(n).ticked);
    option->setAutoExclusive(true);
  }
  for (const Label& row : labels_) {
    row.label->setText(QString::fromStdString(row.box->text));
    row.label->adjustSize();
  }
  for (const Text& row : texts_) {
    if (const QString text = QString::fromStdString(row.box->text); text != row.edit->text())
      row.edit->setText(text);
    if (row.edit->isReadOnly()) row.edit->setCursorPosition(0);
  }
  for (const Button& row : buttons_) row.button->setText(QString::fromStdString(row.control->caption));
  mirrorcounts();
  mirrorpreview();
}

// A sentence with the two numbers in it, whatever the length of its words.
void LibraryWindow::mirrorcounts() {
  int x = countsx;
  for (const char* name : {"Label12", "numerototale", "Label13", "numeroselezionato"}) {
    auto* part = findChild<QWidget*>(name);
    part->move(x, countsy - part->height() / 2);
    x += part->width() + countsgap;
  }
}

void LibraryWindow::mirrorpreview() {
  for (std::size_t cell = 0; cell < preview_.size(); ++cell) {
    const Box& box = Text2(static_cast<int>(cell));
    if (previewed_[cell] == box) continue;
    preview_[cell]->setText(QString::fromStdString(box.text));
    preview_[cell]->setVisible(box.visible);
    previewed_[cell] = box;
  }
}

// A closed window is gone: the next one opens with nothing chosen, in the language then in force.
void LibraryWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  onevent([] { frmlivello::visible = false; });
}

}  // namespace gradino
