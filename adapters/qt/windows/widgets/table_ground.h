// What makes a table of a grid of widgets.
#pragma once

#include <QWidget>

namespace kavr6::widgets {

/// Draws bands behind every second row of its grid layout, whose first row is the heading, and a frame around
/// the marked column.
class TableGround : public QWidget {
  Q_OBJECT
  Q_PROPERTY(int markedColumn READ markedColumn WRITE setMarkedColumn)

 public:
  explicit TableGround(QWidget* parent = nullptr) : QWidget(parent) {}
  /// -1: none.
  int markedColumn() const { return markedColumn_; }
  void setMarkedColumn(int column) {
    markedColumn_ = column;
    update();
  }

 protected:
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int markedColumn_ = -1;
};

}  // namespace kavr6::widgets
