// A wide push button with a picture to the left of its words.
#pragma once

#include <QPushButton>

namespace kavr6::widgets {

/// The picture grows with the letters. The focus shows always, not only once the keyboard has been used: it
/// marks what a window proposes.
class PictureButton : public QPushButton {
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
  void paintEvent(QPaintEvent* event) override;

 private:
  int PictureHeight() const { return 3 * fontMetrics().height(); }

  QString picture_;
};

}  // namespace kavr6::widgets
