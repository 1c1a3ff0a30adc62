// A line from a setup button to its connector on the drive picture.
#pragma once

#include <QColor>
#include <QPolygonF>
#include <QWidget>

namespace kavr6::widgets {

/// A grey line is thin, any other colour is drawn strong, so that the difference does not hang on the colour.
/// Takes no mouse clicks.
class ConnectorLine : public QWidget {
  Q_OBJECT

 public:
  explicit ConnectorLine(QWidget* parent = nullptr);
  void setColour(const QColor& colour);
  QColor colour() const { return colour_; }
  /// Without its plug in the connector it ends before it, broken.
  void setPlugged(bool plugged);
  /// The corners of the line in the parent's coordinates, and whether a plug is drawn on the last one. Moves
  /// the widget to cover them.
  void setPath(const QPolygonF& corners, bool plug);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_{0x80, 0x80, 0x80};
  QPolygonF corners_;
  bool plug_ = false;
  bool plugged_ = true;
};

}  // namespace kavr6::widgets
