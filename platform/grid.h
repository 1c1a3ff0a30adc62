// The grid control of the main screen.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/control.h"

namespace kavr6 {

/// A grid of text cells that cannot be edited. Its columns may have titles. Rows can be merged: neighbouring
/// cells of such a row that hold the same text are shown as one. Cells outside the grid are a RuntimeError.
class Grid : public Control {
 public:
  enum class Alignment { Left, Centre, Right };
  struct Cell {
    std::string text = {};
    std::string picture = {};  ///< name in the artwork, behind the text
    Alignment alignment = Alignment::Left;
    bool operator==(const Cell&) const = default;
  };

  Grid(Form& form, std::string name, int rows, int columns);
  int Rows() const { return rows_; }
  int Columns() const { return columns_; }
  /// Replaces all rows by new ones of ordinary height; cells that are missing are empty.
  void SetRows(std::vector<std::vector<Cell>> rows);
  const Cell& At(int row, int column) const;
  const std::string& Text(int row, int column) const { return At(row, column).text; }
  void SetText(int row, int column, const std::string& text);
  void SetPicture(int row, int column, const std::string& picture);
  void SetAlignment(int row, int column, Alignment alignment);
  bool MergeRow(int row) const { return RowAt(row).merged; }
  void SetMergeRow(int row, bool merged);
  /// Twips; 0 leaves the height to the view.
  int RowHeight(int row) const { return RowAt(row).height; }
  void SetRowHeight(int row, int height);
  /// Neighbours in a merged column that hold the same text belong together. Views write the text in each row
  /// all the same: one word for several rows cannot be read across.
  bool MergeColumn(int column) const { return ColumnAt(column).merged; }
  void SetMergeColumn(int column, bool merged);
  const std::string& Title(int column) const { return ColumnAt(column).title; }
  void SetTitle(int column, const std::string& title);
  int ColumnWidth(int column) const { return ColumnAt(column).width; }
  void SetColumnWidth(int column, int width);

  /// Row of the last double click.
  Event<int> DoubleClicked;
  void DoubleClick(int row);

 private:
  struct Row {
    std::vector<Cell> cells;
    bool merged = false;
    int height = 0;
    bool operator==(const Row&) const = default;
  };
  struct Column {
    int width = 0;
    bool merged = false;
    std::string title;
  };
  const Column& ColumnAt(int column) const;
  Column& ColumnAt(int column) { return const_cast<Column&>(std::as_const(*this).ColumnAt(column)); }
  const Row& RowAt(int row) const;
  Row& RowAt(int row) { return const_cast<Row&>(std::as_const(*this).RowAt(row)); }
  Cell& CellAt(int row, int column) { return const_cast<Cell&>(At(row, column)); }

  int rows_;
  int columns_;
  std::vector<Row> content_;
  std::vector<Column> columnsAt_;
};

}  // namespace kavr6
