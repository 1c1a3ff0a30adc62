// A signal lamp.
#pragma once

#include <QWidget>

namespace kavr6::widgets {

/// Off is an empty ring, green a full disc, yellow a triangle, red a square with a cross, orange a square on
/// its corner: the shape alone tells the state. A screen reader hears the state as the description.
class Lamp : public QWidget {
  Q_OBJECT
  Q_PROPERTY(double lines READ lines WRITE setLines)

 public:
  explicit Lamp(QWidget* parent = nullptr);
  /// 0 off, 1 green, 2 yellow, 3 red, 4 orange.
  void setState(int state);
  /// Its height in lines of text.
  double lines() const { return lines_; }
  void setLines(double lines);
  int state() const { return state_; }
  QSize sizeHint() const override;
  /// Where a window is short of room it may be a little less high, and is drawn smaller then.
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int state_ = 0;
  double lines_ = 1.0;
};

}  // namespace kavr6::widgets
