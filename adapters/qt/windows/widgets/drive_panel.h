// The left part of the main screen, with the lines between its controls and the drive.
#pragma once

#include <QWidget>

namespace kavr6::widgets {

/// Holds controls in a layout, among them one DriveStage below a row "linkStrip" that starts and ends with a
/// spacer; the row is kept as wide as the stage's buttons reach. Owns the ConnectorLines MotorLine1,
/// MotorLine2, MotionLine, RegenLine1, RegenLine2, IOLine, EncoderLine, CommLine, DriveLine1 and DriveLine2,
/// which follow the controls wherever these stand.
class DrivePanel : public QWidget {
  Q_OBJECT

 public:
  explicit DrivePanel(QWidget* parent = nullptr);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void Arrange();
  void InsetStrip();
  void Route();
};

}  // namespace kavr6::widgets
