#include "adapters/qt/windows/widgets/work_area.h"

#include <QEvent>

namespace kavr6::widgets {
namespace {

// In lines of text.
constexpr int kMostWidth = 100;
constexpr int kMostHeight = 60;

}  // namespace

bool WorkArea::event(QEvent* event) {
  if (event->type() == QEvent::Polish || event->type() == QEvent::FontChange) {
    const int line = fontMetrics().height();
    setMaximumSize(kMostWidth * line, kMostHeight * line);
  }
  return QWidget::event(event);
}

}  // namespace kavr6::widgets
