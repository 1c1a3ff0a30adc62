#include "adapters/qt/windows/widgets/page_area.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>
#include <algorithm>

namespace kavr6::widgets {
namespace {

constexpr int kLeastHeight = 160;

}  // namespace

PageArea::PageArea(QWidget* parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QSize PageArea::sizeHint() const {
  if (widget() == nullptr) return {};
  SettlePage();
  return widget()->sizeHint();
}

QSize PageArea::minimumSizeHint() const {
  if (widget() == nullptr) return {};
  SettlePage();
  const QSize page = widget()->minimumSizeHint();
  return {page.width() + verticalScrollBar()->sizeHint().width(), std::min(page.height(), kLeastHeight)};
}

// As long as it is not shown the page would tell what it wanted before its texts came.
void PageArea::SettlePage() const {
  if (QLayout* const layout = widget()->layout()) layout->activate();
}

// The page's contents have changed, and with them what this area wants.
bool PageArea::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return QScrollArea::eventFilter(watched, event);
}

}  // namespace kavr6::widgets
