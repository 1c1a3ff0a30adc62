// A signal lamp in a table of many.
#pragma once

#include "adapters/qt/windows/widgets/lamp.h"

namespace kavr6::widgets {

/// Lit, a red square with a cross that fills its cell; unlit, a small grey square, so that a lit one is found
/// from afar and in any colours.
class SquareLamp : public Lamp {
  Q_OBJECT

 public:
  using Lamp::Lamp;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace kavr6::widgets
