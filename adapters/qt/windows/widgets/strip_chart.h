// Values over the last minutes, a strip for each.
#pragma once

#include <QPointF>
#include <QString>
#include <QVector>
#include <QWidget>

namespace kavr6::widgets {

/// The newest values stand at the right edge. Each strip has its own scale, from the least to the greatest
/// value on show; where nothing was measured for a while the line is broken. It draws only when it is given
/// something.
class StripChart : public QWidget {
  Q_OBJECT

 public:
  struct Strip {
    QString name;
    QString unit;
    QVector<QPointF> values;  ///< time in seconds, value; in the order of time
  };

  explicit StripChart(QWidget* parent = nullptr);
  /// `span` in seconds.
  void setContent(QVector<Strip> strips, double span, bool held);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintStrip(QPainter& painter, const Strip& strip, const QRectF& box, double newest) const;
  void PaintTimes(QPainter& painter, const QRectF& plot) const;

  QVector<Strip> strips_;
  double span_ = 1.0;
  bool held_ = false;
};

}  // namespace kavr6::widgets
