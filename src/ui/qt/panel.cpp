#include "panel.h"

#include <QCheckBox>
#include <QFrame>
#include <QMouseEvent>
#include <QPainter>

#include "captions.h"
#include "cellboxes.h"
#include "clock.h"
#include "commands.h"
#include "editing.h"
#include "events.h"
#include "explain.h"
#include "light.h"
#include "look.h"
#include "screenreader.h"

namespace gradino {

using namespace frmmain;

namespace {

struct LabelRow {
  const char* name;
  const Box* box;
  int x, y;
};

enum class Ground { teal, cyan };

struct TextRow {
  const char* name;
  const Box* box;
  QRect place;
  int height;  ///< of the font
  Ground ground;
};

struct PictureRow {
  const char* name;
  const Control* control;
  QRect place;
  PictureButton::Look look;
  const char* art;
  void (*click)();
};

// clang-format off
const LabelRow labelrows[] = {
    {"lblfile",  &lblfile,  406,  64},
    {"Label1",   &Label1,   406, 116},
    {"Label3",   &Label3,   406, 173},
    {"Label2",   &Label2,   410, 260},
    {"Label5",   &Label5,   406, 332},
};
const QRect bkgplace{434, 444, 41, 19};

// Lines overlap: the sentence of the step covers part of the file name.
const TextRow textrows[] = {
    {"txtesposti",     &txtesposti,     {406,  84,  41, 31}, 20, Ground::teal},
    {"txtvuoti",       &txtvuoti,       {406, 136,  41, 31}, 20, Ground::teal},
    {"Text5",          &Text5,          {406, 194,  41, 31}, 20, Ground::teal},
    {"tempotot",       &tempotot,       {406, 280,  79, 19}, 14, Ground::teal},
    {"txtprogressivo", &txtprogressivo, {406, 352,  79, 19}, 14, Ground::teal},
    {"filetxt",        &filetxt,        {  4, 482, 485, 16}, 12, Ground::teal},
    {"txthint",        &txthint,        {  4, 468, 485, 16}, 12, Ground::cyan},
    {"txtlivello",     &txtlivello,     {  4, 498, 426, 16}, 12, Ground::teal},
    {"testototale",    &testototale,    {430, 498,  60, 16}, 12, Ground::teal},
    {"txtlivello1",    &txtlivello1,    {  4, 514, 485, 16}, 12, Ground::teal},
};

constexpr auto flat = PictureButton::Look::picture, key = PictureButton::Look::key;
const PictureRow picturerows[] = {
    {"Pictgo",         &Pictgo,         {357,  34, 22, 22}, flat, "light/go",            Pictgo_Click},
    {"Pictalt",        &Pictalt,        {382,  34, 20, 22}, flat, "light/stop",          Pictalt_Click},
    {"Picthelp",       &Picthelp,       {402,  34, 20, 22}, flat, "light/help",          Picthelp_Click},
    {"picstart",       &picstart,       {406, 306, 17, 18}, flat, "lamps/verde",         picstart_Click},
    {"Picture2",       &Picture2,       {470, 306, 17, 18}, flat, "lamps/reset",         Picture2_Click},
    {"cmdlan",         &cmdlan,         {452,   2, 35, 25}, key,  "flags/it",            cmdlan_Click},
    {"cmdimpossibili", &cmdimpossibili, {308,  32, 22, 22}, key,  "toolbar/impossibili", cmdimpossibili_Click},
    {"cmdnice",        &cmdnice,        {388,   4, 22, 22}, key,  "toolbar/nice",        cmdnice_Click},
    {"Cmdtest",        &Cmdtest,        {329,   4, 22, 22}, key,  "toolbar/test",        Cmdtest_Click},
};

const QPoint colourplaces[] = {
    {460, 114}, {460, 138}, {460,  90}, {460,  66}, {460, 234}, {460, 162}, {460, 186}, {460, 210}, {432, 235},
};
constexpr int coloursize = 20;

constexpr int rownumbers[]    = {72, 116, 156, 200, 240, 282, 328, 366, 408};
constexpr int columnnumbers[] = {28, 68, 110, 152, 196, 236, 282, 322, 362};
constexpr int columnnumbersy = 446;
constexpr QSize rownumber{24, 37}, columnnumber{36, 32};
// clang-format on

constexpr int ringsize = 22;
constexpr QRect framePlace{4, 62, 15, 11};
constexpr QPoint checkplace{692, 264};

/// An invisible spot beside the first row: a double click shows the hidden tools.
class HiddenFrame : public QFrame {
 public:
  using QFrame::QFrame;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) onevent(Frame1_DblClick);
  }
};

/// A read-only text that shows when it has the focus.
class TextLine : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QLineEdit::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    drawfocus(painter, rect());
  }
};

QLabel* newlabel(QWidget* client, const QString& name, int height) {
  auto* label = new QLabel(client);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setFont(pixelfont(comicsans, height));
  setcolours(*label, teal, paleyellow);
  return label;
}

/// Label4: the numbers of the rows on the left, of the columns below.
void addnumbers(QWidget* client) {
  for (int n = 0; n < 18; ++n) {
    QLabel* label = newlabel(client, QString("Label4_%1").arg(n), 20);
    label->setText(QString::number(n % 9 + 1));
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label->setGeometry(n < 9 ? QRect(QPoint(0, rownumbers[n]), rownumber)
                             : QRect(QPoint(columnnumbers[n - 9], columnnumbersy), columnnumber));
    nameby(*label, [n] { return spokennumber(n); });
  }
}

}  // namespace

