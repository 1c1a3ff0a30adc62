#include "adapters/qt/windows/widgets/image_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "adapters/qt/windows/style/colours.h"
#include "adapters/qt/windows/style/parts.h"
#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {
namespace {

constexpr int kPadding = 5;

}  // namespace

ImageButton::ImageButton(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ImageButton::setPicture(const QString& name) {
  if (picture_ == name) return;
  const bool sameShape = ArtworkSize(picture_) == ArtworkSize(name);
  picture_ = name;
  if (!sameShape) updateGeometry();
  update();
}

void ImageButton::setPictureLines(double lines) {
  pictureLines_ = lines;
  updateGeometry();
}

QSize ImageButton::FaceSize(double pictureLines) const {
  const QFontMetrics metrics = fontMetrics();
  const QSize natural = ArtworkSize(picture_);
  const int height = qRound(pictureLines * metrics.height());
  const int width = height * natural.width() / natural.height();
  const int word = metrics.size(Qt::TextShowMnemonic, text()).width();
  return {std::max(width, word) + 4 * kPadding, height + metrics.height() + 3 * kPadding};
}

QSize ImageButton::sizeHint() const { return FaceSize(pictureLines_); }

QSize ImageButton::minimumSizeHint() const { return FaceSize(2.0); }

void ImageButton::PaintTile(QPainter& painter) const {
  const QColor face = palette().color(QPalette::Button);
  const QColor ink = palette().color(QPalette::ButtonText);
  const bool hovered = isEnabled() && underMouse();
  QColor fill = Mixed(face, palette().color(QPalette::Base), 0.5);
  if (isDown())
    fill = Mixed(face, ink, 0.18);
  else if (hovered)
    fill = style::Hovered(fill, palette());
  painter.setPen(style::Outline(palette(), isEnabled()));
  painter.setBrush(fill);
  constexpr double kTileCorner = 6.0;
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kTileCorner, kTileCorner);
  if (hasFocus()) style::DrawRing(painter, rect(), palette(), kTileCorner);
}

void ImageButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintTile(painter);
  if (!isEnabled()) painter.setOpacity(0.5);
  const QColor ink = palette().color(QPalette::ButtonText);
  const int sink = isDown() ? 1 : 0;
  QRect word = rect().adjusted(kPadding, 0, -kPadding, -kPadding + 1).translated(0, sink);
  word.setTop(word.bottom() - fontMetrics().height());
  const QRect box = rect().adjusted(kPadding, kPadding, -kPadding, 0).translated(0, sink);
  PaintArtwork(painter, picture_, QRect(box.topLeft(), QPoint(box.right(), word.top() - 2)), ink);
  style()->drawItemText(&painter, word, Qt::AlignCenter | Qt::TextShowMnemonic, palette(), isEnabled(),
                        text(), QPalette::ButtonText);
}

void ImageButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    animateClick();
  else
    QAbstractButton::keyPressEvent(event);
}

}  // namespace kavr6::widgets
