#include "adapters/qt/windows/record_view.h"

#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextCursor>
#include <QTimerEvent>
#include <algorithm>

#include "adapters/qt/base/text.h"

namespace kavr6 {
namespace {

constexpr int kPauseMs = 40;

/// Bold, and nearer to the colour of what is selected.
QTextCharFormat OutstandingFormat(const QPalette& palette) {
  const QColor text = palette.color(QPalette::Active, QPalette::Text);
  const QColor mark = palette.color(QPalette::Active, QPalette::Highlight);
  const auto mixed = [](int a, int b) { return (2 * a + 3 * b) / 5; };
  QTextCharFormat format;
  format.setFontWeight(QFont::Bold);
  format.setForeground(QColor(mixed(text.red(), mark.red()), mixed(text.green(), mark.green()),
                              mixed(text.blue(), mark.blue())));
  return format;
}

/// Keeps what the user has selected, and the place to which the user has scrolled, while text is added.
class UsersPlace {
 public:
  explicit UsersPlace(QPlainTextEdit& edit)
      : edit_(edit),
        follows_(edit.verticalScrollBar()->value() == edit.verticalScrollBar()->maximum()),
        selection_(edit.textCursor()) {
    // Text that is added right behind the selection is not selected.
    selection_.setKeepPositionOnInsert(true);
  }
  UsersPlace(const UsersPlace&) = delete;
  UsersPlace& operator=(const UsersPlace&) = delete;
  ~UsersPlace() {
    QScrollBar& bar = *edit_.verticalScrollBar();
    const int place = bar.value();
    QTextCursor cursor = selection_;
    cursor.setKeepPositionOnInsert(false);
    if (!cursor.hasSelection()) cursor.movePosition(QTextCursor::End);
    edit_.setTextCursor(cursor);
    bar.setValue(follows_ ? bar.maximum() : place);
  }

 private:
  QPlainTextEdit& edit_;
  bool follows_;
  QTextCursor selection_;
};

}  // namespace

QString ShownLines(const std::string& text) { return ToQt(text).remove('\r'); }

RecordView::RecordView(const TextArea& area, QPlainTextEdit& edit)
    : QObject(&edit), area_(area), edit_(edit) {
  edit.setReadOnly(true);
  edit.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  edit.setUndoRedoEnabled(false);
  edit.installEventFilter(this);
}

void RecordView::Refresh() {
  if (!pause_.isActive()) ShowNews();
}

void RecordView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != pause_.timerId()) return;
  pause_.stop();
  ShowNews();
}

void RecordView::ShowNews() {
  if (shownRewrites_ == area_.Rewrites() && shownDropped_ == area_.Dropped() &&
      shown_.size() == area_.Text().size())
    return;
  pause_.start(kPauseMs, this);
  const QSignalBlocker silence(edit_);
  ShowText();
}

void RecordView::ShowText() {
  const UsersPlace place(edit_);
  const std::size_t dropped = area_.Dropped() - shownDropped_;
  if (shownRewrites_ == area_.Rewrites() && dropped < shown_.size()) {
    TakeAway(dropped);
    AddFrom(shown_.size() - dropped);
  } else {
    edit_.clear();
    AddFrom(0);
  }
  shown_ = area_.Text();
  shownRewrites_ = area_.Rewrites();
  shownDropped_ = area_.Dropped();
}

void RecordView::TakeAway(std::size_t codeUnits) {
  if (codeUnits == 0) return;
  QScrollBar& bar = *edit_.verticalScrollBar();
  const int above = bar.maximum() - bar.value();
  QTextCursor start(edit_.document());
  start.setPosition(static_cast<int>(ShownLines(shown_.substr(0, codeUnits)).size()),
                    QTextCursor::KeepAnchor);
  start.removeSelectedText();
  bar.setValue(bar.maximum() - above);
}

void RecordView::AddFrom(std::size_t codeUnits) {
  const std::string& text = area_.Text();
  QTextCursor end(edit_.document());
  end.movePosition(QTextCursor::End);
  const auto add = [&](std::size_t until, const QTextCharFormat& format) {
    if (until <= codeUnits) return;
    end.insertText(ShownLines(text.substr(codeUnits, until - codeUnits)), format);
    codeUnits = until;
  };
  const QTextCharFormat outstanding = OutstandingFormat(edit_.palette());
  for (const TextArea::Stretch& stretch : area_.StandingOut()) {
    add(stretch.start, {});
    add(stretch.end, outstanding);
  }
  add(text.size(), {});
}

bool RecordView::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    // The colours have gone with the palette.
    shownRewrites_ = -1;
    Refresh();
  }
  return false;
}

}  // namespace kavr6
