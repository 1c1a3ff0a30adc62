// Rows with a grey second text.
#pragma once

#include <QStyledItemDelegate>

namespace kavr6::widgets {

/// The role under which an item model gives a row's note.
inline constexpr int kNoteRole = Qt::UserRole + 1;

/// What a screen reader says of a row: its text, and the note behind a comma.
QString spokenRow(const QString& text, const QString& note);

/// Draws the note of a row grey at its right edge. Where both do not fit, the note gives way.
class RowNotes : public QStyledItemDelegate {
  Q_OBJECT

 public:
  /// How wide a row asks to be: for all that is in it, or no wider than its view happens to be. The first
  /// gives way in the note's middle, since a screen can be too small for it; the other at the note's end.
  enum class Width { Whole, OfView };
  RowNotes(Width width, QObject* parent) : QStyledItemDelegate(parent), width_(width) {}
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  Width width_;
};

}  // namespace kavr6::widgets
