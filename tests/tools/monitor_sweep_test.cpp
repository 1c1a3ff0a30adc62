// Every kind of fault at every byte of an opening, a round and a closing of the status monitor, in both
// directions: nothing hangs, the line is given back, and the next opening shows all as it is.
#include <gtest/gtest.h>

#include "tests/support/scene.h"

namespace kavr6 {
namespace {

using Direction = FaultAt::Direction;

// Four answers for the settings and two rounds of ten, none of which comes.
constexpr double kLongestSession = 0.1 + 4 * 0.5 + 2 * (0.16 + 10 * 0.5);

class MonitorSweep : public testing::Test {
 protected:
  MonitorSweep() {
    scene.drive.SetIdentity(52, 43, 'k');
    scene.desktop.AnswerAnything();
    scene.Start();
    scene.drive.SetInput(1, false);
    scene.drive.SetVolts(1.0);
  }

  /// Opens the monitor for about a round.
  void Session() {
    const double begin = scene.desktop.Now();
    const std::size_t boxes = scene.desktop.Boxes().size();
    monitor.Show();
    Delay(scene.desktop, 0.3);
    EXPECT_EQ(scene.desktop.Boxes().size(), boxes);
    shown = Shown();
    monitor.OK.Click();
    EXPECT_LE(scene.desktop.Now() - begin, kLongestSession);
    EXPECT_FALSE(monitor.Visible() || monitor.Timer1.Enabled() || monitor.SilenceClock.Enabled());
    scene.ExpectCalm();
    EXPECT_FALSE(scene.state.LiveToolActive);
  }

  std::string Shown() {
    std::string text = monitor.MotorSpeed.Caption() + monitor.AnalogVolts.Caption() + " " +
                       monitor.EncoderCount.Caption() + " " + monitor.Play.Picture() +
                       monitor.Silence.Caption();
    for (auto* lamps : {&monitor.INlo, &monitor.OUTlo, &monitor.StatusLED, &monitor.AlarmLED}) {
      text += " ";
      for (const Lamp& lamp : *lamps) text += "-gyro"[static_cast<int>(lamp.Light())];
    }
    return text;
  }

  void Disturb(const FaultAt& fault) {
    scene.comm.Arm(fault);
    Session();
    scene.comm.ClearFault();
    Delay(scene.desktop, 2.0);  // what was held back comes, and the drive forgets what was broken off
    if (!scene.comm.PortOpen()) scene.comm.SetPortOpen(true);
    scene.drive.Restart();
    Delay(scene.desktop, 0.5);
    scene.comm.ForgetWritten();
    Session();
  }

  Scene scene;
  ExecStatus& monitor = scene.program.StatusMonitor;
  std::string shown;
};

TEST_F(MonitorSweep, ChartHoldsTheLastThreeMinutes) {
  monitor.Show();
  Delay(scene.desktop, 200.0);
  const Chart::Rows& rows = monitor.StripChart.Shown();
  EXPECT_NEAR(rows.back().time - rows.front().time, 180.0, 0.2);
  monitor.OK.Click();
}

TEST_F(MonitorSweep, AFaultAtAnyByteIsOverWithTheNextOpening) {
  Session();
  const std::string whole = shown;
  EXPECT_EQ(whole, "  0.00  1.00 0 PlayGreen -g-------------- ------- g------------- --------------");
  scene.comm.ForgetWritten();
  Session();
  const std::string written = scene.comm.Written();
  EXPECT_TRUE(written.ends_with("MO3\rBO3\rAO3\rQT\r")) << written;
  const int toDrive = static_cast<int>(written.size());
  const int toTool = 1 + 3 * 5 + 10 * 12;
  using enum LineFault;
  for (const auto& [kind, value] : std::initializer_list<std::pair<LineFault, int>>{{Lost, 0},
                                                                                    {Doubled, 0},
                                                                                    {Late, 0},
                                                                                    {Silence, 0},
                                                                                    {HangUp, 0},
                                                                                    {Restart, 0},
                                                                                    {Flipped, 1},
                                                                                    {Swapped, 0},
                                                                                    {Flipped, 128},
                                                                                    {Inserted, 13},
                                                                                    {Inserted, 255}}) {
    for (const auto direction : {Direction::ToDrive, Direction::ToTool}) {
      const int bytes = direction == Direction::ToDrive ? toDrive : toTool;
      for (int at = 0; at < bytes && !HasFailure(); ++at) {
        Disturb({direction, kind, at, static_cast<std::uint8_t>(value)});
        EXPECT_EQ(shown, whole) << static_cast<int>(kind)
                                << (direction == Direction::ToTool ? " to tool " : " to drive ") << at;
        EXPECT_EQ(scene.comm.Written(), written) << static_cast<int>(kind) << " at " << at;
      }
    }
  }
}

}  // namespace
}  // namespace kavr6
