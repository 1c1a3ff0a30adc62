// The picture of the drive with its connectors.
#pragma once

#include <QRect>
#include <QStringView>
#include <QWidget>

namespace kavr6::widgets {

/// Draws the drive as large as it fits and lays the children that are named like a part of it (HSled, HSrs485
/// and so on) over that part.
class DrivePicture : public QWidget {
  Q_OBJECT

 public:
  explicit DrivePicture(QWidget* parent = nullptr) : QWidget(parent) {}
  /// Where a part stands within this widget, in fact the drawing: "HSinout1", "CaseTop", ... Empty for a
  /// name that the drawing does not know.
  QRect PartRect(QStringView part) const;
  /// The drawing within this widget.
  QRect DrawingRect() const;
  /// Width over height of the drawing.
  static double Shape();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace kavr6::widgets
