#include "smallwindows.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QTextBlock>
#include <QTextCursor>
#include <QVBoxLayout>
#include <utility>

#include "boxes.h"
#include "events.h"
#include "host.h"
#include "librarywindow.h"
#include "look.h"
#include "menu.h"
#include "replay.h"
#include "screenreader.h"

namespace gradino {
namespace {

// As wide as the longest title in a large font of the desktop, because the title says what to do.
constexpr QSize activitysize{560, 420}, logsize{560, 300};
constexpr QSize generatorsize{260, 300};
constexpr QSize leasttext{360, 160};  ///< for a text that is still easy to read
constexpr int listedlines = 1000;     ///< of the generator's list: a run lasts for hours

/// The text of the log, which reports the position of a double click, or of the caret at the Return key.
class LogText : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    QPlainTextEdit::mouseDoubleClickEvent(event);
    const std::size_t caret = datacaret();
    if (event->button() == Qt::LeftButton) onevent([caret] { Text3_DblClick(caret); });
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
      return QPlainTextEdit::keyPressEvent(event);
    const std::size_t caret = datacaret();
    onevent([caret] { Text3_Return(caret); });
  }

 private:
  /// The position of the caret in bytes of the text of the log, whose lines end with two characters and not
  /// one.
  std::size_t datacaret() const {
    const QString before = toPlainText().left(textCursor().selectionStart());
    return static_cast<std::size_t>(before.toUtf8().size() + before.count('\n'));
  }
};

/// A read-only text that fills its window.
void filltext(QWidget& window, QPlainTextEdit& text) {
  text.setObjectName("Text3");
  text.setReadOnly(true);
  text.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text.setFont(pixelfont(arial, 14));
  auto* layout = new QVBoxLayout(&window);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(&text);
}

void settitle(QWidget& window, const std::string& caption) {
  const QString title = QString::fromStdString(caption);
  if (window.windowTitle() != title) window.setWindowTitle(title);
}

void namewindow(QWidget& window, const std::string& caption, QPlainTextEdit& text, const Box& box) {
  nameby(window, [&caption] { return spokenwindow(caption); });
  nameby(text, [&box] { return spoken(box); });
}

/// To the right of the main window, below the place of the explanations.
QPoint belowexplanations() {
  return {frmmain::left + frmmain::width, frmmain::top + activitysize.height() + unseenframe.height()};
}

QRect roomonscreen(const QWidget& window) {
  const QScreen* screen = QGuiApplication::screenAt({frmmain::left + frmmain::width / 2, frmmain::top});
  return (screen != nullptr ? screen : window.screen())->availableGeometry();
}

}  // namespace

QSize roombeside() {
  return QSize(qMax(activitysize.width(), librarysize.width()), activitysize.height() + logsize.height()) +
         unseenframe + QSize(0, unseenframe.height());
}

void placebeside(QWidget& window, const QPoint& wanted, const QSize& least) {
  const QRect room = roomonscreen(window);
  const QSize frame = (window.frameGeometry().size() - window.size()).expandedTo(unseenframe);
  const QSize left(room.right() + 1 - wanted.x(), room.bottom() + 1 - wanted.y());
  const QSize whole = window.size() + frame;
  const bool otherside = whole.width() > left.width() && frmmain::left - whole.width() >= room.left();
  const QSize size((otherside ? whole : whole.boundedTo(left)).width(), whole.boundedTo(left).height());
  window.resize(size.expandedTo(least + frame) - frame);

  const QSize taken = window.size() + frame;
  int x = otherside ? frmmain::left - taken.width() : wanted.x(), y = wanted.y();
  if (!otherside && taken.width() > left.width()) {
    x = room.right() + 1 - taken.width();
    y = qMax(y, frmmain::top + frmmain::head);
  }
  window.move(qMax(room.left(), x), qMax(room.top(), qMin(y, room.bottom() + 1 - taken.height())));
}

