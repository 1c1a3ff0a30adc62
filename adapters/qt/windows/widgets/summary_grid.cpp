#include "adapters/qt/windows/widgets/summary_grid.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <array>
#include <numeric>

#include "adapters/qt/windows/style/colours.h"
#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kTextMargin = 6;
constexpr int kTitleRole = Qt::UserRole;
constexpr int kPictureRole = Qt::UserRole + 1;
constexpr int kHintRole = Qt::UserRole + 2;

/// What stands in the first rows of a section that is still empty.
constexpr std::array kHints{"Not looked at yet", "Double click to set it up"};

/// A number with its unit: the two stand together where the columns meet.
bool IsQuantity(const SummaryGrid::Row& row) {
  bool number = false;
  if (row.merged || row.cells.size() != 2 || row.cells[1].text.isEmpty()) return false;
  QLocale::c().toDouble(row.cells[0].text, &number);
  return number;
}

/// Titles as a bold tinted band, dividers as their picture, the rest as plain text.
class RowPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QPalette& palette = option.palette;
    const QColor ink = palette.color(QPalette::Text);
    painter->save();
    const QString picture = index.data(kPictureRole).toString();
    const QPixmap pixmap =
        ArtworkPixmap(picture, option.rect.size(), painter->device()->devicePixelRatioF(), ink);
    if (!pixmap.isNull()) painter->drawPixmap(option.rect.topLeft(), pixmap);
    const bool title = index.data(kTitleRole).toBool();
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool current = selected && option.widget->hasFocus();
    if (current)
      painter->fillRect(option.rect, palette.highlight());
    else if (title)
      painter->fillRect(option.rect,
                        Mixed(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 0.2));
    else if (selected)  // what the style has drawn beneath
      painter->fillRect(option.rect, palette.base());
    QFont font = option.font;
    font.setBold(title);
    painter->setFont(font);
    const bool hint = !index.data(kHintRole).toString().isEmpty();
    const QColor pale = style::NoteInk(ink, palette.color(QPalette::Base));
    painter->setPen(current ? palette.color(QPalette::HighlightedText) : hint ? pale : ink);
    PaintText(*painter, option, index);
    painter->restore();
  }

 private:
  static void PaintText(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) {
    const QRect box = option.rect.adjusted(kTextMargin, 0, -kTextMargin, 0);
    const QString hint = index.data(kHintRole).toString();
    const QString text = hint.isEmpty() ? index.data().toString() : hint;
    const int place = index.data(Qt::TextAlignmentRole).toInt() | Qt::AlignVCenter;
    if (option.rect.height() >= 2 * option.fontMetrics.height())
      painter.drawText(box, place | Qt::TextWordWrap, text);
    else
      painter.drawText(box, place, painter.fontMetrics().elidedText(text, Qt::ElideRight, box.width()));
  }
};

}  // namespace

SummaryGrid::SummaryGrid(QWidget* parent) : QTableWidget(parent) {
  setItemDelegate(new RowPainter(this));
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
    header->hide();
    header->setMinimumSectionSize(1);
    header->setSectionResizeMode(QHeaderView::Fixed);
  }
  connect(this, &QTableWidget::cellDoubleClicked, this, [this](int row, int) { emit rowDoubleClicked(row); });
}

void SummaryGrid::setContent(std::vector<Row> rows, std::vector<int> columnWidthsTwips) {
  rows_ = std::move(rows);
  widths_ = std::move(columnWidthsTwips);
  setRowCount(static_cast<int>(rows_.size()));
  setColumnCount(static_cast<int>(widths_.size()));
  for (int row = 0; row < rowCount(); ++row) FillRow(row);
  for (int row = 0; row < rowCount(); ++row) ShowHints(row);
  FitColumns();
  FitRows();
}

bool SummaryGrid::IsDivider(const Row& row) const {
  return !row.cells.empty() && !row.cells[0].picture.isEmpty();
}

bool SummaryGrid::IsTitle(const Row& row) const {
  return row.merged && row.heightTwips == 0 && !IsDivider(row);
}

