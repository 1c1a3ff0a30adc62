#include "adapters/qt/windows/widgets/lamp.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "adapters/qt/windows/style/colours.h"

namespace kavr6::widgets {
namespace {

constexpr std::array<const char*, 5> kStateNames{"off", "green", "yellow", "red", "orange"};
constexpr std::array<QRgb, 5> kFills{0, 0xff18a558, 0xfff2b705, 0xffd93025, 0xffe8710a};

void DrawCross(QPainter& painter, const QRectF& box) {
  const QRectF cross =
      box.adjusted(box.width() * 0.25, box.height() * 0.25, -box.width() * 0.25, -box.height() * 0.25);
  painter.setPen(QPen(Qt::white, box.width() * 0.13, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(cross.topLeft(), cross.bottomRight());
  painter.drawLine(cross.topRight(), cross.bottomLeft());
}

}  // namespace

Lamp::Lamp(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setAccessibleDescription(kStateNames.front());
}

void Lamp::setState(int state) {
  state = std::clamp(state, 0, static_cast<int>(kStateNames.size()) - 1);
  if (state == state_) return;
  state_ = state;
  setAccessibleDescription(kStateNames[static_cast<std::size_t>(state)]);
  update();
}

void Lamp::setLines(double lines) {
  lines_ = lines;
  updateGeometry();
}

QSize Lamp::sizeHint() const {
  const int side = std::max(14, qRound(lines_ * fontMetrics().height()));
  return {side, side};
}

QSize Lamp::minimumSizeHint() const {
  constexpr double kLeastLines = 1.2;
  const int side = sizeHint().width();
  return {side, std::min(side, qRound(kLeastLines * fontMetrics().height()))};
}

void Lamp::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = std::min(width(), height()) - 2.0;
  const QRectF box(QPointF((width() - side) / 2, (height() - side) / 2), QSizeF(side, side));
  painter.setPen(QPen(style::Outline(palette()), 1.2));
  if (state_ != 0) painter.setBrush(QColor::fromRgba(kFills[static_cast<std::size_t>(state_)]));
  const QRectF inner = box.adjusted(1, 1, -1, -1);
  switch (state_) {
    case 2:
      painter.drawPolygon(
          QPolygonF{{inner.center().x(), inner.top()}, inner.bottomRight(), inner.bottomLeft()});
      break;
    case 3:
      painter.drawRoundedRect(inner, 2, 2);
      DrawCross(painter, inner);
      break;
    case 4:
      painter.drawPolygon(QPolygonF{{inner.center().x(), inner.top()},
                                    {inner.right(), inner.center().y()},
                                    {inner.center().x(), inner.bottom()},
                                    {inner.left(), inner.center().y()}});
      break;
    default:
      painter.drawEllipse(inner);
  }
}

}  // namespace kavr6::widgets
