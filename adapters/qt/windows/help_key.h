// F1 in a window of the toolkit's own.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QWidget>
#include <functional>

namespace kavr6 {

inline bool IsHelpKey(const QKeyEvent& key) {
  return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

/// Calls `help` when F1 is pressed anywhere in the window. Both live until the window closes.
class HelpKey : public QObject {
 public:
  HelpKey(QWidget& window, const std::function<void()>& help) : help_(help) {
    window.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !IsHelpKey(static_cast<QKeyEvent&>(*event))) return false;
    help_();
    return true;
  }

 private:
  std::function<void()> help_;
};

}  // namespace kavr6
