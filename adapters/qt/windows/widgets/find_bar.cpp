#include "adapters/qt/windows/widgets/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QTextDocument>
#include <QToolButton>

namespace kavr6::widgets {
namespace {

QToolButton* AddButton(QHBoxLayout& row, const QString& text, const QString& name) {
  auto* const button = new QToolButton;
  button->setText(text);
  button->setAccessibleName(name);
  button->setToolTip(name);
  row.addWidget(button);
  return button;
}

}  // namespace

FindBar::FindBar(QTextEdit& text) : text_(text), words_(new QLineEdit), outcome_(new QLabel) {
  outcome_->setObjectName("outcome");
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  auto* const label = new QLabel("&Find");
  label->setBuddy(words_);
  row->addWidget(label);
  row->addWidget(words_, 1);
  const QToolButton* const previous = AddButton(*row, "Previous", "Previous place (Shift+Enter, Shift+F3)");
  const QToolButton* const next = AddButton(*row, "Next", "Next place (Enter, F3)");
  row->addWidget(outcome_, 1);
  const QToolButton* const close = AddButton(*row, "Done", "Put the search away (Esc)");
  words_->setAccessibleName("Words to find");
  connect(words_, &QLineEdit::textEdited, this, [this] { findWhileTyping(); });
  connect(previous, &QToolButton::clicked, this, [this] { find(true); });
  connect(next, &QToolButton::clicked, this, [this] { find(false); });
  connect(close, &QToolButton::clicked, this, [this] { put(true); });
}

void FindBar::open() {
  show();
  outcome_->clear();
  words_->setFocus(Qt::ShortcutFocusReason);
  words_->selectAll();
}

void FindBar::put(bool away) {
  setVisible(!away);
  if (away) text_.setFocus();
}

void FindBar::find(bool backward) {
  const QString words = words_->text();
  if (words.isEmpty()) return outcome_->clear();
  const QTextDocument::FindFlags flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (text_.find(words, flags)) return tell(true, false);
  const QTextCursor before = text_.textCursor();
  text_.moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
  const bool found = text_.find(words, flags);
  if (!found) text_.setTextCursor(before);
  tell(found, true);
}

// What has been found so far is looked at again: it may go on with the new letter.
void FindBar::findWhileTyping() {
  QTextCursor cursor = text_.textCursor();
  cursor.setPosition(cursor.selectionStart());
  text_.setTextCursor(cursor);
  find(false);
}

void FindBar::tell(bool found, bool around) {
  outcome_->setText(!found ? "Not found" : around ? "Found around the page's end" : QString());
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter) {
    find(event->modifiers().testFlag(Qt::ShiftModifier));
  } else if (event->key() == Qt::Key_Escape) {
    put(true);
  } else {
    return QWidget::keyPressEvent(event);
  }
  event->accept();
}

}  // namespace kavr6::widgets
