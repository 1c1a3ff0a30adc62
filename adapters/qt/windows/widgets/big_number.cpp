#include "adapters/qt/windows/widgets/big_number.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "adapters/qt/windows/widgets/large_label.h"

namespace kavr6::widgets {
namespace {

constexpr double kTimes = 3.2;  // the size of the letters around it
constexpr int kUsualLength = 9;
constexpr int kLeastLength = 6;
constexpr double kLeastHeight = 0.6;

double FigureWidth(const QFontMetricsF& metrics) {
  double widest = 0;
  for (const QChar figure : QStringLiteral("0123456789-"))
    widest = std::max(widest, metrics.horizontalAdvance(figure));
  return widest;
}

double PlaceOf(QChar c, const QFontMetricsF& metrics) {
  return c == QLatin1Char('.') ? metrics.horizontalAdvance(c) : FigureWidth(metrics);
}

double WidthOf(const QString& text, const QFontMetricsF& metrics) {
  double width = 0;
  for (const QChar c : text) width += PlaceOf(c, metrics);
  return width;
}

}  // namespace

QFont BigNumber::Large(double times) const { return Enlarged(font(), times); }

QSize BigNumber::sizeHint() const {
  const QFontMetricsF metrics(Large(kTimes));
  return {qRound(FigureWidth(metrics) * kUsualLength), qRound(metrics.height())};
}

QSize BigNumber::minimumSizeHint() const {
  return {sizeHint().width() * kLeastLength / kUsualLength, qRound(sizeHint().height() * kLeastHeight)};
}

void BigNumber::paintEvent(QPaintEvent*) {
  const QRectF box = contentsRect();
  double times = kTimes;
  if (const double width = WidthOf(text(), QFontMetricsF(Large(times))); width > box.width())
    times *= box.width() / width;
  if (const double height = QFontMetricsF(Large(times)).height(); height > box.height())
    times *= box.height() / height;
  QPainter painter(this);
  painter.setFont(Large(times));
  painter.setPen(palette().color(foregroundRole()));
  const QFontMetricsF metrics(painter.font());
  const double base = box.center().y() + (metrics.ascent() - metrics.descent()) / 2;
  double right = box.right();
  for (qsizetype i = text().size() - 1; i >= 0; --i) {
    const QChar c = text()[i];
    const double place = PlaceOf(c, metrics);
    painter.drawText(QPointF(right - (place + metrics.horizontalAdvance(c)) / 2, base), QString(c));
    right -= place;
  }
}

}  // namespace kavr6::widgets
