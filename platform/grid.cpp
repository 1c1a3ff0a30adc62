#include "platform/grid.h"

#include "platform/runtime_error.h"

namespace kavr6 {

Grid::Grid(Form& form, std::string name, int rows, int columns)
    : Control(form, std::move(name), ControlKind::Grid),
      rows_(rows),
      columns_(columns),
      content_(static_cast<std::size_t>(rows)),
      columnsAt_(static_cast<std::size_t>(columns)) {
  for (Row& row : content_) row.cells.resize(static_cast<std::size_t>(columns));
}

void Grid::SetRows(std::vector<std::vector<Cell>> rows) {
  std::vector<Row> content;
  for (std::vector<Cell>& cells : rows) {
    cells.resize(static_cast<std::size_t>(columns_));
    content.push_back({.cells = std::move(cells)});
  }
  rows_ = static_cast<int>(content.size());
  Assign(content_, content);
}

const Grid::Row& Grid::RowAt(int row) const {
  if (row < 0 || row >= rows_) RaiseSubscript();
  return content_[static_cast<std::size_t>(row)];
}

const Grid::Cell& Grid::At(int row, int column) const {
  if (column < 0 || column >= columns_) RaiseSubscript();
  return RowAt(row).cells[static_cast<std::size_t>(column)];
}

void Grid::SetText(int row, int column, const std::string& text) { Assign(CellAt(row, column).text, text); }
void Grid::SetPicture(int row, int column, const std::string& picture) {
  Assign(CellAt(row, column).picture, picture);
}
void Grid::SetAlignment(int row, int column, Alignment alignment) {
  Assign(CellAt(row, column).alignment, alignment);
}
void Grid::SetMergeRow(int row, bool merged) { Assign(RowAt(row).merged, merged); }
void Grid::SetRowHeight(int row, int height) { Assign(RowAt(row).height, height); }

const Grid::Column& Grid::ColumnAt(int column) const {
  if (column < 0 || column >= columns_) RaiseSubscript();
  return columnsAt_[static_cast<std::size_t>(column)];
}

void Grid::SetMergeColumn(int column, bool merged) { Assign(ColumnAt(column).merged, merged); }
void Grid::SetColumnWidth(int column, int width) { Assign(ColumnAt(column).width, width); }

void Grid::SetTitle(int column, const std::string& title) { Assign(ColumnAt(column).title, title); }

void Grid::DoubleClick(int row) {
  RowAt(row);
  if (UserFocuses()) DoubleClicked.Raise(row);
}

}  // namespace kavr6
