#include "adapters/qt/windows/ask.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/help_key.h"

namespace kavr6 {
namespace {

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return QMessageBox::Critical;
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::Exclamation:
      return QMessageBox::Warning;
    case BoxIcon::Information:
      return QMessageBox::Information;
    case BoxIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

struct Choice {
  BoxAnswer accept;
  QMessageBox::StandardButton acceptButton;
  BoxAnswer refuse;
  QMessageBox::StandardButton refuseButton;
};

Choice ChoiceOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::OkCancel:
      return {BoxAnswer::Ok, QMessageBox::Ok, BoxAnswer::Cancel, QMessageBox::Cancel};
    case BoxButtons::YesNo:
      return {BoxAnswer::Yes, QMessageBox::Yes, BoxAnswer::No, QMessageBox::No};
    case BoxButtons::Ok:
      break;
  }
  return {BoxAnswer::Ok, QMessageBox::Ok, BoxAnswer::Ok, QMessageBox::Ok};
}

/// Room for a sentence of usual length on one line, where the toolkit's own width leaves a word or two for
/// the next, and for the title beside the buttons of its frame.
void WidenText(const QMessageBox& window) {
  constexpr int kCharactersInALine = 84;
  auto* const label = window.findChild<QLabel*>("qt_msgbox_label");
  if (label == nullptr) return;
  const QFontMetrics metrics = label->fontMetrics();
  const int most =
      std::min(kCharactersInALine * metrics.averageCharWidth(), window.screen()->size().width() / 2);
  constexpr int kFrameButtons = 6;  // as wide as so many lines are high
  const int title = metrics.horizontalAdvance(window.windowTitle()) + kFrameButtons * metrics.height();
  label->setMinimumWidth(std::min(std::max(metrics.size(0, window.text()).width() + 1, title), most));
}

/// Ctrl+C copies what is selected in the text of a box, or all of it.
class CopyKey : public QObject {
 public:
  explicit CopyKey(QMessageBox& window)
      : QObject(&window), label_(window.findChild<QLabel*>("qt_msgbox_label")), text_(window.text()) {
    window.installEventFilter(this);
    if (label_ != nullptr) label_->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy))
      return false;
    const bool some = label_ != nullptr && label_->hasSelectedText();
    QGuiApplication::clipboard()->setText(some ? label_->selectedText() : text_);
    return true;
  }

 private:
  QLabel* label_;
  QString text_;
};

}  // namespace

BoxAnswer ShowMessageBox(const MessageBox& box, QWidget* parent, const std::function<void()>& help) {
  const Choice choice = ChoiceOf(box.buttons);
  QMessageBox window(parent);
  const HelpKey key(window, help);
  window.setWindowTitle(box.title.empty() ? QCoreApplication::applicationName() : ToQt(box.title));
  window.setTextFormat(Qt::PlainText);
  window.setText(ToQt(box.text));
  window.setIcon(IconOf(box.icon));
  window.setStandardButtons(choice.acceptButton | choice.refuseButton);
  window.setDefaultButton(box.careful ? choice.refuseButton : choice.acceptButton);
  window.setEscapeButton(box.escapeAccepts ? choice.acceptButton : choice.refuseButton);
  // The box knows its size only when it is shown, and not every window manager centres it over a splash.
  window.setWindowModality(Qt::ApplicationModal);
  WidenText(window);
  new CopyKey(window);
  window.show();
  if (parent != nullptr) window.move(parent->frameGeometry().center() - window.rect().center());
  return window.exec() == choice.acceptButton ? choice.accept : choice.refuse;
}

}  // namespace kavr6
