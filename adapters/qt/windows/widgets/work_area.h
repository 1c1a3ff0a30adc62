// The part of the main screen that a person works in.
#pragma once

#include <QWidget>

namespace kavr6::widgets {

/// Grows with its window as far as all of it can be seen at a glance. How far that is goes by the size of the
/// type; in a larger window it stands in the middle.
class WorkArea : public QWidget {
  Q_OBJECT

 public:
  explicit WorkArea(QWidget* parent = nullptr) : QWidget(parent) {}

 protected:
  bool event(QEvent* event) override;
};

}  // namespace kavr6::widgets
