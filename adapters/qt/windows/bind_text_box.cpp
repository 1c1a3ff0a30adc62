#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/bind_kinds.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {
namespace {

/// Text and selection of one text box, both ways. Lives as long as its widget.
class LineEditTie : public QObject {
 public:
  LineEditTie(TextBox& box, QLineEdit& edit, UserAction act)
      : QObject(&edit), box_(box), edit_(edit), act_(std::move(act)) {
    connect(&edit, &QLineEdit::textEdited, &edit, [this] { act_([this] { Typed(); }); });
    connect(&edit, &QLineEdit::cursorPositionChanged, &edit, [this] { TakeSelection(); });
    connect(&edit, &QLineEdit::selectionChanged, &edit, [this] { TakeSelection(); });
    edit.installEventFilter(this);
  }

  void Refresh() {
    if (telling_) return;
    const QSignalBlocker silence(edit_);
    if (const QString text = ToQt(box_.Text()); edit_.text() != text) edit_.setText(text);
    if (box_.Owner().FocusedControl() != &box_) {
      edit_.home(false);  // of a long text the beginning is shown
      return;
    }
    const int start = Position(box_.SelStart());
    const int length = Position(box_.SelStart() + box_.SelLength()) - start;
    if (Start() == start && edit_.selectionLength() == length) return;
    edit_.deselect();
    if (length > 0) {
      edit_.setSelection(start, length);
    } else {
      edit_.setCursorPosition(start);
    }
  }

 protected:
  // A click into a field that did not have the focus puts the cursor where it hit and so takes back the
  // selection that comes with entering; unless the user has drawn one, the whole text is selected again.
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && IsMissedMnemonic(static_cast<const QKeyEvent&>(*event)))
      return true;
    if (event->type() == QEvent::FocusIn) {
      enteredByMouse_ = static_cast<const QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
    } else if (event->type() == QEvent::MouseButtonRelease && std::exchange(enteredByMouse_, false) &&
               !edit_.hasSelectedText()) {
      edit_.selectAll();
    }
    return false;
  }

 private:
  int Position(std::size_t codeUnits) const {
    return static_cast<int>(ToQt(box_.Text().substr(0, codeUnits)).size());
  }
  int Start() const { return edit_.hasSelectedText() ? edit_.selectionStart() : edit_.cursorPosition(); }

  // The field already shows what the user has just typed: the box has to follow, not the field.
  void Typed() {
    const QScopedValueRollback telling(telling_, true);
    const std::string text = FromQt(edit_.text());
    box_.Type(text);
    const bool untouched = box_.Text() == text && box_.SelStart() == text.size() && box_.SelLength() == 0;
    if (untouched && FromQt(edit_.text()) == text) TakeSelection();
  }

  void TakeSelection() {
    if (FromQt(edit_.text()) != box_.Text()) return;
    const QScopedValueRollback telling(telling_, true);
    const std::size_t start = CodeUnits(Start());
    box_.SetSelection(start, CodeUnits(Start() + edit_.selectionLength()) - start);
  }
  std::size_t CodeUnits(int position) const { return FromQt(edit_.text().left(position)).size(); }

  TextBox& box_;
  QLineEdit& edit_;
  UserAction act_;
  bool telling_ = false;
  bool enteredByMouse_ = false;
};

}  // namespace

RefreshView BindTextBox(Control& control, QObject& target, const UserAction& act) {
  auto* const edit = qobject_cast<QLineEdit*>(&target);
  if (edit == nullptr) return {};
  auto* const tie = new LineEditTie(static_cast<TextBox&>(control), *edit, act);
  return [tie] { tie->Refresh(); };
}

}  // namespace kavr6
