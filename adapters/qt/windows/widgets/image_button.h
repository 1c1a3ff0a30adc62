// A push button that is a picture with a word beneath it.
#pragma once

#include <QAbstractButton>

namespace kavr6::widgets {

/// Shows the picture it is given above its text(); the text may hold a mnemonic. Hover, focus and the pressed
/// state are drawn by the button itself, whatever the picture. A double click is one click.
class ImageButton : public QAbstractButton {
  Q_OBJECT
  Q_PROPERTY(QString picture READ picture WRITE setPicture)
  Q_PROPERTY(double pictureLines READ pictureLines WRITE setPictureLines)

 public:
  explicit ImageButton(QWidget* parent = nullptr);
  QString picture() const { return picture_; }
  /// `name` in the artwork, for example "MotorUp".
  void setPicture(const QString& name);
  double pictureLines() const { return pictureLines_; }
  /// How high the picture would like to be, in lines of text.
  void setPictureLines(double lines);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent*) override {}

 private:
  QSize FaceSize(double pictureLines) const;
  void PaintTile(QPainter& painter) const;

  QString picture_;
  double pictureLines_ = 3.0;
};

}  // namespace kavr6::widgets
