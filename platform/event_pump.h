// The one way to wait: events run meanwhile.
#pragma once

#include <functional>

#include "platform/scheduler.h"

namespace kavr6 {

/// Code after a pump or a wait must look at ports, windows and buffers anew.
class EventPump : public Scheduler {
 public:
  /// Lets what is pending at this moment run, and returns.
  virtual void PumpEvents() = 0;
  /// Lets events run until `done` holds or `limit` seconds have passed, sleeping in between. `done` changes
  /// nothing; it is asked after each event, also after one that ran inside another wait. Returns what it said
  /// last.
  virtual bool PumpEventsUntil(const std::function<bool()>& done, double limit) = 0;
};

/// The general wait: lets every user and port event run for `seconds`.
inline void Delay(EventPump& pump, double seconds) {
  pump.PumpEventsUntil([] { return false; }, seconds);
}

}  // namespace kavr6
