#include "adapters/qt/windows/dialog_page.h"

#include <QBoxLayout>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <array>
#include <memory>

#include "adapters/qt/windows/widgets/large_label.h"
#include "adapters/qt/windows/widgets/page_area.h"

namespace kavr6 {
namespace {

constexpr int kDigits = 9;          // that a field for a number has room for
constexpr int kButtonLetters = 11;  // of the least width of a button
constexpr double kHeadingTimes = 1.25;
constexpr double kMostGrowth = 1.25;  // of a window that larger would only be emptier
constexpr int kAlignedColumns = 3;

bool IsButtonRow(QLayoutItem& item) {
  return item.layout() != nullptr && item.layout()->objectName() == "buttonRow";
}

/// Moves the item, whatever it is.
void Add(QBoxLayout& column, std::unique_ptr<QLayoutItem> item, int stretch) {
  const Qt::Alignment alignment = item->alignment();
  if (QLayout* const layout = item->layout()) {
    static_cast<void>(item.release());  // is the layout itself
    column.addLayout(layout, stretch);
  } else if (QWidget* const widget = item->widget()) {
    column.addWidget(widget, stretch, alignment);
  } else {
    column.addItem(item.release());
    column.setStretch(column.count() - 1, stretch);
  }
}

/// A row of columns, and not of a few controls.
bool HoldsColumns(const QLayout& layout) {
  if (qobject_cast<const QHBoxLayout*>(&layout) == nullptr) return false;
  for (int i = 0; i < layout.count(); ++i)
    if (layout.itemAt(i)->layout() != nullptr) return true;
  return false;
}

/// The fields of grids in line with one another: each of the first columns takes the widest of its kind.
void AlignColumns(const QWidget& window) {
  std::array<int, kAlignedColumns> widths{};
  QList<QGridLayout*> grids;
  for (QGridLayout* grid : window.findChildren<QGridLayout*>())
    if (grid->objectName().endsWith("Fields")) grids << grid;
  const auto eachCell = [](QGridLayout& grid, const auto& visit) {
    for (int i = 0; i < grid.count(); ++i) {
      int row = 0, column = 0, rows = 0, columns = 0;
      grid.getItemPosition(i, &row, &column, &rows, &columns);
      if (columns == 1 && column < kAlignedColumns) visit(*grid.itemAt(i), std::size_t(column));
    }
  };
  for (QGridLayout* grid : grids) {
    eachCell(*grid, [&](const QLayoutItem& item, std::size_t column) {
      widths.at(column) = std::max(widths.at(column), item.sizeHint().width());
    });
  }
  for (QGridLayout* grid : grids)
    for (int column = 0; column < kAlignedColumns; ++column)
      grid->setColumnMinimumWidth(column, widths.at(std::size_t(column)));
}

}  // namespace

DialogPage::DialogPage(QDialog& dialog)
    : QObject(&dialog),
      dialog_(dialog),
      designed_(dialog.testAttribute(Qt::WA_Resized) ? dialog.size() : QSize()) {
  auto* const column = qobject_cast<QBoxLayout*>(dialog.layout());
  if (column == nullptr) return;
  PutIntoArea(*column);
  NoteGaps();
  AddHeading(*column);
  SettleMeasures();
  dialog.installEventFilter(this);
}

// What a design does not tell is the style's gap, from the outermost layout inwards.
void DialogPage::NoteGaps() {
  const int untold = dialog_.style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, &dialog_);
  for (QLayout* layout : dialog_.findChildren<QLayout*>()) {
    if (auto* const grid = qobject_cast<QGridLayout*>(layout)) {
      gaps_.push_back({grid, grid->horizontalSpacing() == untold, grid->verticalSpacing() == untold});
    } else {
      gaps_.push_back({layout, layout->spacing() == untold, true});
    }
  }
}

void DialogPage::SettleGaps(int gap) {
  for (const Gaps& gaps : gaps_) {
    if (auto* const grid = qobject_cast<QGridLayout*>(gaps.layout)) {
      if (gaps.across) grid->setHorizontalSpacing(gap);
      if (gaps.down) grid->setVerticalSpacing(gap);
    } else if (gaps.across) {
      gaps.layout->setSpacing(HoldsColumns(*gaps.layout) ? 2 * gap : gap);
    }
  }
}

