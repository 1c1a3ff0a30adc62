// The words of one cell of the status strip.
#pragma once

#include <QLabel>
#include <QStringList>

namespace kavr6::widgets {

/// One line of plain text whose parts are set off by commas. Where it is too long its last parts go, a path
/// first loses its folders from the front; no word and no name is cut. The tool tip shows all of it then, and
/// a screen reader hears all of it always.
class StatusText : public QLabel {
  Q_OBJECT

 public:
  explicit StatusText(QWidget* parent = nullptr) : QLabel(parent) {}
  /// The words as they are shown in that width: the longest that fit, or the shortest there are.
  QString Fitting(int width) const;
  /// Of those words.
  int FittingWidth(int width) const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QStringList Wordings() const;
};

}  // namespace kavr6::widgets
