// What mostly shows: labels, frames, pictures, lamps, bars, lines and the grid.
#include <QAccessible>
#include <QColor>
#include <QGroupBox>
#include <QLabel>
#include <utility>
#include <vector>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/bind_kinds.h"
#include "adapters/qt/windows/widgets/connector_line.h"
#include "adapters/qt/windows/widgets/data_table.h"
#include "adapters/qt/windows/widgets/lamp.h"
#include "adapters/qt/windows/widgets/percent_panel.h"
#include "adapters/qt/windows/widgets/picture.h"
#include "adapters/qt/windows/widgets/summary_grid.h"
#include "platform/controls.h"
#include "platform/grid.h"

namespace kavr6 {
namespace {

QColor ToQt(Colour colour) { return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF}; }

Qt::Alignment ToQt(Grid::Alignment alignment) {
  switch (alignment) {
    case Grid::Alignment::Centre:
      return Qt::AlignHCenter;
    case Grid::Alignment::Right:
      return Qt::AlignRight;
    case Grid::Alignment::Left:
      break;
  }
  return Qt::AlignLeft;
}

struct GridContent {
  struct Row {
    std::vector<Grid::Cell> cells;
    bool merged;
    int height;
    bool operator==(const Row&) const = default;
  };
  std::vector<Row> rows;
  std::vector<int> widths;
  std::vector<std::string> titles;
  bool operator==(const GridContent&) const = default;
};

GridContent ContentOf(const Grid& grid) {
  GridContent content;
  for (int column = 0; column < grid.Columns(); ++column) {
    content.widths.push_back(grid.ColumnWidth(column));
    content.titles.push_back(grid.Title(column));
  }
  for (int row = 0; row < grid.Rows(); ++row) {
    content.rows.push_back({{}, grid.MergeRow(row), grid.RowHeight(row)});
    for (int column = 0; column < grid.Columns(); ++column)
      content.rows.back().cells.push_back(grid.At(row, column));
  }
  return content;
}

void ShowContent(widgets::SummaryGrid& view, const GridContent& content) {
  std::vector<widgets::SummaryGrid::Row> rows;
  for (const GridContent::Row& row : content.rows) {
    rows.push_back({{}, row.merged, row.height});
    for (const Grid::Cell& cell : row.cells)
      rows.back().cells.push_back({kavr6::ToQt(cell.text), kavr6::ToQt(cell.picture), ToQt(cell.alignment)});
  }
  view.setContent(std::move(rows), content.widths);
}

void ShowContent(widgets::DataTable& view, const GridContent& content) {
  QStringList titles;
  for (const std::string& title : content.titles) titles.append(kavr6::ToQt(title));
  std::vector<std::vector<widgets::DataTable::Cell>> rows;
  for (const GridContent::Row& row : content.rows) {
    rows.emplace_back();
    for (const Grid::Cell& cell : row.cells)
      rows.back().push_back({kavr6::ToQt(cell.text), kavr6::ToQt(cell.picture)});
  }
  view.setContent(titles, rows);
}

/// Shows the grid whenever it has changed.
template <class View>
RefreshView ShowIn(View& view, const Grid& grid) {
  return [&grid, &view, shown = GridContent()]() mutable {
    GridContent content = ContentOf(grid);
    if (content == shown) return;
    shown = std::move(content);
    ShowContent(view, shown);
  };
}

/// A name of its own hides the label's text. Where the design says so the user hears of a change at once.
void TellAssistants(QLabel& view, const QString& words) {
  if (view.accessibleName() == words) return;
  view.setAccessibleName(words);
  if (!view.property("announced").toBool()) return;
  QAccessibleEvent change(&view, QAccessible::Alert);
  QAccessible::updateAccessibility(&change);
}

}  // namespace

RefreshView BindGrid(Control& control, QObject& target, const UserAction& act) {
  auto& grid = static_cast<Grid&>(control);
  if (auto* const table = qobject_cast<widgets::DataTable*>(&target)) return ShowIn(*table, grid);
  auto* const view = qobject_cast<widgets::SummaryGrid*>(&target);
  if (view == nullptr) return {};
  QObject::connect(view, &widgets::SummaryGrid::rowDoubleClicked, view,
                   [&grid, act](int row) { act([&grid, row] { grid.DoubleClick(row); }); });
  return ShowIn(*view, grid);
}

RefreshView BindLabel(Control& control, QObject& target, const UserAction& /*act*/) {
  auto* const view = qobject_cast<QLabel*>(&target);
  if (view == nullptr) return {};
  view->setTextFormat(Qt::PlainText);
  return [&label = static_cast<const Label&>(control), view, name = view->accessibleName()] {
    const QString shown = ShownCaption(kavr6::ToQt(label.Caption()));
    // Only a label with a buddy has mnemonics; the design's text stays while it reads the same.
    if (view->buddy() == nullptr) {
      if (view->text() != shown) view->setText(shown);
    } else if (ShownCaption(view->text()) != shown) {
      view->setText(WithoutMnemonic(shown));
    }
    if (!name.isEmpty()) TellAssistants(*view, shown.isEmpty() ? name : name + ": " + shown);
  };
}

RefreshView BindFrame(Control& control, QObject& target, const UserAction& /*act*/) {
  if (IsInput(static_cast<const QWidget&>(target))) return {};
  auto* const box = qobject_cast<QGroupBox*>(&target);
  if (box == nullptr) return [] {};
  return [&frame = static_cast<const Frame&>(control), box] {
    if (!frame.Caption().empty()) box->setTitle(ShownCaption(kavr6::ToQt(frame.Caption())));
  };
}

RefreshView BindPicture(Control& control, QObject& target, const UserAction& /*act*/) {
  auto* const view = qobject_cast<widgets::Picture*>(&target);
  if (view == nullptr) return {};
  return [&picture = static_cast<const Picture&>(control), view] {
    view->setImage(kavr6::ToQt(picture.Image()));
    view->setFaded(picture.Faded());
  };
}

RefreshView BindLamp(Control& control, QObject& target, const UserAction& /*act*/) {
  auto* const view = qobject_cast<widgets::Lamp*>(&target);
  if (view == nullptr) return {};
  return [&lamp = static_cast<const Lamp&>(control), view] {
    view->setState(static_cast<int>(lamp.Light()));
    // A lamp with words of its own is known by them.
    if (!lamp.ToolTip().empty()) view->setAccessibleName(kavr6::ToQt(lamp.ToolTip()));
  };
}

RefreshView BindPercentPanel(Control& control, QObject& target, const UserAction& /*act*/) {
  auto* const view = qobject_cast<widgets::PercentPanel*>(&target);
  if (view == nullptr) return {};
  return [&panel = static_cast<const PercentPanel&>(control), view,
          shown = std::pair(-1, Colour(-1))]() mutable {
    const std::pair wanted(panel.FloodPercent(), panel.FloodColor());
    if (std::exchange(shown, wanted) == wanted) return;
    view->setPercent(wanted.first);
    view->setColour(ToQt(wanted.second));
  };
}

RefreshView BindConnectorLine(Control& control, QObject& target, const UserAction& /*act*/) {
  auto* const view = qobject_cast<widgets::ConnectorLine*>(&target);
  if (view == nullptr) return {};
  return [&line = static_cast<const ConnectorLine&>(control), view] {
    view->setColour(ToQt(line.BorderColor()));
    view->setPlugged(line.Plugged());
  };
}

}  // namespace kavr6