Panel::Panel(QWidget* client) {
  addnumbers(client);
  addlabels(client);
  addtextboxes(client);
  addpictures(client);
  addpalette(client);
  auto* frame = new HiddenFrame(client);
  frame->setObjectName("Frame1");
  frame->setGeometry(framePlace);
  check_ = new QCheckBox(client);
  check_->setObjectName("Check1");
  check_->move(checkplace);
  nameby(*check_, [] { return spoken(Check1); });
  addring(client);
}

void Panel::addlabels(QWidget* client) {
  for (const LabelRow& row : labelrows) {
    QLabel* label = newlabel(client, row.name, 14);
    label->move(row.x, row.y);
    nameby(*label, [&row] { return spoken(*row.box); });
    labels_.push_back({row.box, label, {}});
  }
  QLabel* label = newlabel(client, "bkglabel", 14);
  label->setGeometry(bkgplace);
  nameby(*label, [] { return spoken(bkglabel); });
  labels_.push_back({&bkglabel, label, {}});
}

void Panel::addtextboxes(QWidget* client) {
  for (const TextRow& row : textrows) {
    auto* edit = new TextLine(client);
    const bool line = row.place.height() == 16;
    edit->setObjectName(row.name);
    edit->setGeometry(row.place);
    edit->setFrame(false);
    edit->setReadOnly(true);
    edit->setFont(pixelfont(line ? arial : comicsans, row.height));
    if (row.ground == Ground::cyan) {
      setcolours(*edit, screencolour(cyan), darkblue);
    } else {
      setcolours(*edit, teal, paleyellow);
    }
    // A screen reader can put text even into a read-only box.
    QObject::connect(edit, &QLineEdit::textChanged, edit,
                     [edit, &row] { edit->setText(QString::fromStdString(row.box->text)); });
    nameby(*edit, [&row] { return spoken(*row.box); });
    textboxes_.push_back({row.box, edit, {}});
  }
}

void Panel::addpictures(QWidget* client) {
  for (const PictureRow& row : picturerows) {
    auto* button = new PictureButton(client, row.name, row.look, row.click);
    button->setGeometry(row.place);
    button->setart(row.art);
    nameby(*button, [&row] { return spoken(*row.control); });
    pictures_.push_back({row.control, button});
    if (row.control == &picstart) lamp_ = button;
    if (row.control == &cmdlan) flag_ = button;
  }
}

void Panel::addpalette(QWidget* client) {
  for (std::size_t n = 0; n < palette_.size(); ++n) {
    const int number = static_cast<int>(n);
    const std::string name = "colore_" + std::to_string(n);
    palette_[n] = new PictureButton(client, name.c_str(), PictureButton::Look::paint,
                                    [number] { colore_Click(number); });
    palette_[n]->setGeometry(QRect(colourplaces[n], QSize(coloursize, coloursize)));
    nameby(*palette_[n], [number] { return spokencolour(number); });
  }
}

void Panel::addring(QWidget* client) {
  for (std::size_t digit = 0; digit < ring_.size(); ++digit) {
    const int number = static_cast<int>(digit);
    const std::string name = "Picture1_" + std::to_string(digit);
    ring_[digit] = new PictureButton(client, name.c_str(), PictureButton::Look::picture,
                                     [number] { Picture1_Click(number); });
    ring_[digit]->setart(QString("digits/%1").arg(number));
    nameby(*ring_[digit], [number] { return spokenring(number); });
    ring_[digit]->setFocusPolicy(Qt::NoFocus);
    ring_[digit]->resize(ringsize, ringsize);
  }
}

void Panel::raisepictures() {
  for (const Picture& picture : pictures_) picture.button->raise();
  for (PictureButton* picture : ring_) picture->raise();
}

void Panel::mirror() {
  mirrortexts();
  mirrorpictures();
  mirrorring();
  check_->setText(QString::fromStdString(Check1.caption));
  check_->setChecked(Check1.ticked);
  check_->setVisible(Check1.visible);
}

void Panel::mirrortexts() {
  for (Label& row : labels_) {
    if (row.shown == *row.box) continue;
    row.label->setText(QString::fromStdString(row.box->text));
    if (row.box != &bkglabel) row.label->adjustSize();
    row.label->setVisible(row.box->visible);
    row.shown = *row.box;
  }
  for (TextBox& row : textboxes_) {
    if (row.shown == *row.box) continue;
    row.edit->setText(QString::fromStdString(row.box->text));
    row.edit->setCursorPosition(0);
    row.edit->setVisible(row.box->visible);
    row.shown = *row.box;
  }
}

void Panel::mirrorpictures() {
  for (const Picture& picture : pictures_) picture.button->mirror(*picture.control);
  lamp_->setart(picstartlamp == Lamp::rosso ? "lamps/rosso" : "lamps/verde");
  flag_->setart(cmdlanflag == Flag::it ? "flags/it" : "flags/uk");
  for (std::size_t n = 0; n < palette_.size(); ++n) {
    const Box& box = colore(static_cast<int>(n));
    palette_[n]->setText(QString::fromStdString(box.text));
    palette_[n]->setpaint(screencolour(box.back));
  }
}

void Panel::mirrorring() {
  for (std::size_t digit = 0; digit < ring_.size(); ++digit) {
    const Offset offset = ringoffsets[digit];
    ring_[digit]->move(cellplace(cellacliccata) + QPoint(offset.x, offset.y));
    ring_[digit]->mirror(Picture1(static_cast<int>(digit)));
  }
}

}  // namespace gradino
