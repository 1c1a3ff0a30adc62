// A label that says what it can in the width it gets.
#pragma once

#include <QLabel>

namespace kavr6::widgets {

/// One line of plain text; where it is too long its middle, or with the property "elidesEnd" its end, gives
/// way to dots and the tool tip shows all of it.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent = nullptr) : QLabel(parent) {}
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QString Shown() const;
};

}  // namespace kavr6::widgets
