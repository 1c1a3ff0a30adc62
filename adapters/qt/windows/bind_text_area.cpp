#include <QApplication>
#include <QFontDatabase>
#include <QHash>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTextCursor>
#include <utility>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/bind_kinds.h"
#include "adapters/qt/windows/record_view.h"
#include "platform/form.h"
#include "platform/text_area.h"

namespace kavr6 {
namespace {

std::string Told(const QString& shown) { return FromQt(QString(shown).replace("\n", "\r\n")); }

int CodeOf(const QKeyEvent& key) {
  // With these keys Enter types no line's end.
  const bool changed = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) return changed ? 0 : kEnterKey;
  const bool named = (key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z) ||
                     (key.key() >= Qt::Key_0 && key.key() <= Qt::Key_9);
  return named ? key.key() : 0;
}

/// -1 and 1 for Ctrl with the arrows up and down.
int CtrlArrowOf(const QKeyEvent& key) {
  if (!key.modifiers().testFlag(Qt::ControlModifier)) return 0;
  return key.key() == Qt::Key_Up ? -1 : key.key() == Qt::Key_Down ? 1 : 0;
}

/// Text and selection of a text area for typing, both ways. Lives as long as its widget.
class PlainTextTie : public QObject {
 public:
  PlainTextTie(TextArea& area, QPlainTextEdit& edit, UserAction act)
      : QObject(&edit), area_(area), edit_(edit), act_(std::move(act)) {
    connect(&edit, &QPlainTextEdit::textChanged, &edit, [this] { act_([this] { Typed(); }); });
    connect(&edit, &QPlainTextEdit::cursorPositionChanged, &edit, [this] { TakeSelection(); });
    connect(&edit, &QPlainTextEdit::selectionChanged, &edit, [this] { TakeSelection(); });
    edit.installEventFilter(this);
  }

  void Refresh() {
    if (telling_) return;
    const QSignalBlocker silence(edit_);
    const bool changed = Told(edit_.toPlainText()) != area_.Text();
    if (changed) edit_.setPlainText(ShownLines(area_.Text()));
    const std::pair selection(area_.SelStart(), area_.SelLength());
    if (std::exchange(shownSelection_, selection) != selection || changed) ShowSelection();
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::FocusOut) pressed_.clear();
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (event->type() == QEvent::KeyPress) return Pressed(key);
    // A key that was pressed elsewhere, to open this window for one, is not released here.
    if (!key.isAutoRepeat() && pressed_.contains(key.key()))
      act_([this, code = pressed_.take(key.key())] { area_.ReleaseKey(code); });
    return false;
  }

 private:
  bool Pressed(const QKeyEvent& key) {
    if (const int direction = CtrlArrowOf(key); direction != 0) {
      act_([this, direction] { area_.PressCtrlArrow(direction); });
      return true;
    }
    if (!key.isAutoRepeat()) pressed_.insert(key.key(), CodeOf(key));
    return IsMissedMnemonic(key);
  }

  void ShowSelection() {
    const std::size_t start = area_.SelStart();
    QTextCursor cursor(edit_.document());
    cursor.setPosition(Position(start));
    cursor.setPosition(Position(start + area_.SelLength()), QTextCursor::KeepAnchor);
    edit_.setTextCursor(cursor);
  }
  int Position(std::size_t codeUnits) const {
    return static_cast<int>(ShownLines(area_.Text().substr(0, codeUnits)).size());
  }

  // The widget already shows what the user has just typed: the model has to follow, not the widget.
  void Typed() {
    const QScopedValueRollback telling(telling_, true);
    const std::string text = Told(edit_.toPlainText());
    area_.Type(text);
    if (area_.SelStart() == text.size() && area_.SelLength() == 0) TakeSelection();
  }

  void TakeSelection() {
    const QString shown = edit_.toPlainText();
    if (Told(shown) != area_.Text()) return;
    const QScopedValueRollback telling(telling_, true);
    const QTextCursor cursor = edit_.textCursor();
    const std::size_t start = Told(shown.left(cursor.selectionStart())).size();
    const std::size_t end = Told(shown.left(cursor.selectionEnd())).size();
    shownSelection_ = {start, end - start};
    area_.SetSelection(start, end - start);
  }

  TextArea& area_;
  QPlainTextEdit& edit_;
  UserAction act_;
  std::pair<std::size_t, std::size_t> shownSelection_{};
  QHash<int, int> pressed_;  // codes by keys
  bool telling_ = false;
};

}  // namespace

RefreshView BindTextArea(Control& control, QObject& target, const UserAction& act) {
  auto* const edit = qobject_cast<QPlainTextEdit*>(&target);
  if (edit == nullptr) return {};
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPointSizeF(std::max(fixed.pointSizeF(), QApplication::font().pointSizeF()));
  edit->setFont(fixed);
  edit->setTabChangesFocus(true);
  auto& area = static_cast<TextArea&>(control);
  if (area.ReadOnly()) {
    auto* const view = new RecordView(area, *edit);
    return [view] { view->Refresh(); };
  }
  auto* const tie = new PlainTextTie(area, *edit, act);
  return [tie] { tie->Refresh(); };
}

}  // namespace kavr6
