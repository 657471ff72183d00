#include "cellboxes.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QTextOption>

#include "editing.h"
#include "events.h"
#include "grid.h"
#include "look.h"
#include "menu.h"
#include "screenreader.h"
#include "tables.h"

namespace gradino {
namespace {

// clang-format off
constexpr int columnplaces[] = {24, 65, 106, 151, 192, 233, 278, 319, 360};
constexpr int rowplaces[]    = {66, 107, 147, 192, 233, 274, 319, 360, 401};  // the third one pixel higher
// clang-format on

constexpr int markwidth = 11, markheight = 13, markpitch = 12, markinset = 2;

/// The template of the pencil marks is outside the client area.
constexpr QPoint templateplace{498, 492};

QPoint markplace(int index) {
  if (index == 0) return templateplace;
  const int k = index % 10 - 1;
  return cellplace(index / 10) + QPoint(k % 3, k / 3) * markpitch + QPoint(markinset, markinset);
}

/// Windows key codes, as far as they are distinguished.
int keycode(int key) {
  switch (key) {
    case Qt::Key_Left:
      return 37;
    case Qt::Key_Up:
      return 38;
    case Qt::Key_Right:
      return 39;
    case Qt::Key_Down:
      return 40;
    default:
      return 0;
  }
}

/// A left click: the button was pressed and released on the widget.
bool clickends(const QWidget& widget, const QMouseEvent& event) {
  return event.button() == Qt::LeftButton && widget.rect().contains(event.position().toPoint());
}

void drawborder(QWidget& widget, bool focus) {
  QPainter painter(&widget);
  if (focus) return drawfocus(painter, widget.rect());
  drawframe(painter, widget.rect(), 1, bordergrey);
}

constexpr double enough = 3;  ///< the contrast needed for text of the size of a digit

/// The colour of the text on its background: a red digit would be invisible in a red cell, and hard to see in
/// a green one.
QColor readable(const gradino::Box& box) {
  const QColor text = screencolour(box.fore);
  return contrast(text, screencolour(box.back)) < enough ? text.darker(250) : text;
}

bool allcovered() {
  for (int cell = 0; cell < 81; ++cell)
    if (!frmmain::Text1(cell).visible) return false;
  return true;
}

}  // namespace

QPoint cellplace(int cell) {
  return {columnplaces[cell % 9], rowplaces[cell / 9]};
}

DigitBox::DigitBox(QWidget* parent, int cell) : QLineEdit(parent), cell_(cell) {
  setObjectName(QString("Text1_%1").arg(cell));
  nameby(*this, [cell] { return spokencell(cell); });
  setGeometry(QRect(cellplace(cell), QSize(cellsize, cellsize)));
  setFrame(false);
  setAlignment(Qt::AlignCenter);
  setFont(pixelfont(arial, 27, true));
  setMouseTracking(true);
  setFocusPolicy(Qt::ClickFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);  // what it covers need not be painted
  connect(this, &QLineEdit::textChanged, this, &DigitBox::taketext);
}

// Not all text is typed: a screen reader can put text into any box, even into a locked one, which keeps what
// it holds.
void DigitBox::taketext() {
  if (isReadOnly()) return showtext(frmmain::Text1(cell_).text);
  onevent([this, typed = text().toStdString()] { Text1_Typed(cell_, typed); });
}

void DigitBox::showtext(const std::string& shown) {
  const QString text = QString::fromStdString(shown);
  const QSignalBlocker quiet(this);
  if (text != this->text()) setText(text);
}

void DigitBox::mirror(const gradino::Box& box, bool reachable) {
  setghost(!box.visible);
  // The Tab key always reaches exactly one cell, and leads out of the board from every cell.
  if (const auto policy = reachable ? Qt::StrongFocus : Qt::ClickFocus; policy != focusPolicy())
    setFocusPolicy(policy);
  const bool there = box.visible || reachable || window()->focusWidget() == this;
  if (there == isHidden()) setVisible(there);
  if (shown_ == box) return;
  showtext(box.text);
  setReadOnly(box.locked);
  setcolours(*this, screencolour(box.back), readable(box));
  shown_ = box;
}

void DigitBox::setghost(bool ghost) {
  if (ghost == ghost_) return;
  ghost_ = ghost;
  setAttribute(Qt::WA_TransparentForMouseEvents, ghost);
  setAttribute(Qt::WA_OpaquePaintEvent, !ghost);
  update();
}

// A key first moves the focus; its character then goes to the box that has the focus. An arrow key has no
// character: the caret is put after the digit of the new cell, whichever way it was reached.
bool DigitBox::event(QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QLineEdit::event(event);
  auto* pressed = static_cast<QKeyEvent*>(event);
  const int code = keycode(pressed->key());
  onevent([this, code] { Text1_KeyDown(cell_, code); });
  auto* target = dynamic_cast<DigitBox*>(window()->focusWidget());
  if (target == nullptr ||
      pressed->modifiers().testFlag(Qt::AltModifier)) {  // Alt opens a menu, it doesn't type
    pressed->ignore();
    return true;
  }
  if (code == 0) return target->QLineEdit::event(event);
  target->end(false);
  return true;
}

void DigitBox::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  if (clickends(*this, *event)) onevent([this] { Text1_Click(cell_); });
}

