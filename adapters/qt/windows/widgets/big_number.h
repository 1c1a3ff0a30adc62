// A number to be read from across the room.
#pragma once

#include <QLabel>

namespace kavr6::widgets {

/// Large figures, each in a place of the same width, counted from the right: what follows the point stays
/// where it is, and nothing jumps while digits change. Blanks and signs take a figure's place. Letters grow
/// smaller where the text is too long for its room.
class BigNumber : public QLabel {
  Q_OBJECT

 public:
  explicit BigNumber(QWidget* parent = nullptr) : QLabel(parent) {}
  /// Room for a sign and eight figures; a window that is short of room may give less.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont Large(double times) const;
};

}  // namespace kavr6::widgets
