#include "adapters/qt/windows/widgets/large_label.h"

#include <QApplication>
#include <QFontMetrics>

namespace kavr6::widgets {

QFont Enlarged(QFont font, double times) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * times);
  } else {
    font.setPixelSize(qRound(font.pixelSize() * times));
  }
  return font;
}

void LargeLabel::setTimes(double times) {
  times_ = times;
  QFont large = Enlarged(QApplication::font(this), times);
  // Not left to what is around it, which may be in bold letters.
  large.setBold(font().bold());
  setFont(large);
}

void UnitLabel::setBeside(double times) {
  beside_ = times;
  const QFont around = QApplication::font(this);
  const auto below = [](const QFont& font) { return QFontMetrics(font).descent(); };
  setContentsMargins(0, 0, 0, below(Enlarged(around, times)) - below(around));
}

}  // namespace kavr6::widgets