void DigitBox::mouseMoveEvent(QMouseEvent* event) {
  QLineEdit::mouseMoveEvent(event);
  onevent([this] { cell_MouseMove(cell_); });
}

void DigitBox::paintEvent(QPaintEvent* event) {
  if (!ghost_) QLineEdit::paintEvent(event);
  if (!ghost_ || hasFocus()) drawborder(*this, hasFocus());
}

MarksBox::MarksBox(QWidget* parent, int cell) : QPlainTextEdit(parent), cell_(cell) {
  setObjectName(QString("Text2_%1").arg(cell));
  nameby(*this, [cell] { return spokenground(cell); });
  setGeometry(QRect(cellplace(cell), QSize(cellsize, cellsize)));
  setFrameShape(QFrame::NoFrame);
  setFont(pixelfont(mssansserif, 11));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWordWrapMode(QTextOption::WrapAnywhere);
  QTextOption option = document()->defaultTextOption();
  option.setAlignment(Qt::AlignHCenter);
  document()->setDefaultTextOption(option);
  setTabChangesFocus(true);
  setReadOnly(true);
  setFocusPolicy(Qt::NoFocus);
  viewport()->setMouseTracking(true);
  viewport()->setCursor(Qt::ArrowCursor);
  connect(this, &QPlainTextEdit::textChanged, this, &MarksBox::taketext);
}

void MarksBox::taketext() {
  if (isReadOnly()) return showtext(frmmain::Text2(cell_).text);
  onevent([this, typed = toPlainText().toStdString()] { Text2_Typed(cell_, typed); });
}

void MarksBox::showtext(const std::string& shown) {
  const QString text = QString::fromStdString(shown);
  const QSignalBlocker quiet(this);
  if (text != toPlainText()) setPlainText(text);
}

void MarksBox::mirror(const gradino::Box& box, bool editable, bool reachable) {
  const auto policy = !editable ? Qt::NoFocus : reachable ? Qt::StrongFocus : Qt::ClickFocus;
  if (policy != focusPolicy()) setFocusPolicy(policy);
  if (editable == isReadOnly()) {
    setReadOnly(!editable);
    viewport()->setCursor(editable ? Qt::IBeamCursor : Qt::ArrowCursor);
  }
  if (shown_ == box) return;
  showtext(box.text);
  setcolours(*this, screencolour(box.back), readable(box));
  shown_ = box;
}

// The Tab key reaches the marks like a click on one of them, which opens them for editing.
void MarksBox::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  viewport()->update();  // the toolkit repaints only the caret
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
    onevent([this] { candidate_Click(cell_ * 10 + 1); });
}

void MarksBox::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  viewport()->update();
}

void MarksBox::mouseReleaseEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseReleaseEvent(event);
  if (clickends(*this, *event)) onevent([this] { Text2_Click(cell_); });
}

void MarksBox::mouseMoveEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseMoveEvent(event);
  onevent([this] { cell_MouseMove(cell_); });
}

