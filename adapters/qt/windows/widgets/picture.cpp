#include "adapters/qt/windows/widgets/picture.h"

#include <QPainter>
#include <utility>

#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {

void Picture::setImage(const QString& name) {
  if (image_ == name) return;
  const bool sameShape = ArtworkSize(image_) == ArtworkSize(name);
  image_ = name;
  if (!sameShape) updateGeometry();
  update();
}

void Picture::setFaded(bool faded) {
  if (std::exchange(faded_, faded) != faded) update();
}

QSize Picture::sizeHint() const { return HasArtwork(image_) ? ArtworkSize(image_) : QSize(); }

void Picture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(0.5);
  if (faded_) painter.setOpacity(0.3);
  PaintArtwork(painter, image_, rect(), palette().color(QPalette::WindowText));
}

}  // namespace kavr6::widgets
