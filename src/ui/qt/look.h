// How things look: fonts, colours, artwork.
#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QRect>
#include <QRectF>
#include <QString>

#include "colours.h"

class QWidget;

namespace gradino {

inline const QColor teal{0, 128, 128}, paleyellow{255, 255, 192}, darkblue{0, 0, 128},
    bordergrey{128, 140, 150};

/// Sets style, palette and fonts of the whole program, the same on every desktop. To be called once, before
/// the first window.
void setlook();

/// The screen colour of a colour of the boxes.
QColor screencolour(Colour colour);

/// The contrast of a text with its background: the ratio of their luminances, from 1 to 21.
double contrast(const QColor& text, const QColor& ground);

/// A font of a fixed height, since the layout is in pixels.
QFont pixelfont(const char* family, int height, bool bold = false);

inline constexpr const char *arial = "Arial", *comicsans = "Comic Sans MS", *mssansserif = "MS Sans Serif";

/// Sets the colours of a widget that fills its own background.
void setcolours(QWidget& widget, const QColor& ground, const QColor& text);

/// Draws a frame inside a rectangle.
void drawframe(QPainter& painter, const QRect& place, int width, const QColor& colour);

/// Draws the focus frame: dark and light, so that it is visible on every background.
void drawfocus(QPainter& painter, const QRect& place);

/// Draws a picture of the artwork by its name, such as "light/go"; sharp at every scale of the screen.
void drawart(QPainter& painter, const QRectF& place, const QString& name);

/// The same as an icon.
QIcon articon(const QString& name);

/// The program's own icon.
QIcon programicon();

}  // namespace gradino
