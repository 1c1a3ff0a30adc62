// What the system asks of a program by signals.
#include "adapters/qt/base/end_signals.h"

#include <csignal>
#include <string>

#include <gtest/gtest.h>

#include "adapters/qt/base/qt_event_pump.h"

namespace kavr6 {
namespace {

TEST(EndSignals, RequestToEndComesThroughTheLoopUnlessItWasIgnoredFromTheStart) {
  QtEventPump pump;
  const auto before = std::signal(SIGHUP, SIG_IGN);
  std::string log;
  const EndSignals endSignals([&log](int) { log += "end "; });
  for (const auto& [signal, name] : {std::pair(SIGTERM, "term "), {SIGINT, "int "}, {SIGHUP, "hup "}}) {
    std::raise(signal);
    log += name;
    pump.PumpEventsUntil([&] { return log.ends_with("end "); }, 0.1);
  }
  EXPECT_EQ(log, "term end int end hup ");
  std::signal(SIGHUP, before);
}

}  // namespace
}  // namespace kavr6
