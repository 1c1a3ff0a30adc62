#include "adapters/qt/windows/widgets/picture.h"

#include <QPainter>

#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {

void Picture::setImage(const QString& name) {
  if (image_ == name) return;
  const bool sameShape = ArtworkSize(image_) == ArtworkSize(name);
  image_ = name;
  if (!sameShape) updateGeometry();
  update();
}

QSize Picture::sizeHint() const { return HasArtwork(image_) ? ArtworkSize(image_) : QSize(); }

void Picture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(0.5);
  PaintArtwork(painter, image_, rect(), palette().color(QPalette::WindowText));
}

}  // namespace kavr6::widgets
