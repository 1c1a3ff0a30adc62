#include "adapters/qt/windows/widgets/row_notes.h"

#include <QApplication>
#include <QPainter>

#include "adapters/qt/windows/style/program_style.h"

namespace kavr6::widgets {
namespace {

/// Between text and note, in widths of a letter.
constexpr int kGap = 2;

QStyle& styleOf(const QStyleOptionViewItem& option) {
  return option.widget != nullptr ? *option.widget->style() : *QApplication::style();
}

QColor InkOf(const QStyleOptionViewItem& row, QPalette::ColorGroup group) {
  const QColor text = row.palette.color(group, QPalette::Text);
  // What is selected has no contrast to spare.
  if (style::ShowsQuietSelection(row, row.widget)) return text;
  if (row.state.testFlag(QStyle::State_Selected)) return row.palette.color(group, QPalette::HighlightedText);
  return style::NoteInk(text, row.palette.color(group, QPalette::Base));
}

}  // namespace

QString spokenRow(const QString& text, const QString& note) {
  return note.isEmpty() ? text : text + ", " + note;
}

void RowNotes::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const QString note = index.data(kNoteRole).toString();
  if (note.isEmpty()) return;
  QStyleOptionViewItem row = option;
  initStyleOption(&row, index);
  const QStyle& style = styleOf(row);
  QRect room = style.subElementRect(QStyle::SE_ItemViewItemText, &row, row.widget);
  const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &row, row.widget) + 1;
  room.adjust(
      margin + row.fontMetrics.horizontalAdvance(row.text) + kGap * row.fontMetrics.averageCharWidth(), 0,
      -margin, 0);
  const QPalette::ColorGroup group = !row.state.testFlag(QStyle::State_Enabled) ? QPalette::Disabled
                                     : row.state.testFlag(QStyle::State_Active) ? QPalette::Active
                                                                                : QPalette::Inactive;
  const Qt::TextElideMode elide = width_ == Width::Whole ? Qt::ElideMiddle : Qt::ElideRight;
  painter->save();
  painter->setFont(row.font);
  painter->setPen(InkOf(row, group));
  painter->drawText(room, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                    row.fontMetrics.elidedText(note, elide, room.width()));
  painter->restore();
}

QSize RowNotes::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QSize size = QStyledItemDelegate::sizeHint(option, index);
  const QString note = index.data(kNoteRole).toString();
  if (width_ == Width::OfView) {
    size.setWidth(1);
  } else if (!note.isEmpty()) {
    size.rheight() += option.fontMetrics.height() / 2;
    size.rwidth() +=
        option.fontMetrics.horizontalAdvance(note) + (kGap + 1) * option.fontMetrics.averageCharWidth();
  }
  return size;
}

}  // namespace kavr6::widgets
