// A push button of a group laid out in rows and columns, of which one is marked.
#pragma once

#include <QPushButton>

namespace kavr6::widgets {

/// The mark is a bar below the words, which are bold then: it does not depend on colour. The arrow keys go to
/// the next button of the kind on that side, as the eye does.
class MarkButton : public QPushButton {
  Q_OBJECT

 public:
  explicit MarkButton(QWidget* parent = nullptr) : QPushButton(parent) {}
  QString mark() const { return mark_; }
  /// What the mark says; empty: there is none.
  void setMark(const QString& words);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString mark_;
};

}  // namespace kavr6::widgets