void DialogPage::PutIntoArea(QBoxLayout& column) {
  auto* const area = new widgets::PageArea(&dialog_);
  auto* const page =
      new QWidget(area);  // in another window the controls would lose their place for the Tab key
  auto* const inside = new QVBoxLayout(page);
  inside->setContentsMargins({});
  while (column.count() > 0 && !IsButtonRow(*column.itemAt(0))) {
    const int stretch = column.stretch(0);
    Add(*inside, std::unique_ptr<QLayoutItem>(column.takeAt(0)), stretch);
  }
  area->setWidget(page);
  column.insertWidget(0, area, 1);
}

void DialogPage::AddHeading(QBoxLayout& column) {
  const QVariant words = dialog_.property("heading");
  if (words.isValid() && words.toString().isEmpty()) return;
  auto* const heading = new widgets::LargeLabel(&dialog_);
  heading->setObjectName("dialogHeading");
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  heading->setText(words.isValid() ? words.toString() : dialog_.windowTitle());
  if (!words.isValid()) connect(&dialog_, &QWidget::windowTitleChanged, heading, &QLabel::setText);
  column.insertWidget(0, heading);
  heading_ = heading;
}

void DialogPage::SettleMeasures() {
  const QFontMetrics letters = dialog_.fontMetrics();
  const int line = letters.height();
  const int gap = line / 2;
  if (heading_ != nullptr) static_cast<widgets::LargeLabel*>(heading_)->setTimes(kHeadingTimes);
  SettleGaps(gap);
  dialog_.layout()->setContentsMargins(line, line * 3 / 4, line, line * 3 / 4);
  dialog_.layout()->setSpacing(line * 3 / 4);
  for (QWidget* widget : dialog_.findChildren<QWidget*>()) {
    if (const auto* const group = qobject_cast<QGroupBox*>(widget); group != nullptr && group->layout())
      group->layout()->setContentsMargins(group->isFlat() ? QMargins(0, gap / 2, 0, 0)
                                                          : QMargins(line * 2 / 3, gap, line * 2 / 3, gap));
    if (auto* const field = qobject_cast<QLineEdit*>(widget);
        field != nullptr && field->alignment().testFlag(Qt::AlignRight))
      field->setFixedWidth(letters.horizontalAdvance('0') * kDigits + gap);
    if (qobject_cast<QPushButton*>(widget) != nullptr && widget->parentWidget() == &dialog_)
      widget->setMinimumWidth(letters.averageCharWidth() * kButtonLetters);
  }
  AlignColumns(dialog_);
}

// A window as large as its contents were becomes as large as they are. One that the user has made smaller
// stays so; one that is larger only grows.
void DialogPage::FollowContents() {
  QSize wanted = dialog_.layout()->totalSizeHint().expandedTo(designed_);
  // Texts in several lines need the more height the narrower they are.
  if (dialog_.layout()->hasHeightForWidth())
    wanted.setHeight(std::max(designed_.height(), dialog_.layout()->totalHeightForWidth(wanted.width())));
  if (wanted == wanted_) return;
  const QSize before = std::exchange(wanted_, wanted);
  const QSize now = dialog_.size();  // a most size that is smaller changes it
  const QString grows = dialog_.property("grows").toString();
  const QSize most = (QSizeF(wanted) * kMostGrowth).toSize();
  dialog_.setMaximumSize(grows == "both" ? QWIDGETSIZE_MAX : most.width(),
                         grows.isEmpty() ? most.height() : QWIDGETSIZE_MAX);
  if (before.isEmpty() || dialog_.isMaximized()) return;
  const QRect screen = dialog_.screen()->availableGeometry();
  const QSize room = screen.size() - (dialog_.frameGeometry().size() - dialog_.size());
  const int slack = 2 * dialog_.fontMetrics().height();  // the screen may have held the window back
  const auto side = [&](int is, int was, int becomes, int end) {
    if (is < std::min(was, end) - slack) return is;
    return is <= was && grows.isEmpty() ? std::min(becomes, end) : std::max(is, std::min(becomes, end));
  };
  dialog_.resize(side(now.width(), before.width(), wanted.width(), room.width()),
                 side(now.height(), before.height(), wanted.height(), room.height()));
  const int below = dialog_.frameGeometry().bottom() - screen.bottom();
  if (below > 0 && dialog_.isVisible())
    dialog_.move(dialog_.x(), std::max(dialog_.y() - below, screen.top()));
}

bool DialogPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show) FollowContents();
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) SettleMeasures();
  return QObject::eventFilter(watched, event);
}

}  // namespace kavr6
