// The system's wish that the program ends.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace kavr6 {

/// Calls `end` with the signal, from the event loop, at whatever depth that runs, when the system, another
/// program or the terminal asks the program to end: SIGTERM, SIGINT, SIGHUP. A second request of the same
/// kind ends the process at once; one that was ignored when the program started stays so. One object at a
/// time; on a system without signals it does nothing.
class EndSignals {
 public:
  explicit EndSignals(std::function<void(int signal)> end);
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;
  ~EndSignals();

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace kavr6
