#include "adapters/qt/windows/widgets/strip_chart.h"

#include <QLocale>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {
namespace {

constexpr double kLongestGap = 2.0;  // seconds between values that are joined by a line
constexpr double kMinute = 60.0;
constexpr int kFigures = 6;
constexpr double kGap = 4.0;  // pixels

struct Scale {
  double least = 0.0;
  double most = 0.0;
  double PlaceOf(double value, const QRectF& box) const {
    // Halved, so that the two ends of the range of numbers can be on show together.
    const double share = most > least ? (value / 2 - least / 2) / (most / 2 - least / 2) : 0.5;
    return box.bottom() - share * box.height();
  }
};

Scale ScaleOf(const QVector<QPointF>& values) {
  const auto [least, most] = std::minmax_element(
      values.begin(), values.end(), [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); });
  return {least->y(), most->y()};
}

QString Figures(double value) { return QLocale::c().toString(value, 'g', kFigures); }

}  // namespace

StripChart::StripChart(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void StripChart::setContent(QVector<Strip> strips, double span, bool held) {
  strips_ = std::move(strips);
  span_ = span;
  held_ = held;
  update();
}

QSize StripChart::sizeHint() const { return {fontMetrics().height() * 30, fontMetrics().height() * 14}; }

QSize StripChart::minimumSizeHint() const {
  return {fontMetrics().height() * 14, fontMetrics().height() * 8};
}

void StripChart::paintEvent(QPaintEvent*) {
  if (strips_.isEmpty()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double letters = fontMetrics().height();
  const double scale = fontMetrics().horizontalAdvance(QStringLiteral("-88888.8")) + 2 * kGap;
  const QRectF plot = QRectF(rect()).adjusted(0.5, 0.5, -0.5 - scale, -letters - kGap);
  double newest = 0.0;
  for (const Strip& strip : strips_)
    if (!strip.values.isEmpty()) newest = std::max(newest, strip.values.last().x());
  const double height = plot.height() / static_cast<double>(strips_.size());
  PaintTimes(painter, plot);
  for (qsizetype i = 0; i < strips_.size(); ++i)
    PaintStrip(painter, strips_[i],
               {plot.left(), plot.top() + static_cast<double>(i) * height, plot.width(), height - kGap},
               newest);
}

void StripChart::PaintTimes(QPainter& painter, const QRectF& plot) const {
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = palette().color(QPalette::WindowText);
  const QRectF below(plot.left(), plot.bottom(), plot.width(), fontMetrics().height() + kGap);
  const QString end = held_ ? tr("held") : tr("last value");
  painter.setPen(ink);
  painter.drawText(below, Qt::AlignRight | Qt::AlignBottom, end);
  const double room = below.right() - fontMetrics().height() - fontMetrics().horizontalAdvance(end);
  for (int minute = 1; minute * kMinute <= span_; ++minute) {
    const double x = plot.right() - minute * kMinute / span_ * plot.width();
    painter.setPen(QPen(Mixed(ground, ink, 0.25), 1, Qt::DotLine));
    painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
    const QString words = tr("-%1 min").arg(minute);
    const double width = fontMetrics().horizontalAdvance(words);
    const double left = std::max(plot.left(), x - width / 2);
    if (left + width > room) continue;
    painter.setPen(ink);
    painter.drawText(QRectF(left, below.top(), width + 1, below.height()), Qt::AlignBottom, words);
  }
}

void StripChart::PaintStrip(QPainter& painter, const Strip& strip, const QRectF& box, double newest) const {
  const QColor base = palette().color(QPalette::Base);
  const QColor ink = palette().color(QPalette::Text);
  QColor sheet = base;
  sheet.setAlphaF(0.6F);
  painter.setPen(QPen(palette().color(QPalette::Mid), 1));
  painter.setBrush(sheet);
  painter.drawRect(box);
  const QRectF whole = box.adjusted(kGap, kGap, -kGap, -kGap);
  // The line keeps clear of the name.
  const QRectF inside = whole.adjusted(0, fontMetrics().height(), 0, 0);
  if (!strip.values.isEmpty()) {
    const Scale scale = ScaleOf(strip.values);
    QPainterPath path;
    for (qsizetype i = 0; i < strip.values.size(); ++i) {
      const QPointF& value = strip.values[i];
      const QPointF at(inside.right() - (newest - value.x()) / span_ * inside.width(),
                       scale.PlaceOf(value.y(), inside));
      const bool joined = i > 0 && value.x() - strip.values[i - 1].x() <= kLongestGap;
      if (!joined) path.moveTo(at);
      path.lineTo(at);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Mixed(palette().color(QPalette::Highlight), ink, 0.25), 1.6));
    painter.drawPath(path);
    painter.setPen(palette().color(QPalette::WindowText));
    QRectF beside(box.right() + kGap, inside.top() - kGap, width(), inside.height() + 2 * kGap);
    // Of a low strip all the height, so that the two figures keep clear of each other.
    if (beside.height() < 2 * fontMetrics().height()) beside.setTop(box.top());
    const bool flat = scale.least == scale.most;
    painter.drawText(beside, Qt::AlignLeft | (flat ? Qt::AlignVCenter : Qt::AlignTop), Figures(scale.most));
    if (!flat) painter.drawText(beside, Qt::AlignLeft | Qt::AlignBottom, Figures(scale.least));
  }
  painter.setPen(ink);
  painter.drawText(whole, Qt::AlignLeft | Qt::AlignTop, strip.name + ", " + strip.unit);
}

}  // namespace kavr6::widgets
