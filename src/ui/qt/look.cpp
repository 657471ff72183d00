#include "look.h"

#include <QApplication>
#include <QGuiApplication>
#include <QHash>
#include <QPalette>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>
#include <QSvgRenderer>
#include <QWidget>

// The artwork is linked in from a library, which has to be asked for outside of any namespace.
static void loadart() {
  Q_INIT_RESOURCE(art);
}

namespace gradino {

void setlook() {
  loadart();
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  // The boxes are white on every desktop, so what is written in them has to stay dark.
  QApplication::setPalette(QApplication::style()->standardPalette());
  QFont::insertSubstitutions(mssansserif, {"Microsoft Sans Serif", "Arial", "Liberation Sans"});
  QFont::insertSubstitutions(comicsans, {"Comic Neue"});
  QFont::insertSubstitutions(arial, {"Liberation Sans"});
  QApplication::setFont(pixelfont(mssansserif, 13));
  QApplication::setWindowIcon(programicon());
}

QColor screencolour(Colour colour) {
  if (colour == textcolor) return QGuiApplication::palette().color(QPalette::Text);
  return QColor(colour & 0xff, colour >> 8 & 0xff, colour >> 16 & 0xff);
}

QFont pixelfont(const char* family, int height, bool bold) {
  QFont font(family);
  font.setPixelSize(height);
  font.setBold(bold);
  return font;
}

void setcolours(QWidget& widget, const QColor& ground, const QColor& text) {
  QPalette palette = widget.palette();
  for (const auto role : {QPalette::Base, QPalette::Window}) palette.setColor(role, ground);
  for (const auto role : {QPalette::Text, QPalette::WindowText}) palette.setColor(role, text);
  widget.setPalette(palette);
}

void drawart(QPainter& painter, const QRectF& place, const QString& name) {
  static QHash<QString, QSvgRenderer*> pictures;
  QSvgRenderer*& picture = pictures[name];
  if (picture == nullptr) picture = new QSvgRenderer(":/art/" + name + ".svg", QCoreApplication::instance());
  picture->render(&painter, place);
}

QIcon articon(const QString& name) {
  QIcon icon;
  for (const int size : {16, 32, 48, 64, 128}) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawart(painter, pixmap.rect(), name);
    painter.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

QIcon programicon() {
  return articon("gradino");
}

}  // namespace gradino
