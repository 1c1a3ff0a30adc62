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
  if (watched == widget() && event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    SettleBar();
  }
  return QScrollArea::eventFilter(watched, event);
}

void PageArea::resizeEvent(QResizeEvent* event) {
  SettleBar();
  QScrollArea::resizeEvent(event);
}

// A bar that has once come would stay by itself: it makes texts narrower, and so higher than there is room
// for.
void PageArea::SettleBar() {
  const QSize room = maximumViewportSize();
  const bool fits = hasHeightForWidth() && heightForWidth(room.width()) <= room.height();
  setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
}

}  // namespace kavr6::widgets
