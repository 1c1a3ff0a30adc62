#include "adapters/qt/windows/widgets/data_table.h"

#include <QEvent>
#include <QFocusEvent>
#include <QHeaderView>
#include <QPainter>
#include <algorithm>
#include <numeric>

#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {
namespace {

constexpr int kRowsWanted = 6;
constexpr int kLettersWanted = 110;
constexpr int kPictureRole = Qt::UserRole;

/// For the strong colour of a picked row, on which those of a sign are hard to see.
QPixmap InOneInk(QPixmap sign, const QColor& ink) {
  QPainter painter(&sign);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(sign.rect(), ink);
  return sign;
}

}  // namespace

DataTable::DataTable(QWidget* parent) : QTableWidget(parent) {
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void DataTable::setContent(const QStringList& titles, const std::vector<std::vector<Cell>>& rows) {
  setColumnCount(static_cast<int>(titles.size()));
  setHorizontalHeaderLabels(titles);
  setRowCount(static_cast<int>(rows.size()));
  for (int row = 0; row < rowCount(); ++row) {
    const std::vector<Cell>& cells = rows[static_cast<std::size_t>(row)];
    for (int column = 0; column < columnCount(); ++column)
      FillCell(row, column, cells[static_cast<std::size_t>(column)]);
    TellRow(row);
  }
  clearSelection();
  setCurrentCell(rowCount() == 0 ? -1 : 0, 0, QItemSelectionModel::NoUpdate);
  scrollToTop();
  Fit();
}

void DataTable::FillCell(int row, int column, const Cell& cell) {
  QTableWidgetItem* shown = item(row, column);
  if (!shown) setItem(row, column, shown = new QTableWidgetItem);
  shown->setText(cell.text);
  shown->setToolTip(cell.text);
  shown->setData(kPictureRole, cell.picture);
}

void DataTable::TellRow(int row) {
  QStringList words;
  for (int column = 0; column < columnCount(); ++column) {
    const QString title = horizontalHeaderItem(column)->text();
    const bool value = column > 1 && column + 1 < columnCount();
    words.append((value ? title + ' ' : QString()) + item(row, column)->text());
  }
  item(row, 0)->setData(Qt::AccessibleTextRole, words.join(", "));
}

void DataTable::DrawSigns() {
  const int height = fontMetrics().height();
  const QColor ink = palette().color(QPalette::Text);
  for (int row = 0; row < rowCount(); ++row) {
    const QString picture = item(row, 0)->data(kPictureRole).toString();
    QIcon icon;
    if (!picture.isEmpty()) {
      const QPixmap sign = ArtworkPixmap(picture, {height, height}, devicePixelRatioF(), ink);
      icon.addPixmap(sign);
      // Without the keys a picked row is grey, and its sign as those of the others.
      icon.addPixmap(hasFocus() ? InOneInk(sign, palette().color(QPalette::HighlightedText)) : sign,
                     QIcon::Selected);
    }
    item(row, 0)->setIcon(icon);
  }
}

// The widest column gives way first, down to a fair share.
void DataTable::Fit() {
  const int height = fontMetrics().height();
  setIconSize({height, height});
  verticalHeader()->setDefaultSectionSize(height * 3 / 2);
  DrawSigns();
  if (columnCount() == 0) return;
  std::vector<int> widths;
  widths.reserve(static_cast<std::size_t>(columnCount()));
  for (int column = 0; column < columnCount(); ++column)
    widths.push_back(std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column)) +
                     height / 2);
  const int room = viewport()->width();
  const int fair = room / columnCount();
  for (int over = std::accumulate(widths.begin(), widths.end(), 0) - room; over > 0;) {
    int& widest = *std::ranges::max_element(widths);
    const int less = std::min(over, std::max(widest - fair, 1));
    const int step = std::min(less, std::max(height, 1));
    widest -= step;
    over -= step;
  }
  const int spare = room - std::accumulate(widths.begin(), widths.end(), 0);
  if (spare > 0) widths.back() += spare;
  for (int column = 0; column < columnCount(); ++column)
    setColumnWidth(column, std::max(1, widths[static_cast<std::size_t>(column)]));
}

QSize DataTable::sizeHint() const {
  return {kLettersWanted * fontMetrics().averageCharWidth(), kRowsWanted * fontMetrics().height() * 3 / 2};
}

// Shows where the keys will act. A click picks its row itself.
void DataTable::focusInEvent(QFocusEvent* event) {
  QTableWidget::focusInEvent(event);
  if (event->reason() != Qt::MouseFocusReason && selectedItems().isEmpty() && rowCount() > 0)
    selectRow(std::max(0, currentRow()));
  DrawSigns();
}

void DataTable::focusOutEvent(QFocusEvent* event) {
  QTableWidget::focusOutEvent(event);
  DrawSigns();
}

void DataTable::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  Fit();
}

void DataTable::changeEvent(QEvent* event) {
  QTableWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) Fit();
}

}  // namespace kavr6::widgets
