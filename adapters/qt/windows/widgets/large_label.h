// Words larger than those around them.
#pragma once

#include <QLabel>

namespace kavr6::widgets {

/// The font, so many times its size.
QFont Enlarged(QFont font, double times);

/// A label whose letters are so many times the program's own, whatever size the desktop has chosen for these.
class LargeLabel : public QLabel {
  Q_OBJECT
  Q_PROPERTY(double times READ times WRITE setTimes)

 public:
  explicit LargeLabel(QWidget* parent = nullptr) : QLabel(parent) {}
  double times() const { return times_; }
  void setTimes(double times);

 private:
  double times_ = 1.0;
};

/// A label on the base line of a LargeLabel beside it, of the same height and so many times its letters; both
/// stand at the bottom of their row.
class UnitLabel : public QLabel {
  Q_OBJECT
  Q_PROPERTY(double beside READ beside WRITE setBeside)

 public:
  explicit UnitLabel(QWidget* parent = nullptr) : QLabel(parent) {}
  double beside() const { return beside_; }
  void setBeside(double times);

 private:
  double beside_ = 1.0;
};

}  // namespace kavr6::widgets
