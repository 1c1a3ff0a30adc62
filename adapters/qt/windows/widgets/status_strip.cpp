#include "adapters/qt/windows/widgets/status_strip.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "adapters/qt/windows/widgets/artwork.h"
#include "adapters/qt/windows/widgets/picture.h"
#include "adapters/qt/windows/widgets/status_text.h"

namespace kavr6::widgets {
namespace {

constexpr int kIconGap = 4;
constexpr int kJoinedGap = 12;
constexpr int kCellGap = 25;  // with the line in its middle

}  // namespace

StatusStrip::StatusStrip(QWidget* parent) : QWidget(parent) {
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

StatusStrip::Texts StatusStrip::All() const {
  const auto found = findChildren<StatusText*>(QString(), Qt::FindDirectChildrenOnly);
  return {found.begin(), found.end()};
}

int StatusStrip::IconSize() const { return fontMetrics().height(); }

int StatusStrip::RowHeight() const { return fontMetrics().height() + 4; }

int StatusStrip::Gap(const StatusText& text) const {
  return text.property("joined").toBool() ? kJoinedGap : kCellGap;
}

int StatusStrip::WidthOf(const Texts& row, bool shortest) const {
  int width = 0;
  for (const StatusText* text : row)
    width += (width > 0 ? Gap(*text) : 0) + IconSize() + kIconGap +
             (shortest ? text->minimumSizeHint() : text->sizeHint()).width();
  return width;
}

std::vector<StatusStrip::Texts> StatusStrip::RowsFor(int width) const {
  const Texts all = All();
  const auto second =
      std::ranges::find_if(all, [](const StatusText* text) { return text->property("breaks").toBool(); });
  if (WidthOf(all, true) <= width || second == all.end()) return {all};
  return {Texts(all.begin(), second), Texts(second, all.end())};
}

int StatusStrip::heightForWidth(int width) const {
  return static_cast<int>(RowsFor(width).size()) * RowHeight();
}

QSize StatusStrip::sizeHint() const { return {WidthOf(All(), false), heightForWidth(width())}; }

QSize StatusStrip::minimumSizeHint() const { return {0, heightForWidth(width())}; }

void StatusStrip::resizeEvent(QResizeEvent*) {
  Place();
  updateGeometry();
}

bool StatusStrip::event(QEvent* event) {
  const bool done = QWidget::event(event);
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::FontChange) {
    Place();
    updateGeometry();
  }
  return done;
}

void StatusStrip::Place() {
  separators_.clear();
  int top = 0;
  for (const Texts& row : RowsFor(width())) {
    PlaceRow(row, top);
    top += RowHeight();
  }
  update();
}

// The first text names a device: its folders go last of all. What the others have left over is shared out.
std::vector<int> StatusStrip::WidthsIn(const Texts& row) const {
  std::vector<int> widths(row.size());
  int room = width() - WidthOf(row, false);
  for (std::size_t i = row.size(); i-- > 0;) {
    const int whole = row[i]->sizeHint().width();
    widths[i] = room < 0 ? row[i]->FittingWidth(whole + room) : whole;
    room += whole - widths[i];
  }
  for (std::size_t i = 0; i < row.size() && room > 0; ++i) {
    const int given = std::exchange(widths[i], row[i]->FittingWidth(widths[i] + room));
    room -= widths[i] - given;
  }
  return widths;
}

void StatusStrip::PlaceRow(const Texts& row, int top) {
  const QList<Picture*> icons = findChildren<Picture*>(QString(), Qt::FindDirectChildrenOnly);
  const Texts all = All();
  const std::vector<int> widths = WidthsIn(row);
  int x = 0;
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (i > 0) {
      if (!row[i]->property("joined").toBool()) separators_.emplace_back(x + kCellGap / 2, top);
      x += Gap(*row[i]);
    }
    icons.at(std::ranges::find(all, row[i]) - all.begin())
        ->setGeometry(x, top + (RowHeight() - IconSize()) / 2, IconSize(), IconSize());
    x += IconSize() + kIconGap;
    row[i]->setGeometry(x, top, widths[i], RowHeight());
    x += widths[i];
  }
}

void StatusStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  for (const QPoint& separator : separators_)
    painter.drawLine(separator.x(), separator.y() + 3, separator.x(), separator.y() + RowHeight() - 4);
}

}  // namespace kavr6::widgets
