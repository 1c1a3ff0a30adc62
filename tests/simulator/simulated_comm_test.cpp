#include "simulator/simulated_comm.h"

#include <memory>

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/simulator/bench.h"

namespace kavr6 {
namespace {

using enum LineFault;
constexpr double kByte = SimulatedDrive::kByteTime;
constexpr auto kToDrive = FaultAt::Direction::ToDrive;
constexpr auto kToTool = FaultAt::Direction::ToTool;

TEST(Line, DoesEachFaultAtItsByteAndOnce) {
  // "C" asks for "4)", "y" 142 for "006B".
  const struct {
    FaultAt fault;
    std::string reply;       // to "C" and "y" 142, within half a second
    std::string afterwards;  // to another "C", within a second more
  } kCases[] = {
      {{kToTool, Lost, 1}, "4006B", "4)"},
      {{kToTool, Doubled, 0}, "44)006B", "4)"},
      {{kToTool, Flipped, 2, 0x81},
       "4)\xB1"
       "06B",
       "4)"},
      {{kToTool, Inserted, 5, 'x'}, "4)006xB", "4)"},
      {{kToTool, Late, 4, 0, 1.0}, "4)00", "6B"},
      {{kToTool, Silence, 4}, "4)00", ""},
      {{kToTool, Restart, 2}, "4)0\xFF\x34\x29", "4)"},
      {{kToTool, Lost, 6}, "4)006B", ")"},
      {{kToDrive, Lost, 0}, "006B", "4)"},
      {{kToDrive, Doubled, 0}, "4)4)006B", "4)"},
      {{kToDrive, Flipped, 2, 0x0E}, "4)0001", "4)"},
      {{kToDrive, Inserted, 1, 'C'}, "4)4)006B", "4)"},
      {{kToDrive, Late, 2, 0, 0.6}, "4)", "4)"},  // the "y" is forgotten by then
      {{kToDrive, Silence, 1}, "4)", ""},
      {{kToDrive, Restart, 0},
       "\xFF\x34\x29"
       "006B",
       "4)"},
  };
  for (const auto& c : kCases) {
    const auto name = testing::Message() << "to tool: " << (c.fault.direction == kToTool) << ", fault "
                                         << static_cast<int>(c.fault.fault);
    Bench bench;
    EXPECT_EQ(bench.Say("C"), "4)");  // before it is armed
    bench.comm.Arm(c.fault);
    EXPECT_EQ(bench.Say("Cy\x8E", 0.5), c.reply) << name;
    EXPECT_EQ(bench.Say("C"), c.afterwards) << name;
    bench.comm.ClearFault();
    bench.Say("", 2.0);
    EXPECT_EQ(bench.Say("C"), "4)") << name;
  }
}

TEST(Line, KeepsTheOrderOfLateBytesAfterTheFaultIsCleared) {
  Bench bench;
  bench.comm.Arm({kToTool, Late, 0, 0, 0.3});
  EXPECT_EQ(bench.Say("C", 0.1), "");
  bench.comm.ClearFault();
  EXPECT_EQ(bench.Say("y\x8E"), "4)006B");
}

TEST(Line, HangsUpAtTheByteAndOpensAgain) {
  for (const auto direction : {kToTool, kToDrive}) {
    Bench bench;
    int changes = 0;
    bench.comm.StateChanged.Set([&] { ++changes; });
    bench.comm.Arm({direction, HangUp, 1});
    EXPECT_EQ(bench.Say("CC"), "");
    EXPECT_FALSE(bench.comm.PortOpen());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(bench.Say("C"), "") << "written with the port closed";
    bench.comm.SetPortOpen(true);
    EXPECT_EQ(bench.Say("C"), "4)");
    EXPECT_EQ(bench.comm.Written(), "CCC");
  }
}

TEST(Line, DropsWhatIsOnTheWayWhenThePortCloses) {
  for (const auto direction : {kToTool, kToDrive}) {
    Bench bench;
    bench.comm.Arm({direction, Late, 0, 0, 0.2});
    bench.Say("CC", 3.5 * kByte);  // on the way: half of the answers, or the commands
    bench.comm.SetPortOpen(false);
    bench.comm.SetPortOpen(true);
    bench.comm.ClearFault();
    EXPECT_EQ(bench.Say("C"), direction == kToTool ? "4)4)" : "4)");
  }
}

std::string OpenError(SimulatedComm& comm, int port) {
  comm.SetCommPort(port);
  try {
    comm.SetPortOpen(true);
  } catch (const RuntimeError& error) {
    return error.what();
  }
  return {};
}

TEST(Ports, OpenAsTheMachineHasThem) {
  Bench bench;
  SimulatedDrive other(bench.desktop);
  other.SetIdentity(10, 43, 'b');
  bench.comm.Connect(2, &other);
  bench.comm.Connect(3, nullptr);
  bench.comm.Connect(4, &other);
  bench.comm.Refuse(4, "Another program uses it");
  bench.comm.SetPortOpen(false);

  EXPECT_EQ(OpenError(bench.comm, 4), "Another program uses it");
  EXPECT_EQ(OpenError(bench.comm, 5), "There is no port COM5 on this machine");
  EXPECT_FALSE(bench.comm.PortOpen());
  EXPECT_EQ(bench.comm.DeviceName(5), "");

  const std::pair<int, std::string> kReplies[] = {{2, "\x0A+"}, {3, ""}, {1, "4)"}};
  for (const auto& [port, reply] : kReplies) {
    EXPECT_EQ(OpenError(bench.comm, port), "");
    bench.drive.RaiseAlarm(port == 1 ? 0 : 1);  // heard only by who has this port open
    EXPECT_EQ(bench.Say("C"), port == 1 ? "\xFC" + std::string(2, '\0') + reply : reply) << port;
    bench.comm.SetPortOpen(false);
  }
}

TEST(Ports, TwoToolsTalkToTwoDrivesAtOnce) {
  Bench bench;
  SimulatedComm second(bench.desktop);
  {
    SimulatedDrive other(bench.desktop);
    other.SetIdentity(10, 43, 'b');
    second.Connect(1, &other);
    second.SetPortOpen(true);
    second.Output("C");
    EXPECT_EQ(bench.Say("C", 3.1 * kByte), "4)");
    EXPECT_EQ(second.Input(), (Bytes{10, 43}));
  }
  // The drive may be gone before the tool.
}

TEST(Pacing, LateWakeUpsDoNotAddUp) {
  struct SlowToWake : HeadlessDesktop {
    TaskId CallAfter(double seconds, Task task) override {
      return HeadlessDesktop::CallAfter(seconds + 0.0005, std::move(task));
    }
  } desktop;
  int count = 0;
  ByteLine line(desktop, 0.001, [&](std::uint8_t) { ++count; });
  line.Put(Bytes(100, 1));
  desktop.PumpEventsUntil([&] { return count == 100; }, 1.0);
  EXPECT_NEAR(desktop.Now(), 0.1005, 1e-9);
}

}  // namespace
}  // namespace kavr6
