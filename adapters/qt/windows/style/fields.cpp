// Ring, fields and drop-down lists.
#include <QPainter>
#include <QStyleOption>

#include "adapters/qt/windows/style/colours.h"
#include "adapters/qt/windows/style/parts.h"

namespace kavr6::style {
void DrawChevron(QPainter& painter, const QRectF& box, const QColor& ink, double turn, double halfWidth) {
  painter.save();
  painter.translate(box.center());
  painter.rotate(turn);
  painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(
      QPolygonF{{-halfWidth, -halfWidth / 2}, {0, halfWidth / 2}, {halfWidth, -halfWidth / 2}});
  painter.restore();
}

void DrawRing(QPainter& painter, const QRectF& box, const QPalette& palette, double corner) {
  const double inset = kRingWidth / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Ring(palette), kRingWidth));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(box.adjusted(inset, inset, -inset, -inset), corner, corner);
  painter.restore();
}

void DrawField(QPainter& painter, const QStyleOption& option, bool filled) {
  const QRectF edge = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Outline(option.palette, enabled));
  painter.setBrush(filled ? option.palette.brush(QPalette::Base) : QBrush(Qt::NoBrush));
  painter.drawRoundedRect(edge, 2, 2);
  painter.restore();
  if (enabled && option.state.testFlag(QStyle::State_HasFocus))
    DrawRing(painter, option.rect, option.palette, 2);
}

void DrawGroupFrame(QPainter& painter, const QStyleOption& option, int top) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(option.palette.color(QPalette::Mid));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, top + 0.5, -0.5, -0.5), kCorner, kCorner);
  painter.restore();
}

bool DrawDivider(QPainter& painter, const QStyleOptionFrame& option) {
  const bool lying = option.frameShape == QFrame::HLine;
  if (!lying && option.frameShape != QFrame::VLine) return false;
  const QRect& box = option.rect;
  const QPoint middle = box.center();
  painter.fillRect(
      lying ? QRect(box.left(), middle.y(), box.width(), 1) : QRect(middle.x(), box.top(), 1, box.height()),
      option.palette.brush(QPalette::Mid));
  return true;
}

void DrawComboBox(QPainter& painter, const QStyleOptionComboBox& option, const QStyle& style,
                  const QWidget* widget) {
  const QPalette& palette = option.palette;
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  QColor fill = palette.color(option.editable ? QPalette::Base : QPalette::Button);
  if (enabled && option.state.testFlag(QStyle::State_MouseOver)) fill = Hovered(fill, palette);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Outline(palette, enabled));
  painter.setBrush(fill);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
  if (option.subControls.testFlag(QStyle::SC_ComboBoxArrow))
    DrawChevron(painter, style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, widget),
                palette.color(QPalette::ButtonText), 0.0, 4.0);
  painter.restore();
  if (enabled && option.state.testFlag(QStyle::State_HasFocus)) DrawRing(painter, option.rect, palette, 3);
}

}  // namespace kavr6::style
