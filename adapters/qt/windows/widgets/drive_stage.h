// The drive picture with the setup buttons on both sides.
#pragma once

#include <QWidget>

namespace kavr6::widgets {

class DrivePicture;

/// Places its children: a DrivePicture in the middle, and to its left and right, each at the height of its
/// connector, the buttons named Motion, IO, Encoder, Regen and Motor.
class DriveStage : public QWidget {
  Q_OBJECT

 public:
  explicit DriveStage(QWidget* parent = nullptr) : QWidget(parent) {}
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// The children stand in new places.
  void Placed();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QSize SizeFor(QSize button, int lineLength) const;
  QSize LargestButton(bool least) const;
  void Place();
  void PlaceSide(const DrivePicture& picture, bool left, QSize button, int x);
};

}  // namespace kavr6::widgets
