// What has happened last, in words with the time.
#pragma once

#include <deque>
#include <functional>
#include <string>

#include "platform/event.h"

namespace kavr6 {

/// The newest of what happened, for as long as the program runs.
class News {
 public:
  static constexpr std::size_t kKept = 20;

  /// What the clock on the wall shows, in seconds since midnight. Without one it is midnight.
  std::function<double()> Clock;
  /// Raised when there is something new.
  Event<> Changed;

  /// Keeps "words at 12:31:07", and `rest` behind that.
  void Tell(const std::string& words, const std::string& rest = {});
  /// The oldest first.
  const std::deque<std::string>& Lines() const { return lines_; }
  /// Minutes since midnight.
  int Minute() const { return Second() / 60; }

 private:
  int Second() const;

  std::deque<std::string> lines_;
};

/// "12:31", of minutes since midnight.
std::string ShownMinute(int minute);

}  // namespace kavr6
