// The system's wish that the program ends.
#pragma once

#include <QObject>
#include <functional>
#include <memory>

namespace kavr6 {

/// Calls `end` with the signal, from the event loop, at whatever depth that runs, when the system, another
/// program or the terminal asks the program to end: SIGTERM, SIGINT, SIGHUP. A second request of the same
/// kind ends the process at once; one that was ignored when the program started stays so. On Windows SIGINT
/// and SIGTERM stand for what its console asks, where the second request is of any kind, and SIGTERM for the
/// end of the session, which a program with windows hears of. Needs an application object; one object at a
/// time.
class EndSignals {
 public:
  explicit EndSignals(std::function<void(int signal)> end);
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;
  ~EndSignals();

 private:
  std::unique_ptr<QObject> listener_;
};

}  // namespace kavr6
