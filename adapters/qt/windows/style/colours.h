// The program's two palettes, light and dark, and what is worked out from them.
#pragma once

#include <QColor>
#include <QPalette>

namespace kavr6::style {

enum class Scheme { Light, Dark };

/// Dark where the palette's text is lighter than what it stands on.
Scheme SchemeOf(const QPalette& palette);
/// Every colour of the program. Texts have at least 4.5 : 1 on what they stand on, outlines and rings 3 : 1
/// to what is beside them.
QPalette PaletteOf(Scheme scheme);

/// What fields, buttons and marks are drawn with, paler when they are off.
QColor Outline(const QPalette& palette, bool enabled = true);
/// Of the ring around what has the focus; links have it too.
QColor Ring(const QPalette& palette);
/// Of notes and hints: weaker than the text, and still to be read by weak eyes.
QColor NoteInk(const QColor& ink, const QColor& ground);
/// What a control is filled with below the mouse.
QColor Hovered(const QColor& fill, const QPalette& palette);
/// Behind the selected row of a list that has not got the focus. It carries the ordinary text.
QColor QuietSelection(const QPalette& palette);

/// From 1 (the same) to 21 (black and white), of the relative luminances.
double Contrast(const QColor& a, const QColor& b);

}  // namespace kavr6::style
