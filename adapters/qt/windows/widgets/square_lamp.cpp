#include "adapters/qt/windows/widgets/square_lamp.h"

#include <QPainter>
#include <algorithm>

#include "adapters/qt/windows/style/colours.h"

namespace kavr6::widgets {
namespace {

constexpr QRgb kLit = 0xffff0000;
constexpr double kUnlitShare = 0.55;  // of the side

QRectF SquareAround(const QPointF& centre, double side) {
  return {centre.x() - side / 2, centre.y() - side / 2, side, side};
}

}  // namespace

void SquareLamp::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QPointF centre = QRectF(rect()).center();
  const double side = std::min(width(), height()) - 2.0;
  painter.setPen(QPen(style::Outline(palette()), 1.0));
  painter.setBrush(state() == 0 ? palette().color(QPalette::Mid) : QColor::fromRgba(kLit));
  painter.drawRect(SquareAround(centre, state() == 0 ? side * kUnlitShare : side));
  if (state() == 0) return;
  const QRectF cross = SquareAround(centre, side * 0.5);
  painter.setPen(QPen(Qt::white, side * 0.13, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(cross.topLeft(), cross.bottomRight());
  painter.drawLine(cross.topRight(), cross.bottomLeft());
}

}  // namespace kavr6::widgets
