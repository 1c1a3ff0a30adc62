#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <csignal>
#include <mutex>
#include <utility>

#include <windows.h>

#include "adapters/qt/base/end_signals.h"

namespace kavr6 {
namespace {

class Listener : public QObject, public QAbstractNativeEventFilter {
 public:
  explicit Listener(std::function<void(int signal)> end) : end_(std::move(end)) {
    QCoreApplication::instance()->installNativeEventFilter(this);
  }

  void End(int signal) { end_(signal); }
  bool nativeEventFilter(const QByteArray& /*kind*/, void* message, qintptr* /*result*/) override {
    const MSG& notice = *static_cast<const MSG*>(message);
    // As soon as the windows have been told, the process is ended.
    if (notice.message == WM_ENDSESSION && notice.wParam != 0) End(SIGTERM);
    return false;
  }

 private:
  std::function<void(int signal)> end_;
};

std::mutex consoleMutex;
Listener* consoleListener = nullptr;  // until it has been told once

/// Runs on a thread of the system's.
BOOL WINAPI ConsoleAsks(DWORD request) {
  const bool key = request == CTRL_C_EVENT || request == CTRL_BREAK_EVENT;
  {
    const std::lock_guard lock(consoleMutex);
    Listener* const listener = std::exchange(consoleListener, nullptr);
    if (listener == nullptr) return FALSE;  // the system ends the process
    const int signal = key ? SIGINT : SIGTERM;
    QMetaObject::invokeMethod(
        listener, [listener, signal] { listener->End(signal); }, Qt::QueuedConnection);
  }
  // The process of a window that has been closed is ended when this returns, and in any case after seconds.
  if (!key) Sleep(INFINITE);
  return TRUE;
}

void LetConsoleTell(Listener* listener) {
  SetConsoleCtrlHandler(ConsoleAsks, listener == nullptr ? FALSE : TRUE);
  const std::lock_guard lock(consoleMutex);
  consoleListener = listener;
}

}  // namespace

EndSignals::EndSignals(std::function<void(int signal)> end) {
  auto listener = std::make_unique<Listener>(std::move(end));
  LetConsoleTell(listener.get());
  listener_ = std::move(listener);
}

EndSignals::~EndSignals() { LetConsoleTell(nullptr); }

}  // namespace kavr6
