// Pictures on scaled screens: drawn in screen pixels, never enlarged. The scale is set from outside, by
// QT_SCALE_FACTOR.
#include <QIcon>
#include <QPainter>
#include <QPushButton>

#include "look.h"
#include "mainwindow.h"
#include "user.h"

using namespace gradino;

class Sharpness : public QObject {
  Q_OBJECT

 private slots:
  void scale();
  void layoutstays();
  void icons_data();
  void icons();
  void pictures_data();
  void pictures();
  void borders();
};

namespace {

double wantedscale() {
  bool ok = false;
  const double factor = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble(&ok);
  return ok ? factor : 1;
}

/// A picture as it should be seen at so many pixels.
QImage drawn(const QString& name, const QSize& pixels, const QSizeF& size, qreal ratio) {
  QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  drawart(painter, QRectF({0, 0}, size), name);
  return image;
}

}  // namespace

void Sharpness::scale() {
  User user;
  QCOMPARE(user.window().devicePixelRatioF(), wantedscale());
}

void Sharpness::layoutstays() {
  User user;
  QCOMPARE(user.find("main")->size(), QSize(491, 530));
  QCOMPARE(user.place("Text1_80"), QRect(360, 401, 41, 41));
}

void Sharpness::icons_data() {
  QTest::addColumn<QString>("button");
  QTest::addColumn<QString>("art");
  QTest::newRow("first") << "Command5"
                         << "library/first";
  QTest::newRow("load") << "Command1"
                        << "library/load";
}
void Sharpness::icons() {
  QFETCH(QString, button);
  QFETCH(QString, art);
  User user;
  user.press("Toolbar2_libreria");
  const QPushButton* pressed = nullptr;
  for (const QWidget* window : QApplication::topLevelWidgets())
    if (window->objectName() == "frmlivello") pressed = window->findChild<QPushButton*>(button);
  QVERIFY(pressed != nullptr);
  const qreal ratio = pressed->devicePixelRatioF();
  const QPixmap pixmap = pressed->icon().pixmap(pressed->iconSize(), ratio);
  QCOMPARE(pixmap.devicePixelRatio(), ratio);
  QCOMPARE(pixmap.size(), pressed->iconSize() * ratio);
  QCOMPARE(pixmap.toImage()
               .convertToFormat(QImage::Format_ARGB32_Premultiplied)
               .pixelColor(pixmap.rect().center()),
           drawn(art, pixmap.size(), pixmap.size(), 1).pixelColor(pixmap.rect().center()));
}

void Sharpness::pictures_data() {
  QTest::addColumn<QString>("button");
  QTest::addColumn<QString>("art");
  QTest::newRow("lamp") << "picstart"
                        << "lamps/verde";
  QTest::newRow("reset") << "Picture2"
                         << "lamps/reset";
}
// A picture that was drawn small and enlarged has additional colours.
void Sharpness::pictures() {
  QFETCH(QString, button);
  QFETCH(QString, art);
  User user;
  const QPixmap grab = user.find(button)->grab();
  QCOMPARE(grab.devicePixelRatio(), wantedscale());
  const QImage seen = grab.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  const QImage expected = drawn(art, seen.size(), user.find(button)->size(), grab.devicePixelRatio());
  int opaque = 0, same = 0;
  for (int y = 0; y < seen.height(); ++y)
    for (int x = 0; x < seen.width(); ++x) {
      if (expected.pixelColor(x, y).alpha() < 255) continue;
      ++opaque;
      const QColor a = seen.pixelColor(x, y), b = expected.pixelColor(x, y);
      const int off = qAbs(a.red() - b.red()) + qAbs(a.green() - b.green()) + qAbs(a.blue() - b.blue());
      same += off < 30 ? 1 : 0;
    }
  QVERIFY(opaque > 100);
  QVERIFY2(same > opaque * 9 / 10, qPrintable(QString("%1 of %2").arg(same).arg(opaque)));
}

// The line around a cell is at its very edge, on all four sides.
void Sharpness::borders() {
  User user;
  const QImage cell = user.find("Text1_40")->grab().toImage();
  const int right = cell.width() - 1, bottom = cell.height() - 1, x = right / 2, y = bottom / 2;
  for (const QPoint& at : {QPoint(0, y), QPoint(right, y), QPoint(x, 0), QPoint(x, bottom)})
    QCOMPARE(cell.pixelColor(at), bordergrey);
}

WINDOW_TESTS(Sharpness)
#include "sharpness.moc"
