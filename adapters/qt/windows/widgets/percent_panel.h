// A bar that fills from the left.
#pragma once

#include <QColor>
#include <QProgressBar>

namespace kavr6::widgets {

/// A thin groove at 0, full at 100, with the figure in its middle in between.
class PercentPanel : public QProgressBar {
  Q_OBJECT

 public:
  explicit PercentPanel(QWidget* parent = nullptr);
  /// 0 to 100.
  void setPercent(int percent);
  void setColour(const QColor& colour);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintRest(QPainter& painter) const;

  QColor colour_;
};

}  // namespace kavr6::widgets
