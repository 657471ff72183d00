// Everything that is clicked and shows a picture: toolbar keys, traffic light, ring, lamps, flag, palette.
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QString>
#include <functional>
#include <optional>

#include "boxes.h"

namespace gradino {

class PictureButton : public QAbstractButton {
 public:
  enum class Look {
    picture,  ///< the picture alone
    key,      ///< a key, raised under the pointer, with a caption below the picture
    paint,    ///< filled with a colour, a caption on it
  };

  PictureButton(QWidget* parent, const char* name, Look look, std::function<void()> click);

  void setart(const QString& name);
  void setpaint(const QColor& colour);
  void mirror(const Control& control);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void nextCheckState() override {}  // only the program presses it in, never the click itself

 private:
  bool captioned() const;
  void paintkey(QPainter& painter);
  void paintcolour(QPainter& painter);

  Look look_;
  QString art_;
  QColor paint_;
  std::optional<Control> shown_;
};

}  // namespace gradino
