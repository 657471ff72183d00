#include "picturebutton.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionToolButton>
#include <utility>

#include "events.h"
#include "look.h"

namespace gradino {
namespace {

constexpr int artheight = 22;                     // the original size
constexpr int smallart = 16, captionheight = 10;  // on a key with a caption

}  // namespace

PictureButton::PictureButton(QWidget* parent, const char* name, Look look, std::function<void()> click)
    : QAbstractButton(parent), look_(look) {
  setObjectName(name);
  setFocusPolicy(Qt::TabFocus);  // a click leaves the focus on the board
  setAttribute(Qt::WA_Hover);
  connect(this, &QAbstractButton::clicked, this, [body = std::move(click)] { onevent(body); });
}

void PictureButton::setart(const QString& name) {
  if (name == art_) return;
  art_ = name;
  update();
}

void PictureButton::setpaint(const QColor& colour) {
  if (colour == paint_) return;
  paint_ = colour;
  update();
}

void PictureButton::mirror(const Control& control) {
  if (shown_ == control) return;
  const QString caption = QString::fromStdString(control.caption), tip = QString::fromStdString(control.tip);
  setText(caption);
  setToolTip(tip);
  setVisible(control.visible);
  setCheckable(control.ticked);  // only the program presses it in, never the click itself
  setChecked(control.ticked);
  update();
  shown_ = control;
}

void PictureButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (look_ == Look::key) {
    paintkey(painter);
  } else if (look_ == Look::paint) {
    paintcolour(painter);
  } else {
    drawart(painter, rect(), art_);
  }
  if (hasFocus() && !captioned()) drawfocus(painter, rect());
}

bool PictureButton::captioned() const {
  return look_ == Look::key && !text().isEmpty();
}

void PictureButton::paintkey(QPainter& painter) {
  QStyleOptionToolButton option;
  option.initFrom(this);
  if (isDown()) option.state |= QStyle::State_Sunken;
  if (isChecked()) option.state |= QStyle::State_On;
  if (isDown() || isChecked() || underMouse())
    style()->drawPrimitive(QStyle::PE_PanelButtonTool, &option, &painter, this);
  if (!captioned()) {
    QRect place(0, 0, qMin(width(), artheight), artheight);
    place.moveCenter(rect().center());
    drawart(painter, place, art_);
    return;
  }
  if (hasFocus()) drawfocus(painter, rect());  // under the caption, which reaches into the frame
  drawart(painter, QRect((width() - smallart) / 2, 0, smallart, smallart), art_);
  painter.setFont(pixelfont(mssansserif, captionheight));
  painter.drawText(QRect(0, smallart - 1, width(), height() - smallart + 1), Qt::AlignCenter, text());
}

void PictureButton::paintcolour(QPainter& painter) {
  painter.fillRect(rect(), paint_);
  drawframe(painter, rect(), 1, isDown() ? QColor(Qt::black) : bordergrey);
  painter.setPen(Qt::black);
  painter.setFont(pixelfont(mssansserif, 13, true));
  painter.drawText(rect(), Qt::AlignCenter, text());
}

}  // namespace gradino
