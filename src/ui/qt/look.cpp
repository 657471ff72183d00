#include "look.h"

#include <QApplication>
#include <QGuiApplication>
#include <QHash>
#include <QIconEngine>
#include <QList>
#include <QPalette>
#include <QPixmap>
#include <QStyle>
#include <QStyleFactory>
#include <QSvgRenderer>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>

// The artwork is in a static library and has to be initialised outside of any namespace.
static void loadart() {
  Q_INIT_RESOURCE(art);
}

namespace gradino {

void setlook() {
  loadart();
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  // The boxes are white on every desktop, so their text has to be dark.
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

namespace {

/// Relative luminance, from 0, black, to 1, white.
double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

double contrast(const QColor& text, const QColor& ground) {
  const auto [dark, light] = std::minmax({luminance(text), luminance(ground)});
  return (light + 0.05) / (dark + 0.05);
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

// Filled, not drawn with a pen: half of the pen's line would be outside when a pixel of the layout is more
// than one of the screen.
void drawframe(QPainter& painter, const QRect& place, int width, const QColor& colour) {
  painter.fillRect(place.x(), place.y(), place.width(), width, colour);
  painter.fillRect(place.x(), place.bottom() + 1 - width, place.width(), width, colour);
  painter.fillRect(place.x(), place.y(), width, place.height(), colour);
  painter.fillRect(place.right() + 1 - width, place.y(), width, place.height(), colour);
}

void drawfocus(QPainter& painter, const QRect& place) {
  drawframe(painter, place, 2, darkblue);
  drawframe(painter, place.adjusted(2, 2, -2, -2), 1, Qt::white);
}

void drawart(QPainter& painter, const QRectF& place, const QString& name) {
  static QHash<QString, QSvgRenderer*> pictures;
  QSvgRenderer*& picture = pictures[name];
  if (picture == nullptr) picture = new QSvgRenderer(":/art/" + name + ".svg", QCoreApplication::instance());
  picture->render(&painter, place);
}

namespace {

/// Draws at exactly the requested size, so that no scale of the screen blurs it.
class ArtEngine : public QIconEngine {
 public:
  explicit ArtEngine(QString name) : name_(std::move(name)) {}
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
    drawart(*painter, rect, name_);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, pixmap.rect(), mode, state);
    return pixmap;
  }
  // The desktop gets the icon of a window in all of them.
  QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
    return {{16, 16}, {32, 32}, {48, 48}, {64, 64}, {128, 128}};
  }
  QIconEngine* clone() const override { return new ArtEngine(name_); }

 private:
  QString name_;
};

}  // namespace

QIcon articon(const QString& name) {
  return QIcon(new ArtEngine(name));
}

QIcon programicon() {
  return articon("gradino");
}

}  // namespace gradino
