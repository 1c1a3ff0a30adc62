// The single handler that a window hangs on a control's event.
#pragma once

#include <functional>
#include <stdexcept>
#include <utility>

namespace kavr6 {

/// An event with at most one handler. Raising it without a handler does nothing. The handler may replace
/// itself while it runs.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  /// std::logic_error when there is a handler already: a second one would silence it.
  void Set(Handler handler) {
    if (handler_) throw std::logic_error("an event has been given a second handler");
    handler_ = std::move(handler);
  }
  /// Puts `handler` in the place of the one that may be there.
  void Replace(Handler handler) { handler_ = std::move(handler); }
  void Raise(Args... args) const {
    if (!handler_) return;
    const Handler running = handler_;
    running(args...);
  }

 private:
  Handler handler_;
};

}  // namespace kavr6
