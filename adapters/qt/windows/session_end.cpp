#include "adapters/qt/windows/session_end.h"

#include <QApplication>
#include <QSessionManager>

#include "adapters/qt/windows/entry.h"

namespace kavr6 {

SessionEnd::SessionEnd(Desktop& desktop) : desktop_(desktop) {
  connect(
      qApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager& manager) { Asked(manager); },
      Qt::DirectConnection);
  qApp->installEventFilter(this);
}

void SessionEnd::Asked(QSessionManager& manager) {
  bool may = true;
  EnterLogic(desktop_, [&] {
    if (desktop_.MaySessionEnd)
      may = desktop_.MaySessionEnd([&manager] { return manager.allowsInteraction(); });
  });
  // The program goes on in both cases: another one may still keep the session.
  if (may) {
    manager.release();
  } else {
    manager.cancel();
  }
}

// The toolkit would close one window after the other, as if the user had asked for that.
bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
  if (watched != qApp || event->type() != QEvent::Quit) return false;
  desktop_.EndProgram(0);
}

}  // namespace kavr6
