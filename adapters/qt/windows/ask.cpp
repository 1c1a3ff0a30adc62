#include "adapters/qt/windows/ask.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>

#include "adapters/qt/base/text.h"

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
  BoxAnswer refuse;  ///< also when the box is closed without a choice
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

}  // namespace

BoxAnswer ShowMessageBox(const MessageBox& box, QWidget* parent) {
  const Choice choice = ChoiceOf(box.buttons);
  QMessageBox window(parent);
  window.setWindowTitle(box.title.empty() ? QCoreApplication::applicationName() : ToQt(box.title));
  window.setTextFormat(Qt::PlainText);
  window.setText(ToQt(box.text));
  window.setIcon(IconOf(box.icon));
  window.setStandardButtons(choice.acceptButton | choice.refuseButton);
  window.setDefaultButton(box.careful ? choice.refuseButton : choice.acceptButton);
  window.setEscapeButton(choice.refuseButton);
  // The box knows its size only when it is shown, and not every window manager centres it over a splash.
  window.setWindowModality(Qt::ApplicationModal);
  WidenText(window);
  window.show();
  if (parent != nullptr) window.move(parent->frameGeometry().center() - window.rect().center());
  return window.exec() == choice.acceptButton ? choice.accept : choice.refuse;
}

}  // namespace kavr6
