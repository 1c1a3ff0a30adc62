#include "adapters/qt/windows/widgets/picture_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {
namespace {

constexpr int kPadding = 10;

}  // namespace

PictureButton::PictureButton(QWidget* parent) : QPushButton(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void PictureButton::setPicture(const QString& name) {
  picture_ = name;
  update();
}

QSize PictureButton::sizeHint() const {
  const int words = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
  return {PictureHeight() + words + 4 * kPadding, PictureHeight() + 2 * kPadding};
}

void PictureButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  painter.drawControl(QStyle::CE_PushButton, option);
  const QRect inside = rect().adjusted(kPadding, kPadding, -kPadding, -kPadding);
  const QRect box(inside.topLeft(), QSize(PictureHeight(), inside.height()));
  if (!isEnabled()) painter.setOpacity(0.35);
  PaintArtwork(painter, picture_, box, palette().color(QPalette::ButtonText));
  painter.setOpacity(1);
  painter.drawItemText(inside.adjusted(box.width() + kPadding, 0, 0, 0),
                       Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, palette(), isEnabled(),
                       text(), QPalette::ButtonText);
}

}  // namespace kavr6::widgets
