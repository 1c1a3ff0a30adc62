#include "adapters/qt/windows/widgets/big_slider.h"

#include "adapters/qt/windows/style/program_style.h"

namespace kavr6::widgets {
namespace {

/// The program's style with larger sliders. For the handle it is asked without naming the widget.
class BigSliderStyle : public style::ProgramStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    const int usual = ProgramStyle::pixelMetric(metric, option, widget);
    switch (metric) {
      case PM_SliderThickness:
      case PM_SliderControlThickness:
      case PM_SliderLength:
        return 2 * usual;
      default:
        return usual;
    }
  }
};

}  // namespace

BigSlider::BigSlider(QWidget* parent) : QSlider(parent) {
  auto* const style = new BigSliderStyle;
  style->setParent(this);
  setStyle(style);
}

}  // namespace kavr6::widgets
