// A wide push button with a picture to the left of its words.
#pragma once

#include "adapters/qt/windows/widgets/mark_button.h"

namespace kavr6::widgets {

/// Below the caption stands in grey what the tip of the button says, in two lines at most; a mark is a tick
/// with its words at the right. The picture grows with the letters. The focus shows always, not only once the
/// keyboard has been used: it marks what a window proposes.
class PictureButton : public MarkButton {
  Q_OBJECT
  Q_PROPERTY(QString picture READ picture WRITE setPicture)

 public:
  explicit PictureButton(QWidget* parent = nullptr);
  QString picture() const { return picture_; }
  /// Name in the artwork.
  void setPicture(const QString& name);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int PictureHeight() const { return 3 * fontMetrics().height(); }
  void PaintMark(QPainter& painter, const QRect& line) const;

  QString picture_;
};

}  // namespace kavr6::widgets
