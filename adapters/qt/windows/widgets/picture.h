// A picture of the artwork.
#pragma once

#include <QWidget>

namespace kavr6::widgets {

/// Shows a picture as large as its own space allows, undistorted and centred. Without a name it is empty.
class Picture : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString image READ image WRITE setImage)

 public:
  explicit Picture(QWidget* parent = nullptr) : QWidget(parent) {}
  QString image() const { return image_; }
  /// Name in the artwork.
  void setImage(const QString& name);
  /// Shown faintly.
  void setFaded(bool faded);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString image_;
  bool faded_ = false;
};

}  // namespace kavr6::widgets
