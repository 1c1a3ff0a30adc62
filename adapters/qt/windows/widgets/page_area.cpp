#include "adapters/qt/windows/widgets/page_area.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

namespace kavr6::widgets {
namespace {

constexpr int kLeastHeight = 160;
constexpr int kLinesAround = 10;  // title of the window, heading, buttons and margins

}  // namespace

PageArea::PageArea(QWidget* parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
}

/// What the screen leaves for the page.
QSize PageArea::Room() const {
  const int line = fontMetrics().height();
  return screen()->availableSize() - QSize(3 * line, kLinesAround * line);
}

QSize PageArea::sizeHint() const {
  if (widget() == nullptr) return {};
  SettlePage();
  const QSize page = widget()->sizeHint();
  const int bar = page.height() > Room().height() ? verticalScrollBar()->sizeHint().width() : 0;
  return page + QSize(bar, 0);
}

QSize PageArea::minimumSizeHint() const {
  if (widget() == nullptr) return {};
  SettlePage();
  return widget()->minimumSizeHint().boundedTo({Room().width(), kLeastHeight});
}

bool PageArea::hasHeightForWidth() const {
  return widget() != nullptr && widget()->layout() != nullptr && widget()->layout()->hasHeightForWidth();
}

int PageArea::heightForWidth(int width) const {
  return hasHeightForWidth() ? widget()->layout()->heightForWidth(width) : -1;
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
