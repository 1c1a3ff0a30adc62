#include "adapters/qt/windows/companion.h"

#include <QApplication>
#include <QEvent>

namespace kavr6 {

Companion::Companion(QWidget& window, QWidget* main) : QObject(&window), window_(&window), main_(main) {
  const QWidget* const modal = QApplication::activeModalWidget();
  BelongTo(modal != nullptr ? modal : main);
  qApp->installEventFilter(this);
}

void Companion::BelongTo(const QWidget* owner) {
  QWindow* const own = window_->windowHandle();
  QWindow* const handle = owner == nullptr ? nullptr : owner->windowHandle();
  // Two windows that belonged to each other would be asked for their owners for ever.
  for (const QWindow* above = handle; above != nullptr; above = above->transientParent())
    if (above == own) return;
  own->setTransientParent(handle);
}

void Companion::ModalWindowHidden() {
  const QWidget* const modal = QApplication::activeModalWidget();
  BelongTo(modal != nullptr ? modal : main_);
  if (!window_->isVisible()) return;
  // The toolkit takes notice of what blocks it, and the window system of its owner, only when it is shown.
  if (!blocked_ && shownFor_ == window_->windowHandle()->transientParent()) return;
  window_->hide();
  window_->setAttribute(Qt::WA_ShowWithoutActivating);
  window_->show();
  window_->setAttribute(Qt::WA_ShowWithoutActivating, false);
}

bool Companion::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (window_ == nullptr) return false;
  if (type == QEvent::WindowBlocked || type == QEvent::WindowUnblocked) {
    if (watched == window_->windowHandle()) blocked_ = type == QEvent::WindowBlocked;
  } else if (type == QEvent::Show && watched == window_) {
    shownFor_ = window_->windowHandle()->transientParent();
  } else if ((type == QEvent::Show || type == QEvent::Hide) && watched->isWidgetType()) {
    const auto* const widget = static_cast<const QWidget*>(watched);
    if (!widget->isWindow() || !widget->isModal()) return false;
    // A window gets this before it is on the screen, and after it has gone.
    if (type == QEvent::Show) {
      BelongTo(widget);
    } else {
      ModalWindowHidden();
    }
  }
  return false;
}

}  // namespace kavr6
