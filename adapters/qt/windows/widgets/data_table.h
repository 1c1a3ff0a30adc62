// A table of texts with titles above its columns.
#pragma once

#include <QTableWidget>
#include <vector>

namespace kavr6::widgets {

/// Rows to be read, not edited; one is picked at a time. Columns are as wide as their texts, but none takes
/// more than its share of a window that is too narrow: what does not fit is cut with dots and told in its
/// tool tip. A row is heard as a whole, with the titles of its values.
class DataTable : public QTableWidget {
  Q_OBJECT

 public:
  struct Cell {
    QString text;
    QString picture;  ///< name in the artwork, before the text
  };

  explicit DataTable(QWidget* parent = nullptr);
  /// Every row has as many cells as there are titles.
  void setContent(const QStringList& titles, const std::vector<std::vector<Cell>>& rows);
  QSize sizeHint() const override;

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void FillCell(int row, int column, const Cell& cell);
  void TellRow(int row);
  void DrawSigns();
  void Fit();
};

}  // namespace kavr6::widgets
