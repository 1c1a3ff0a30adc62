#include "adapters/qt/windows/widgets/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace kavr6::widgets {

QString ElidedLabel::Shown() const {
  const Qt::TextElideMode mode = property("elidesEnd").toBool() ? Qt::ElideRight : Qt::ElideMiddle;
  return fontMetrics().elidedText(text(), mode, contentsRect().width());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                        Shown(), foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || Shown() == text()) return QLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
  return true;
}

}  // namespace kavr6::widgets