LogWindow::LogWindow() : text_(new LogText(this)) {
  setObjectName("Frmlog");
  filltext(*this, *text_);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  namewindow(*this, Frmlog::caption, *text_, Frmlog::Text3);
  resize(logsize);
}

void LogWindow::mirror() {
  settitle(*this, Frmlog::caption);
  if (shown_ != Frmlog::Text3.text) {
    text_->setPlainText(QString::fromStdString(Frmlog::Text3.text));
    shown_ = Frmlog::Text3.text;
  }
  if (Frmlog::visible == isVisible()) return;
  if (!std::exchange(placed_, true)) placebeside(*this, belowexplanations(), leasttext);
  setVisible(Frmlog::visible);
}

// The window is only hidden: the log stays, and the menu entry shows it again.
void LogWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  onevent([] { Frmlog::visible = frmmain::mnuactivity.ticked = false; });
}

ActivityWindow::ActivityWindow() : text_(new QPlainTextEdit(this)) {
  setObjectName("frmactivity");
  filltext(*this, *text_);
  setAttribute(Qt::WA_ShowWithoutActivating);
  namewindow(*this, frmactivity::caption, *text_, frmactivity::Text3);
  resize(activitysize);
}

void ActivityWindow::mirror() {
  settitle(*this, frmactivity::caption);
  // The continuous generator empties the text at each try and fills it at once, so the last text stays.
  const bool between = unattended && frmactivity::Text3.text.empty();
  if (!between && shown_ != frmactivity::Text3.text) {
    text_->setPlainText(QString::fromStdString(frmactivity::Text3.text));
    shown_ = frmactivity::Text3.text;
  }
  if (frmactivity::visible && (!frmactivity::placed || !isVisible())) place();
  frmactivity::placed = true;
  if (frmactivity::visible == isVisible()) return;
  setVisible(frmactivity::visible);
}

// The continuous generator shows the window although no explanation has placed it yet.
void ActivityWindow::place() {
  const bool everplaced = frmactivity::left != 0 || frmactivity::top != 0;
  const QPoint beside(frmmain::left + frmmain::width, frmmain::top);
  placebeside(*this, everplaced ? QPoint(frmactivity::left, frmactivity::top) : beside, leasttext);
}

void ActivityWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  onevent([] { frmactivity::visible = false; });
}

GeneratorWindow::GeneratorWindow() : text_(new QPlainTextEdit(this)) {
  setObjectName("frmgeneratore");
  filltext(*this, *text_);
  setAttribute(Qt::WA_ShowWithoutActivating);
  namewindow(*this, frmgeneratore::caption, *text_, frmgeneratore::Text1);
  resize(generatorsize);
}

void GeneratorWindow::mirror() {
  settitle(*this, frmgeneratore::caption);
  if (shown_.size() != frmgeneratore::Text1.text.size()) showlist();
  if (frmgeneratore::visible == isVisible()) return;
  placebeside(*this, place(), {generatorsize.width(), leasttext.height()});
  setVisible(frmgeneratore::visible);
}

// Beside the explanations, or below them if the screen is too narrow for three windows in a row.
QPoint GeneratorWindow::place() const {
  const int besideboth = frmmain::left + frmmain::width + activitysize.width() + unseenframe.width();
  const int end = besideboth + generatorsize.width() + unseenframe.width();
  if (end > roomonscreen(*this).right() + 1) return belowexplanations();
  return {besideboth, frmmain::top};
}

// The list only grows at its top, or starts again.
void GeneratorWindow::showlist() {
  const std::string& text = frmgeneratore::Text1.text;
  if (!text.ends_with(shown_)) {
    text_->clear();
    shown_.clear();
  }
  QTextCursor cursor(text_->document());
  cursor.insertText(QString::fromStdString(text.substr(0, text.size() - shown_.size())));
  if (text_->blockCount() > listedlines) {
    cursor.setPosition(text_->document()->findBlockByNumber(listedlines).position());
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
  }
  shown_ = text;
}

void GeneratorWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  onevent([] { frmgeneratore::visible = false; });
}

}  // namespace gradino
