#include "adapters/qt/windows/widgets/mark_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <limits>

namespace kavr6::widgets {
namespace {

QPoint Towards(int key) {
  switch (key) {
    case Qt::Key_Left:
      return {-1, 0};
    case Qt::Key_Right:
      return {1, 0};
    case Qt::Key_Up:
      return {0, -1};
    case Qt::Key_Down:
      return {0, 1};
    default:
      return {};
  }
}

/// The nearest that can take the focus on that side; what is straight ahead comes before what is aside.
QWidget* Neighbour(const QWidget& from, const QPoint& towards) {
  constexpr int kAside = 4;
  QWidget* nearest = nullptr;
  int least = std::numeric_limits<int>::max();
  for (auto* other : from.parentWidget()->findChildren<MarkButton*>(Qt::FindDirectChildrenOnly)) {
    if (other == &from || !other->isVisible() || !other->isEnabled()) continue;
    const QPoint away = other->geometry().center() - from.geometry().center();
    const int ahead = QPoint::dotProduct(away, towards);
    const int distance = ahead + kAside * (away - ahead * towards).manhattanLength();
    if (ahead <= 0 || distance >= least) continue;
    least = distance;
    nearest = other;
  }
  return nearest;
}

}  // namespace

void MarkButton::setMark(const QString& words) {
  // A tip that has come meanwhile has taken the place of the description.
  const QString told = words.isEmpty() ? whatsThis() : words + ". " + whatsThis();
  if (accessibleDescription() != told) setAccessibleDescription(told);
  if (mark_ == words) return;
  mark_ = words;
  QFont letters = font();
  letters.setBold(!words.isEmpty());
  setFont(letters);
  update();
}

void MarkButton::keyPressEvent(QKeyEvent* event) {
  const QPoint towards = Towards(event->key());
  if (towards.isNull()) return QPushButton::keyPressEvent(event);
  if (QWidget* const next = Neighbour(*this, towards)) next->setFocus(Qt::TabFocusReason);
}

void MarkButton::paintEvent(QPaintEvent* event) {
  QPushButton::paintEvent(event);
  if (mark_.isEmpty()) return;
  QPainter painter(this);
  const int thick = qMax(3, fontMetrics().height() / 6);
  painter.fillRect(QRect(thick + 2, height() - 2 * thick, width() - 2 * thick - 4, thick),
                   palette().color(QPalette::ButtonText));
}

}  // namespace kavr6::widgets
