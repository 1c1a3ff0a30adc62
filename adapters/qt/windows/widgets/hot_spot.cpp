#include "adapters/qt/windows/widgets/hot_spot.h"

#include <QKeyEvent>
#include <QPainter>

namespace kavr6::widgets {

HotSpot::HotSpot(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_Hover);
}

void HotSpot::paintEvent(QPaintEvent*) {
  if (!isEnabled() || !(hasFocus() || underMouse())) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  // The picture beneath is dark in every palette.
  const QColor glow(0x7f, 0xc4, 0xff);
  QColor veil = glow;
  veil.setAlphaF(isDown() ? 0.45F : 0.2F);
  painter.setBrush(veil);
  painter.setPen(QPen(glow, hasFocus() ? 2.5 : 1.5));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 5, 5);
}

void HotSpot::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    animateClick();
  else
    QAbstractButton::keyPressEvent(event);
}

}  // namespace kavr6::widgets
