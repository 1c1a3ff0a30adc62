// The strip at the foot of the main screen.
#pragma once

#include <QWidget>
#include <vector>

namespace kavr6::widgets {

class StatusText;

/// Lays its children in a row, pairs of a Picture and a StatusText in the order of their creation, each as
/// wide as its words; a text with the property "joined" belongs to the cell before it. Where the room is
/// short the words of the last cell give way first, then those before it; where even the shortest do not fit,
/// what begins with the text that has the property "breaks" goes into a second row.
class StatusStrip : public QWidget {
  Q_OBJECT

 public:
  explicit StatusStrip(QWidget* parent = nullptr);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  using Texts = std::vector<StatusText*>;
  Texts All() const;
  /// The rows that this width takes.
  std::vector<Texts> RowsFor(int width) const;
  int RowHeight() const;
  int IconSize() const;
  /// Left of the words of a text that does not begin its row.
  int Gap(const StatusText& text) const;
  int WidthOf(const Texts& row, bool shortest) const;
  std::vector<int> WidthsIn(const Texts& row) const;
  void Place();
  void PlaceRow(const Texts& row, int top);

  std::vector<QPoint> separators_;
};

}  // namespace kavr6::widgets
