// A part of a picture that can be clicked.
#pragma once

#include <QAbstractButton>

namespace kavr6::widgets {

/// Invisible until the mouse or the focus is on it, then a soft outline. Emits clicked(), by mouse, Space or
/// Enter.
class HotSpot : public QAbstractButton {
  Q_OBJECT

 public:
  explicit HotSpot(QWidget* parent = nullptr);
  QSize sizeHint() const override { return {24, 24}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace kavr6::widgets
