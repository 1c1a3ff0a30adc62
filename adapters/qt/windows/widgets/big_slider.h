// A slider with a handle that is easy to hold while one's ear is at the motor.
#pragma once

#include <QSlider>

namespace kavr6::widgets {

class BigSlider : public QSlider {
  Q_OBJECT

 public:
  explicit BigSlider(QWidget* parent = nullptr);
};

}  // namespace kavr6::widgets