void SummaryGrid::FillRow(int row) {
  const Row& content = rows_[static_cast<std::size_t>(row)];
  const int columns = std::min(columnCount(), static_cast<int>(content.cells.size()));
  const auto cell = [&content](int column) -> const Cell& {
    return content.cells[static_cast<std::size_t>(column)];
  };
  for (int column = 0; column < columns; ++column) {
    QTableWidgetItem* shown = item(row, column);
    if (!shown) setItem(row, column, shown = new QTableWidgetItem);
    shown->setText(cell(column).text);
    const bool leftOfUnit = column == 0 && IsQuantity(content);
    shown->setTextAlignment((leftOfUnit ? Qt::AlignRight : cell(column).alignment) | Qt::AlignVCenter);
    shown->setFlags(IsDivider(content) ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    shown->setData(kTitleRole, IsTitle(content));
    shown->setData(kPictureRole, cell(column).picture);
    shown->setData(kHintRole, {});
    // A row is heard as a whole.
    const bool pair = column == 0 && columns > 1 && !content.merged && !IsDivider(content);
    shown->setData(Qt::AccessibleTextRole,
                   pair ? QVariant((cell(0).text + ' ' + cell(1).text).trimmed()) : QVariant());
  }
  for (int column = 0; column < columns;) {
    int end = column + 1;
    while (content.merged && end < columns && cell(end).text == cell(column).text) ++end;
    if (columnSpan(row, column) != end - column) setSpan(row, column, 1, end - column);
    column = end;
  }
}

bool SummaryGrid::IsEmpty(const Row& row) const {
  return std::ranges::all_of(row.cells, [](const Cell& cell) { return cell.text.isEmpty(); });
}

// A title that ends as a question, with nothing below it.
void SummaryGrid::ShowHints(int title) {
  const auto at = [this](int row) -> const Row& { return rows_[static_cast<std::size_t>(row)]; };
  if (!IsTitle(at(title)) || !at(title).cells[0].text.endsWith(':')) return;
  int end = title + 1;
  while (end < rowCount() && IsEmpty(at(end))) ++end;
  const bool whole = end == rowCount() || IsDivider(at(end));
  const int hints = std::min(static_cast<int>(kHints.size()), end - title - 1);
  for (int i = 0; whole && i < hints; ++i) {
    QTableWidgetItem& shown = *item(title + 1 + i, 0);
    shown.setData(kHintRole, kHints[static_cast<std::size_t>(i)]);
    shown.setData(Qt::AccessibleTextRole, kHints[static_cast<std::size_t>(i)]);
    setSpan(title + 1 + i, 0, 1, columnCount());
  }
}

int SummaryGrid::LeastHeight(const Row& row) const {
  if (row.heightTwips == 0) return fontMetrics().height() + 2;
  const int given = row.heightTwips / kTwipsPerPixel;
  // A tall row is there for two lines of text, whatever the font.
  return IsDivider(row) ? given : std::max(given, 2 * fontMetrics().height() + 2);
}

void SummaryGrid::FitRows() {
  int least = 0;
  int ordinary = 0;
  for (const Row& row : rows_) {
    least += LeastHeight(row);
    if (row.heightTwips == 0) ++ordinary;
  }
  const int spare = std::max(0, viewport()->height() - least);
  const int mostExtra = fontMetrics().height() * 8 / 5;
  const int extra = ordinary == 0 ? 0 : std::min(spare / ordinary, mostExtra);
  for (int row = 0; row < rowCount(); ++row) {
    const Row& content = rows_[static_cast<std::size_t>(row)];
    setRowHeight(row, LeastHeight(content) + (content.heightTwips == 0 ? extra : 0));
  }
}

int SummaryGrid::LeastWidth(int column) const {
  int width = 0;
  for (int row = 0; row < rowCount(); ++row)
    if (const QTableWidgetItem* shown = item(row, column); shown && columnSpan(row, column) == 1)
      width = std::max(width, fontMetrics().horizontalAdvance(shown->text()));
  return width + 2 * kTextMargin + 2;
}

void SummaryGrid::FitColumns() {
  const int total = std::accumulate(widths_.begin(), widths_.end(), 0);
  int share = viewport()->width();
  // From right to left, since the longer texts are at the right; what room they take, the left ones lose.
  for (int column = columnCount() - 1; column >= 0 && total > 0; --column) {
    const int fair = viewport()->width() * widths_[static_cast<std::size_t>(column)] / total;
    const int width = column == 0 ? share : std::max(fair, LeastWidth(column));
    setColumnWidth(column, std::max(1, width));
    share -= width;
  }
}

QSize SummaryGrid::sizeHint() const {
  const int words = fontMetrics().horizontalAdvance("Close to release");
  return {2 * (words + 3 * kTextMargin), 23 * (fontMetrics().height() + 2)};
}

QSize SummaryGrid::minimumSizeHint() const {
  QFont bold = font();
  bold.setBold(true);
  const int title = QFontMetrics(bold).horizontalAdvance("Regen resistor (external)") + 2 * kTextMargin;
  const int words = fontMetrics().horizontalAdvance("Motion OutClose to release") + 4 * kTextMargin;
  const int bar = verticalScrollBar()->sizeHint().width();
  return {std::max(title, words) + bar + 2 * frameWidth(), 8 * fontMetrics().height()};
}

void SummaryGrid::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && currentRow() >= 0)
    emit rowDoubleClicked(currentRow());
  else
    QTableWidget::keyPressEvent(event);
}

// Shows where the keys will act. A click picks its row itself.
void SummaryGrid::focusInEvent(QFocusEvent* event) {
  QTableWidget::focusInEvent(event);
  if (event->reason() != Qt::MouseFocusReason && selectedItems().isEmpty())
    selectRow(std::max(0, currentRow()));
}

void SummaryGrid::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  FitColumns();
  FitRows();
}

void SummaryGrid::changeEvent(QEvent* event) {
  QTableWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) FitRows();
}

}  // namespace kavr6::widgets
