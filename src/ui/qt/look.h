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

/// Style, palette and fonts of the whole program, the same on every desktop. Once, before the first window.
void setlook();

/// A colour of the boxes on the screen.
QColor screencolour(Colour colour);

/// How well a text stands out on its ground, from 1, not at all, to 21: the ratio of their luminances.
double contrast(const QColor& text, const QColor& ground);

/// A font that stands at a fixed height: the layout is in pixels.
QFont pixelfont(const char* family, int height, bool bold = false);

inline constexpr const char *arial = "Arial", *comicsans = "Comic Sans MS", *mssansserif = "MS Sans Serif";

/// Gives a widget that fills its own ground these colours.
void setcolours(QWidget& widget, const QColor& ground, const QColor& text);

/// Draws a frame inside a place.
void drawframe(QPainter& painter, const QRect& place, int width, const QColor& colour);

/// Draws the frame of what has the focus: dark and light, to be seen on every ground.
void drawfocus(QPainter& painter, const QRect& place);

/// Draws a picture of the artwork by its name, as "light/go"; sharp at every scale of the screen.
void drawart(QPainter& painter, const QRectF& place, const QString& name);

/// The same as an icon.
QIcon articon(const QString& name);

/// The program's own icon.
QIcon programicon();

}  // namespace gradino
