#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "adapters/qt/windows/style/colours.h"
#include "adapters/qt/windows/style/parts.h"

namespace kavr6::style {
namespace {

constexpr double kGroove = 4.0;

/// A slider seen as lying from left to right.
struct Geometry {
  QRectF groove;
  QRectF handle;
  bool upright;
};

void DrawTicks(QPainter& painter, const QStyleOptionSlider& option, const Geometry& slider) {
  constexpr double kTick = 4.0;
  const int step = option.tickInterval > 0 ? option.tickInterval : option.pageStep;
  const int range = option.maximum - option.minimum;
  if (step <= 0 || range <= 0 || option.tickPosition == QSlider::NoTicks || slider.upright) return;
  painter.setPen(Outline(option.palette, option.state.testFlag(QStyle::State_Enabled)));
  const double half = slider.handle.width() / 2;
  const double travel = slider.groove.width() - slider.handle.width();
  for (int value = 0; value <= range; value += step) {
    const double share = static_cast<double>(value) / range;
    const double x = qRound(slider.groove.left() + half + share * travel) + 0.5;
    if (option.tickPosition & QSlider::TicksBelow)
      painter.drawLine(QPointF(x, option.rect.bottom() - kTick), QPointF(x, option.rect.bottom()));
    if (option.tickPosition & QSlider::TicksAbove)
      painter.drawLine(QPointF(x, option.rect.top()), QPointF(x, option.rect.top() + kTick));
  }
}

void DrawGroove(QPainter& painter, const QStyleOptionSlider& option, const Geometry& slider) {
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const QPoint middle = slider.groove.center().toPoint();
  const QRectF line =
      slider.upright ? QRectF(middle.x() - kGroove / 2, slider.groove.top(), kGroove, slider.groove.height())
                     : QRectF(slider.groove.left(), middle.y() - kGroove / 2, slider.groove.width(), kGroove);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Outline(option.palette, enabled));
  painter.drawRoundedRect(line, kGroove / 2, kGroove / 2);
  if (!enabled) return;
  QRectF done = line;
  if (slider.upright)
    done.setTop(slider.handle.center().y());
  else if (option.upsideDown)
    done.setLeft(slider.handle.center().x());
  else
    done.setRight(slider.handle.center().x());
  painter.setBrush(option.palette.color(QPalette::Highlight));
  painter.drawRoundedRect(done, kGroove / 2, kGroove / 2);
}

}  // namespace

void DrawSlider(QPainter& painter, const QStyleOptionSlider& option, const QStyle& style,
                const QWidget* widget) {
  const auto part = [&](QStyle::SubControl control) {
    return QRectF(style.subControlRect(QStyle::CC_Slider, &option, control, widget));
  };
  // Beside ticks the handle would begin outside of the slider.
  const Geometry slider{part(QStyle::SC_SliderGroove), part(QStyle::SC_SliderHandle) & QRectF(option.rect),
                        option.orientation == Qt::Vertical};
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  DrawTicks(painter, option, slider);
  DrawGroove(painter, option, slider);
  painter.setPen(Outline(option.palette, enabled));
  painter.setBrush(option.palette.color(option.state.testFlag(QStyle::State_Sunken) ? QPalette::Midlight
                                                                                    : QPalette::Button));
  painter.drawRoundedRect(slider.handle.adjusted(1.5, 1.5, -1.5, -1.5), 3, 3);
  painter.restore();
  if (enabled && option.state.testFlag(QStyle::State_HasFocus))
    DrawRing(painter, slider.handle, option.palette);
}

}  // namespace kavr6::style
