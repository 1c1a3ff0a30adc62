#include "adapters/qt/windows/widgets/percent_panel.h"

#include <QPainter>

#include "adapters/qt/windows/style/colours.h"
#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {

PercentPanel::PercentPanel(QWidget* parent) : QProgressBar(parent), colour_(0, 192, 0) { setRange(0, 100); }

void PercentPanel::setPercent(int percent) {
  setValue(percent);
  update();
}

void PercentPanel::setColour(const QColor& colour) {
  colour_ = colour;
  update();
}

QSize PercentPanel::sizeHint() const { return {120, fontMetrics().height() + 2}; }

QSize PercentPanel::minimumSizeHint() const { return {60, fontMetrics().height() + 2}; }

/// Nothing is under way: a groove, so that it is not taken for a field.
void PercentPanel::PaintRest(QPainter& painter) const {
  constexpr double kThickness = 3.0;
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Mid));
  const QRectF groove(0, height() / 2.0 - kThickness / 2, width(), kThickness);
  painter.drawRoundedRect(groove, kThickness / 2, kThickness / 2);
}

void PercentPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ground = palette().color(QPalette::Base);
  const QColor ink = palette().color(QPalette::Text);
  const QRectF trough = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const int percent = value();
  if (percent <= 0) return PaintRest(painter);
  painter.setPen(QPen(style::Outline(palette()), 1));
  painter.setBrush(ground);
  painter.drawRoundedRect(trough, 4, 4);
  const QRectF filled = trough.adjusted(1, 1, -1, -1);
  painter.setClipRect(QRectF(filled.left(), filled.top(), filled.width() * percent / 100, filled.height()));
  painter.setPen(Qt::NoPen);
  painter.setBrush(Mixed(ground, colour_, 0.75));
  painter.drawRoundedRect(filled, 3, 3);
  painter.setClipping(false);
  painter.setPen(ink);
  painter.drawText(rect(), Qt::AlignCenter, QString::number(percent) + "%");
}

}  // namespace kavr6::widgets
