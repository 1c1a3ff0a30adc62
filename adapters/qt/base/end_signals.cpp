#include "adapters/qt/base/end_signals.h"

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace kavr6 {
namespace {

// A signal may do next to nothing itself: it writes a byte, which wakes the event loop.
int readEnd = -1;
int writeEnd = -1;

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

void Tell(int signal) {
  const int kept = errno;
  const auto byte = static_cast<char>(signal);
  [[maybe_unused]] const auto written = write(writeEnd, &byte, 1);
  errno = kept;
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction now {};
  sigaction(signal, nullptr, &now);
  if (now.sa_handler == SIG_IGN) return;  // the program was started so as to outlive its terminal
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
  sigaction(signal, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals(std::function<void(int signal)> end) {
  int ends[2];
  if (pipe(ends) != 0) return;
  readEnd = ends[0];
  writeEnd = ends[1];
  for (const int side : ends) {
    fcntl(side, F_SETFD, FD_CLOEXEC);
    fcntl(side, F_SETFL, O_NONBLOCK);
  }
  auto notifier = std::make_unique<QSocketNotifier>(readEnd, QSocketNotifier::Read);
  QObject::connect(notifier.get(), &QSocketNotifier::activated, [work = std::move(end)] {
    char byte = 0;
    if (read(readEnd, &byte, 1) == 1) work(byte);
  });
  listener_ = std::move(notifier);
  for (const int signal : kSignals) Handle(signal, Tell);
}

EndSignals::~EndSignals() {
  if (listener_ == nullptr) return;
  for (const int signal : kSignals) Handle(signal, SIG_DFL);
  listener_.reset();
  close(readEnd);
  close(writeEnd);
}

}  // namespace kavr6
