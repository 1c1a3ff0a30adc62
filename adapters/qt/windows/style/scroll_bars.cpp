#include <QPainter>
#include <QStyleOption>

#include "adapters/qt/windows/style/colours.h"
#include "adapters/qt/windows/style/parts.h"
#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::style {
namespace {

constexpr double kHandleInset = 3.0;

struct Arrow {
  QStyle::SubControl part;
  double turn;  // where it points: degrees from downwards
};

void DrawHandle(QPainter& painter, const QStyleOptionSlider& option, const QRectF& box) {
  const bool held = option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider) &&
                    (option.state & (QStyle::State_MouseOver | QStyle::State_Sunken));
  const QColor fill = Outline(option.palette);
  painter.setPen(Qt::NoPen);
  painter.setBrush(held ? widgets::Mixed(fill, option.palette.color(QPalette::Text), 0.4) : fill);
  const bool lying = option.orientation == Qt::Horizontal;
  const QRectF handle = lying ? box.adjusted(1, kHandleInset, -1, -kHandleInset)
                              : box.adjusted(kHandleInset, 1, -kHandleInset, -1);
  const double corner = (lying ? handle.height() : handle.width()) / 2;
  painter.drawRoundedRect(handle, corner, corner);
}

}  // namespace

void DrawScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QStyle& style,
                   const QWidget* widget) {
  const auto part = [&](QStyle::SubControl control) {
    return QRectF(style.subControlRect(QStyle::CC_ScrollBar, &option, control, widget));
  };
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(option.rect, option.palette.window());
  const bool lying = option.orientation == Qt::Horizontal;
  // From right to left a lying bar begins at the right.
  const double back = !lying ? 180.0 : option.direction == Qt::RightToLeft ? -90.0 : 90.0;
  for (const Arrow& arrow :
       {Arrow{QStyle::SC_ScrollBarSubLine, back}, Arrow{QStyle::SC_ScrollBarAddLine, back + 180.0}})
    DrawChevron(painter, part(arrow.part), Outline(option.palette), arrow.turn, 3.0);
  if (option.maximum > option.minimum) DrawHandle(painter, option, part(QStyle::SC_ScrollBarSlider));
  painter.restore();
}

}  // namespace kavr6::style
