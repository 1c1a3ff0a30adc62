// The single handler that a window hangs on a control's event.
#pragma once

#include <functional>
#include <utility>

namespace kavr6 {

/// An event with at most one handler. Raising it without a handler does nothing. The handler may replace
/// itself while it runs.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  void Set(Handler handler) { handler_ = std::move(handler); }
  void Raise(Args... args) const {
    if (!handler_) return;
    const Handler running = handler_;
    running(args...);
  }

 private:
  Handler handler_;
};

}  // namespace kavr6
