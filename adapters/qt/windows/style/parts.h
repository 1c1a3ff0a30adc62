// What the program draws of its own of the toolkit's controls.
#pragma once

#include <QRectF>

class QColor;
class QPainter;
class QPalette;
class QStyle;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionFrame;
class QStyleOptionSlider;
class QWidget;

namespace kavr6::style {

constexpr double kRingWidth = 2.0;
constexpr double kCorner = 4.0;

/// The sign of the focus, the same on every kind of control: just inside of `box`.
void DrawRing(QPainter& painter, const QRectF& box, const QPalette& palette, double corner = kCorner);
/// Ground and edge of a field, list or text area; the edge is the ring when it has the focus.
void DrawField(QPainter& painter, const QStyleOption& option, bool filled);

/// A small angle in the middle of `box` that points down, turned by so many degrees with the clock.
void DrawChevron(QPainter& painter, const QRectF& box, const QColor& ink, double turn, double halfWidth);

/// Quiet as a divider; `top`: the height that the title has above it.
void DrawGroupFrame(QPainter& painter, const QStyleOption& option, int top);
/// A line between parts of a window is quieter than the edges of controls. False for any other frame.
bool DrawDivider(QPainter& painter, const QStyleOptionFrame& option);

void DrawCheckMark(QPainter& painter, const QStyleOption& option);
void DrawRadioMark(QPainter& painter, const QStyleOption& option);
/// The button that Enter presses is filled with the colour of selections; its words are then on that.
void DrawButton(QPainter& painter, const QStyleOption& option);
bool IsFilled(const QStyleOptionButton& option);
/// Without the words of the selected row.
void DrawComboBox(QPainter& painter, const QStyleOptionComboBox& option, const QStyle& style,
                  const QWidget* widget);
void DrawScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QStyle& style,
                   const QWidget* widget);
void DrawSlider(QPainter& painter, const QStyleOptionSlider& option, const QStyle& style,
                const QWidget* widget);

}  // namespace kavr6::style
