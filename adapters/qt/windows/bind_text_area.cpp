#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QSet>
#include <QSignalBlocker>
#include <QTextCursor>
#include <utility>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/bind_kinds.h"
#include "platform/form.h"
#include "platform/text_area.h"

namespace kavr6 {
namespace {

/// The widget ends lines with LF alone. A CR of its own shows as nothing, so that a line's end whose halves
/// come one after the other is one line's end.
QString Shown(const std::string& text) { return ToQt(text).remove('\r'); }
std::string Told(const QString& shown) { return FromQt(QString(shown).replace("\n", "\r\n")); }

int CodeOf(const QKeyEvent& key) {
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) return kEnterKey;
  const bool named = (key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z) ||
                     (key.key() >= Qt::Key_0 && key.key() <= Qt::Key_9);
  return named ? key.key() : 0;
}

/// Text and selection of one text area, both ways. Lives as long as its widget.
class PlainTextTie : public QObject {
 public:
  PlainTextTie(TextArea& area, QPlainTextEdit& edit, UserAction act)
      : QObject(&edit), area_(area), edit_(edit), act_(std::move(act)) {
    edit.setReadOnly(area.ReadOnly());
    edit.setTabChangesFocus(true);
    if (area.ReadOnly()) {
      edit.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
      edit.setUndoRedoEnabled(false);
    } else {
      connect(&edit, &QPlainTextEdit::textChanged, &edit, [this] { act_([this] { Typed(); }); });
      connect(&edit, &QPlainTextEdit::cursorPositionChanged, &edit, [this] { TakeSelection(); });
      connect(&edit, &QPlainTextEdit::selectionChanged, &edit, [this] { TakeSelection(); });
    }
    edit.installEventFilter(this);
  }

  void Refresh() {
    if (telling_) return;
    const QSignalBlocker silence(edit_);
    const bool changed = ShowText();
    const std::pair selection(area_.SelStart(), area_.SelLength());
    if (std::exchange(shownSelection_, selection) != selection || (changed && !area_.ReadOnly()))
      ShowSelection();
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::FocusOut) pressed_.clear();
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.isAutoRepeat()) return false;
    if (event->type() == QEvent::KeyPress) {
      pressed_.insert(key.key());
      return !area_.ReadOnly() && IsMissedMnemonic(key);
    }
    // A key that was pressed elsewhere, to open this window for one, is not released here.
    if (pressed_.remove(key.key())) act_([this, code = CodeOf(key)] { area_.ReleaseKey(code); });
    return false;
  }

 private:
  bool ShowText() {
    const std::string& text = area_.Text();
    const std::size_t size = std::exchange(shownSize_, text.size());
    if (std::exchange(shownRewrites_, area_.Rewrites()) != area_.Rewrites()) {
      edit_.setPlainText(Shown(text));
      return true;
    }
    if (size == text.size()) return false;
    QTextCursor end(edit_.document());
    end.movePosition(QTextCursor::End);
    end.insertText(Shown(text.substr(size)));
    return true;
  }

  void ShowSelection() {
    const std::size_t start = area_.SelStart();
    QTextCursor cursor(edit_.document());
    cursor.setPosition(Position(start));
    cursor.setPosition(Position(start + area_.SelLength()), QTextCursor::KeepAnchor);
    edit_.setTextCursor(cursor);
  }
  int Position(std::size_t codeUnits) const {
    if (codeUnits == area_.Text().size()) return edit_.document()->characterCount() - 1;
    return static_cast<int>(Shown(area_.Text().substr(0, codeUnits)).size());
  }

  // The widget already shows what the user has just typed: the model has to follow, not the widget.
  void Typed() {
    const QScopedValueRollback telling(telling_, true);
    const std::string text = Told(edit_.toPlainText());
    area_.Type(text);
    shownRewrites_ = area_.Text() == text ? area_.Rewrites() : kNothingShown;
    shownSize_ = text.size();
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

  static constexpr int kNothingShown = -1;

  TextArea& area_;
  QPlainTextEdit& edit_;
  UserAction act_;
  int shownRewrites_ = kNothingShown;
  std::size_t shownSize_ = 0;
  std::pair<std::size_t, std::size_t> shownSelection_{};
  QSet<int> pressed_;
  bool telling_ = false;
};

}  // namespace

RefreshView BindTextArea(Control& control, QObject& target, const UserAction& act) {
  auto* const edit = qobject_cast<QPlainTextEdit*>(&target);
  if (edit == nullptr) return {};
  auto* const tie = new PlainTextTie(static_cast<TextArea&>(control), *edit, act);
  return [tie] { tie->Refresh(); };
}

}  // namespace kavr6