void MarksBox::paintEvent(QPaintEvent* event) {
  QPlainTextEdit::paintEvent(event);
  drawborder(*viewport(), hasFocus());
}

CandidateBox::CandidateBox(QWidget* parent, int index) : QLabel(parent), index_(index) {
  setObjectName(QString("candidate_%1").arg(index));
  setGeometry(QRect(markplace(index), QSize(markwidth, markheight)));
  setAlignment(Qt::AlignCenter);
  setTextFormat(Qt::PlainText);
  setAutoFillBackground(true);
}

void CandidateBox::mirror(const gradino::Box& box) {
  if (shown_ == box) return;
  setText(QString::fromStdString(box.text));
  setcolours(*this, screencolour(box.back), readable(box));
  setVisible(box.visible);
  shown_ = box;
}

void CandidateBox::mouseReleaseEvent(QMouseEvent* event) {
  if (clickends(*this, *event)) click();
}

void CandidateBox::click() {
  onevent([this] { candidate_Click(index_); });
}

CellBoxes::CellBoxes(QWidget* client) {
  for (std::size_t cell = 0; cell < 81; ++cell) digits_[cell] = new DigitBox(client, static_cast<int>(cell));
}

// Most boxes of the window, none of which can be seen or reached while the digits cover them.
void CellBoxes::addcovered() {
  if (candidates_[0] != nullptr) return;
  QWidget* client = digits_[0]->parentWidget();
  const QFont markfont = pixelfont(mssansserif, 11);
  candidates_[0] = new CandidateBox(client, 0);
  candidates_[0]->stackUnder(digits_[0]);
  for (std::size_t cell = 0; cell < 81; ++cell) {
    const int number = static_cast<int>(cell);
    marks_[cell] = new MarksBox(client, number);
    marks_[cell]->stackUnder(digits_[cell]);
    marks_[cell]->show();
    for (std::size_t k = 1; k <= 9; ++k) {
      auto* candidate = new CandidateBox(client, number * 10 + static_cast<int>(k));
      candidate->setFont(markfont);
      candidate->stackUnder(digits_[cell]);
      candidates_[cell * 10 + k] = candidate;
    }
  }
}

void CellBoxes::mirror() {
  const bool editable = modificacandidati || frmmain::Toolbar1::modifica.ticked;
  if (editable || readerlistens() || !allcovered()) addcovered();
  if (!editable) leavemarks();
  movefocus();
  for (std::size_t cell = 0; cell < 81; ++cell) {
    const int number = static_cast<int>(cell);
    const bool reachable = number == navcell && !frmmain::Text1(number).visible;
    if (marks_[cell] != nullptr) marks_[cell]->mirror(frmmain::Text2(number), editable, reachable);
    // The toolkit orders only what the Tab key can reach.
    if (editable && reachable) QWidget::setTabOrder(digits_[cell], marks_[cell]);
    digits_[cell]->mirror(frmmain::Text1(number), number == navcell);
  }
  for (std::size_t index = 0; index < candidates_.size(); ++index)
    if (candidates_[index] != nullptr)
      candidates_[index]->mirror(frmmain::candidate(static_cast<int>(index)));
}

// Marks that can no longer be edited take no keys: the next key is for the board.
void CellBoxes::leavemarks() const {
  using frmmain::Focus;
  const auto* marks = dynamic_cast<MarksBox*>(digits_[0]->window()->focusWidget());
  if (marks != nullptr && frmmain::focusrequest.on == Focus::On::nothing)
    frmmain::focusrequest = {.on = Focus::On::text1, .cell = navcell};
}

void CellBoxes::movefocus() {
  using frmmain::Focus;
  const Focus request = frmmain::focusrequest;
  frmmain::focusrequest = {};
  if (request.on == Focus::On::nothing) return;
  QWidget* target = digits_.at(static_cast<std::size_t>(request.cell));
  if (request.on == Focus::On::text2) target = marks_.at(static_cast<std::size_t>(request.cell));
  target->show();
  target->setFocus(Qt::OtherFocusReason);
}

}  // namespace gradino
