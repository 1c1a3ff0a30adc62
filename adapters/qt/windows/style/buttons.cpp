// Buttons, and the marks of check boxes and radio buttons.
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "adapters/qt/windows/style/colours.h"
#include "adapters/qt/windows/style/parts.h"
#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::style {
namespace {

bool Has(const QStyleOption& option, QStyle::StateFlag flag) { return option.state.testFlag(flag); }

struct MarkColours {
  QColor edge;
  QColor fill;
  QColor sign;
};

MarkColours ColoursOf(const QStyleOption& option, bool set) {
  const bool enabled = Has(option, QStyle::State_Enabled);
  const QColor outline = Outline(option.palette, enabled);
  const QColor accent = enabled ? option.palette.color(QPalette::Highlight) : outline;
  QColor fill = set ? accent : option.palette.color(QPalette::Base);
  if (enabled && (Has(option, QStyle::State_MouseOver) || Has(option, QStyle::State_Sunken)))
    fill = widgets::Mixed(fill, option.palette.color(QPalette::Text), 0.12);
  return {
      set ? accent : outline, fill,
      option.palette.color(QPalette::Active, set && enabled ? QPalette::HighlightedText : QPalette::Base)};
}

/// The largest square in the middle, clear of the pixels' edges.
QRectF Square(const QRect& box) {
  const double side = std::min(box.width(), box.height()) - 1.0;
  return {QRectF(box).center() - QPointF(side / 2, side / 2), QSizeF(side, side)};
}

}  // namespace

void DrawCheckMark(QPainter& painter, const QStyleOption& option) {
  const bool half = Has(option, QStyle::State_NoChange);
  const bool set = half || Has(option, QStyle::State_On);
  const MarkColours colours = ColoursOf(option, set);
  const QRectF box = Square(option.rect);
  const auto at = [&box](double x, double y) {
    return box.topLeft() + QPointF(x * box.width(), y * box.height());
  };
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(colours.edge);
  painter.setBrush(colours.fill);
  painter.drawRoundedRect(box, 2, 2);
  painter.setPen(QPen(colours.sign, box.width() * 0.15, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  if (half)
    painter.drawLine(at(0.25, 0.5), at(0.75, 0.5));
  else if (set)
    painter.drawPolyline(QPolygonF{at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.28)});
  painter.restore();
}

void DrawRadioMark(QPainter& painter, const QStyleOption& option) {
  const bool set = Has(option, QStyle::State_On);
  const MarkColours colours = ColoursOf(option, set);
  const QRectF box = Square(option.rect);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(colours.edge);
  painter.setBrush(colours.fill);
  painter.drawEllipse(box);
  if (set) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.sign);
    painter.drawEllipse(box.center(), box.width() * 0.2, box.width() * 0.2);
  }
  painter.restore();
}

bool IsFilled(const QStyleOptionButton& option) {
  return option.features.testFlag(QStyleOptionButton::DefaultButton) && Has(option, QStyle::State_Enabled);
}

void DrawButton(QPainter& painter, const QStyleOption& option) {
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  const bool filled = button != nullptr && IsFilled(*button);
  const bool enabled = Has(option, QStyle::State_Enabled);
  const QPalette& palette = option.palette;
  QColor fill = palette.color(filled ? QPalette::Highlight : QPalette::Button);
  const QColor ink = palette.color(QPalette::Active, QPalette::Text);
  if (Has(option, QStyle::State_Sunken) || Has(option, QStyle::State_On))
    fill = widgets::Mixed(fill, filled ? QColor(Qt::black) : ink, 0.2);
  else if (enabled && Has(option, QStyle::State_MouseOver))
    fill = filled ? widgets::Mixed(fill, Qt::black, 0.12) : Hovered(fill, palette);
  // The ring would be lost on the filled one without room between them.
  const double inset = filled && Has(option, QStyle::State_HasFocus) ? kRingWidth + 1.5 : 0.5;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(filled ? fill : Outline(palette, enabled));
  painter.setBrush(fill);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), 3, 3);
  painter.restore();
}

}  // namespace kavr6::style
