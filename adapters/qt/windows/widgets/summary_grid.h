// The grid of the main screen.
#pragma once

#include <QTableWidget>
#include <vector>

namespace kavr6::widgets {

/// Rows of text to be read at a glance; nothing can be edited. A merged row of ordinary height is a title. A
/// row whose cells show a picture is a divider and cannot be entered. Rows grow to fill the height there is.
/// Below a title that ends with a colon and has only empty rows a grey hint says what a double click does.
class SummaryGrid : public QTableWidget {
  Q_OBJECT

 public:
  struct Cell {
    QString text;
    QString picture;  ///< name in the artwork
    Qt::Alignment alignment = Qt::AlignLeft;
  };
  struct Row {
    std::vector<Cell> cells;
    bool merged = false;  ///< neighbouring cells of the same text are shown as one
    int heightTwips = 0;  ///< 0: an ordinary row
  };

  explicit SummaryGrid(QWidget* parent = nullptr);
  /// Every row has as many cells as there are widths. The widths are shares of the width there is; a
  /// column whose texts need more gets more.
  void setContent(std::vector<Row> rows, std::vector<int> columnWidthsTwips);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// By double click, or by Enter on the row.
  void rowDoubleClicked(int row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void FillRow(int row);
  void ShowHints(int title);
  void FitRows();
  void FitColumns();
  int LeastWidth(int column) const;
  int LeastHeight(const Row& row) const;
  bool IsTitle(const Row& row) const;
  bool IsDivider(const Row& row) const;
  bool IsEmpty(const Row& row) const;

  std::vector<Row> rows_;
  std::vector<int> widths_;
};

}  // namespace kavr6::widgets
