#include "adapters/qt/windows/widgets/connector_line.h"

#include <QPainter>
#include <QPainterPath>

namespace kavr6::widgets {
namespace {

constexpr double kPlugRadius = 5;
constexpr int kMargin = 7;

}  // namespace

ConnectorLine::ConnectorLine(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
}

void ConnectorLine::setColour(const QColor& colour) {
  if (colour_ == colour) return;
  colour_ = colour;
  update();
}

void ConnectorLine::setPlugged(bool plugged) {
  if (plugged_ == plugged) return;
  plugged_ = plugged;
  update();
}

void ConnectorLine::setPath(const QPolygonF& corners, bool plug) {
  if (corners_ == corners && plug_ == plug) return;
  corners_ = corners;
  plug_ = plug;
  setGeometry(corners.boundingRect().toAlignedRect().adjusted(-kMargin, -kMargin, kMargin, kMargin));
  update();
}

void ConnectorLine::paintEvent(QPaintEvent*) {
  if (corners_.size() < 2) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(-pos());
  const bool live = colour_.hsvSaturation() > 0;
  const double width = live ? 4.0 : 2.0;
  QPainterPath path;
  path.addPolygon(plugged_ ? corners_ : corners_.first(corners_.size() - 1));
  // Flat ends, so that two lines that meet look like one.
  const auto stroke = [&](const QColor& colour, double thickness) {
    painter.strokePath(
        path, QPen(colour, thickness, plugged_ ? Qt::SolidLine : Qt::DashLine, Qt::FlatCap, Qt::RoundJoin));
  };
  if (live) stroke(colour_.darker(170), width + 2);
  stroke(colour_, width);
  if (!plug_ || !plugged_) return;
  painter.setPen(QPen(live ? colour_.darker(170) : colour_, live ? 1.0 : 2.0));
  painter.setBrush(live ? colour_ : palette().color(QPalette::Window));
  const double radius = live ? kPlugRadius : kPlugRadius - 1;
  painter.drawEllipse(corners_.constLast(), radius, radius);
}

}  // namespace kavr6::widgets
