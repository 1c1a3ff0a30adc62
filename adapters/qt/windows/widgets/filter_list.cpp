#include "adapters/qt/windows/widgets/filter_list.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <numeric>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/widgets/row_notes.h"
#include "platform/row_filter.h"

namespace kavr6::widgets {
namespace {

/// What a row holds as a rule; a longer one gives way.
constexpr const char* kUsualRow = "NEMA 00-00000  0.75 A, 1200 oz in";

}  // namespace

/// The rows of the list that the search has left, in their order.
class FilterList::Rows : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(left_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const int row = rowOf(index);
    switch (role) {
      case Qt::DisplayRole:
        return ToQt(list_->Item(row));
      case kNoteRole:
        return ToQt(list_->ItemNote(row));
      case Qt::AccessibleTextRole:
        return spokenRow(ToQt(list_->Item(row)), ToQt(list_->ItemNote(row)));
      case Qt::ToolTipRole:
        return list_->ItemToolTip(row).empty() ? data(index, Qt::AccessibleTextRole)
                                               : ToQt(list_->ItemToolTip(row));
      default:
        return {};
    }
  }
  int rowOf(const QModelIndex& index) const { return left_[static_cast<std::size_t>(index.row())]; }
  QModelIndex indexOf(int row) const {
    const auto found = std::lower_bound(left_.begin(), left_.end(), row);
    return found == left_.end() || *found != row ? QModelIndex()
                                                 : index(static_cast<int>(found - left_.begin()), 0);
  }
  /// The rows of the list are others now.
  void setList(const ListBox& list) {
    list_ = &list;
    small_.clear();
    units_.clear();
  }
  /// Leaves the rows that fit; all of them when nothing is searched for.
  void leave(const QString& search) {
    beginResetModel();
    left_.clear();
    if (!search.isEmpty()) putInSmallLetters();
    const RowFilter filter(FromQt(search.toLower()), units_);
    if (filter.Empty()) {
      left_.resize(static_cast<std::size_t>(list_->Count()));
      std::iota(left_.begin(), left_.end(), 0);
    } else {
      for (std::size_t row = 0; row < small_.size(); ++row)
        if (filter.Fits(small_[row].text, small_[row].note)) left_.push_back(static_cast<int>(row));
    }
    endResetModel();
  }

 private:
  struct Small {
    std::string text;
    std::string note;
  };
  /// Once and not with every letter that is typed.
  void putInSmallLetters() {
    if (!small_.empty()) return;
    for (int row = 0; row < list_->Count(); ++row) {
      const std::string note = FromQt(ToQt(list_->ItemNote(row)).toLower());
      small_.push_back({FromQt(ToQt(list_->Item(row)).toLower()), note});
      RowFilter::CollectUnits(note, units_);
    }
  }

  const ListBox* list_ = nullptr;
  std::vector<int> left_;
  std::vector<Small> small_;
  std::set<std::string> units_;
};

FilterList::FilterList(QWidget* parent)
    : QListView(parent), field_(new QLineEdit(this)), rows_(new Rows(this)) {
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setItemDelegate(new RowNotes(RowNotes::Width::OfView, this));
  setModel(rows_);
  field_->setClearButtonEnabled(true);
  field_->installEventFilter(this);
  connect(field_, &QLineEdit::textChanged, this, [this] { search(); });
  connect(this, &QListView::doubleClicked, this,
          [this](const QModelIndex& index) { emit pickedTwice(rows_->rowOf(index)); });
  placeField();
}

void FilterList::follow(const ListBox& list) {
  list_ = &list;
  field_->setAccessibleName("Find in: " + accessibleName());
}

void FilterList::setHint(const QString& hint) {
  field_->setPlaceholderText(hint);
  field_->setToolTip(hint);
}

void FilterList::refresh() {
  if (shownRevision_ != list_->Revision()) {
    shownRevision_ = list_->Revision();
    rows_->setList(*list_);
    const QSignalBlocker silence(field_);
    field_->clear();
    search();
  }
  if (shownNotes_ != list_->NoteRevision()) {
    shownNotes_ = list_->NoteRevision();
    rows_->setList(*list_);
    viewport()->update();
  }
  showSelection();
}

void FilterList::showSelection() {
  const QModelIndex wanted = list_->ListIndex() < 0 ? QModelIndex() : rows_->indexOf(list_->ListIndex());
  const QModelIndexList selected = selectedIndexes();
  if (wanted.isValid() ? selected.contains(wanted) : selected.isEmpty()) return;
  const QScopedValueRollback showing(showing_, true);
  setCurrentIndex(wanted);
  if (!wanted.isValid()) clearSelection();
}

void FilterList::search() {
  if (list_ == nullptr) return;
  stepped_ = false;
  {
    const QScopedValueRollback showing(showing_, true);
    rows_->leave(field_->text());
  }
  showSelection();
  if (currentIndex().isValid()) scrollTo(currentIndex(), PositionAtCenter);
}

void FilterList::endSearch() {
  field_->clear();
  setFocus(Qt::OtherFocusReason);
}

void FilterList::take() {
  if (rows_->rowCount() == 0) return;
  if (!stepped_ || !currentIndex().isValid()) setCurrentIndex(rows_->index(0, 0));
  endSearch();
}

void FilterList::step(QKeyEvent& key) {
  if (rows_->rowCount() == 0) return;
  if (currentIndex().isValid()) {
    keyPressEvent(&key);
  } else {
    setCurrentIndex(rows_->index(0, 0));
  }
  stepped_ = true;
}

bool FilterList::useKey(QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      step(key);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (field_->text().isEmpty()) return false;
      take();
      return true;
    case Qt::Key_Escape:
      if (field_->text().isEmpty()) return false;
      endSearch();
      return true;
    default:
      return false;
  }
}

bool FilterList::eventFilter(QObject* watched, QEvent* event) {
  if (watched == field_ && event->type() == QEvent::FocusIn) emit fieldEntered();
  if (watched == field_ && event->type() == QEvent::KeyPress) return useKey(static_cast<QKeyEvent&>(*event));
  return QListView::eventFilter(watched, event);
}

void FilterList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QListView::selectionChanged(selected, deselected);
  if (!showing_ && !selected.isEmpty()) emit picked(rows_->rowOf(selected.indexes().first()));
}

void FilterList::placeField() {
  const int height = field_->sizeHint().height();
  setViewportMargins(0, height, 0, 0);
  field_->setGeometry(frameWidth(), frameWidth(), viewport()->width(), height);  // beside the scroll bar
}

void FilterList::resizeEvent(QResizeEvent* event) {
  QListView::resizeEvent(event);
  placeField();
}

// The next one who opens the window sees all rows.
void FilterList::hideEvent(QHideEvent* event) {
  QListView::hideEvent(event);
  if (!event->spontaneous()) field_->clear();
}

void FilterList::changeEvent(QEvent* event) {
  QListView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) placeField();
}

void FilterList::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (rows_->rowCount() > 0 || field_->text().isEmpty()) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(viewport()->rect().adjusted(4, 4, -4, -4),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, "No row has all these words");
}

QSize FilterList::minimumSizeHint() const {
  const int width = fontMetrics().horizontalAdvance(kUsualRow) + verticalScrollBar()->sizeHint().width();
  return {width + 2 * frameWidth(), QListView::minimumSizeHint().height() + field_->sizeHint().height()};
}

}  // namespace kavr6::widgets
