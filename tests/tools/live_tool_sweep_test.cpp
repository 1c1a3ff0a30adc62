// Every kind of fault at every byte of a session with the status monitor and with the smoothing wizard, in
// both directions: nothing hangs, the line is given back, the motor stands, and the next session is as ever.
#include <gtest/gtest.h>

#include "core/status_word.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

using Direction = FaultAt::Direction;
using enum LineFault;

class LiveToolSweep : public testing::Test {
 protected:
  LiveToolSweep() { scene.desktop.AnswerAnything(); }

  /// Opens the tool, works with it and closes it; tells what it has shown.
  virtual std::string Play() = 0;
  virtual bool MotorMayRunOn(const FaultAt&, int /*bytesToDrive*/) const { return false; }

  void Run() {
    const double begin = scene.desktop.Now();
    const std::size_t boxes = scene.desktop.Boxes().size();
    scene.comm.ForgetWritten();
    shown = Play();
    EXPECT_LE(scene.desktop.Now() - begin, longestRun);
    EXPECT_EQ(scene.desktop.Boxes().size(), boxes + boxesOfARun);
    scene.ExpectCalm();
    EXPECT_FALSE(scene.state.LiveToolActive);
  }

  /// A fault during one run; afterwards the drive is switched off and on, and the next run has none.
  void Try(const FaultAt& fault, const std::string& wholeShown, const std::string& wholeWritten) {
    SCOPED_TRACE(testing::PrintToString(std::tuple(
        static_cast<int>(fault.direction), static_cast<int>(fault.fault), fault.byte, int{fault.value})));
    scene.comm.Arm(fault);
    Run();
    scene.comm.ClearFault();
    Delay(scene.desktop, 2.0);  // what was held back comes, and the motor has the time to stop
    EXPECT_TRUE(MotorMayRunOn(fault, static_cast<int>(wholeWritten.size())) ||
                (scene.drive.StatusWord() & StatusMask("Jogging")) == 0);
    scene.comm.Plug();
    Delay(scene.desktop, 0.1);
    scene.drive.Restart();
    Delay(scene.desktop, 0.5);
    Run();
    EXPECT_EQ(shown, wholeShown);
    EXPECT_EQ(scene.comm.Written(), wholeWritten);
  }

  /// The session without a fault shows this and ends with these bytes; then each fault in turn.
  void Sweep(const std::string& wholeShown, const std::string& end, int bytesToTool) {
    Run();
    EXPECT_EQ(shown, wholeShown);
    const std::string written = scene.comm.Written();
    EXPECT_TRUE(written.ends_with(end)) << written;
    const std::pair<LineFault, int> kinds[] = {{Lost, 0},      {Doubled, 0},   {Late, 0},      {Silence, 0},
                                               {HangUp, 0},    {Restart, 0},   {Swapped, 0},   {Flipped, 1},
                                               {Flipped, 128}, {Inserted, 13}, {Inserted, 255}};
    for (const auto& [kind, value] : kinds) {
      for (const auto direction : {Direction::ToDrive, Direction::ToTool}) {
        const int bytes = direction == Direction::ToDrive ? static_cast<int>(written.size()) : bytesToTool;
        for (int at = 0; at < bytes && !HasFailure(); ++at)
          Try({direction, kind, at, static_cast<std::uint8_t>(value)}, shown, written);
      }
    }
  }

  Scene scene;
  std::string shown;
  double longestRun = 0.0;
  std::size_t boxesOfARun = 0;
};

/// An opening, a round and a closing.
class MonitorSweep : public LiveToolSweep {
 protected:
  MonitorSweep() {
    // Four answers for the settings and two rounds of ten, none of which comes.
    longestRun = 0.1 + 4 * 0.5 + 2 * (0.16 + 10 * 0.5);
    scene.drive.SetIdentity(52, 43, 'k');
    scene.Start();
    scene.drive.SetInput(1, false);
    scene.drive.SetVolts(1.0);
  }
  std::string Play() override {
    monitor.Show();
    Delay(scene.desktop, 0.3);
    std::string text = monitor.MotorSpeed.Caption() + monitor.AnalogVolts.Caption() + " " +
                       monitor.EncoderCount.Caption() + " " + monitor.Play.Picture() +
                       monitor.Silence.Caption();
    for (auto* lamps : {&monitor.INlo, &monitor.OUTlo, &monitor.StatusLED, &monitor.AlarmLED}) {
      text += " ";
      for (const Lamp& lamp : *lamps) text += "-gyro"[static_cast<int>(lamp.Light())];
    }
    monitor.OK.Click();
    EXPECT_FALSE(monitor.Visible() || monitor.Timer1.Enabled() || monitor.SilenceClock.Enabled());
    return text;
  }
  ExecStatus& monitor = scene.program.StatusMonitor;
};

TEST_F(MonitorSweep, ChartHoldsTheLastThreeMinutes) {
  monitor.Show();
  Delay(scene.desktop, 200.0);
  const Chart::Rows& rows = monitor.StripChart.Shown();
  EXPECT_NEAR(rows.back().time - rows.front().time, 180.0, 0.2);
  monitor.OK.Click();
}

TEST_F(MonitorSweep, AFaultAtAnyByteIsOverWithTheNextOpening) {
  Run();  // the first opening asks more than the others
  Sweep("  0.00  1.00 0 PlayGreen -g-------------- ------- g------------- --------------",
        "MO3\rBO3\rAO3\rQT\r", 1 + 3 * 5 + 10 * 12);
}

/// A motor is tuned from the opening to the last step.
class WizardSweep : public LiveToolSweep {
 protected:
  static constexpr double kStep = 0.3;

  WizardSweep() {
    // The opening, seven steps, and the drive taken up again by an announcement and by what reads as one.
    longestRun = 0.05 + 3 * 0.25 + 7 * kStep + 2 * (0.1 + 2 * 0.25);
    boxesOfARun = 1;
    scene.Start();
  }
  std::string Play() override {
    std::string text;
    const auto after = [&](const std::function<void()>& step) {
      Delay(scene.desktop, kStep);
      step();
      text += wizard.lblParam.Caption() + ' ';
    };
    wizard.Show();
    after([this] { wizard.Start.Click(); });
    for (const int value : {150, 700, -5}) {
      after([&] { wizard.ParamSlider.Scroll(value); });
      after([this] { wizard.NextDone.Click(); });
    }
    EXPECT_FALSE(wizard.Visible() || wizard.PowerUpPause.Enabled() || wizard.SilenceClock.Enabled());
    return text;
  }
  /// What stops the motor, or an end of a line that keeps it apart, does not arrive as it was sent.
  bool MotorMayRunOn(const FaultAt& fault, int bytesToDrive) const override {
    const int end = bytesToDrive - static_cast<int>(kEnd.size());
    if (fault.direction == Direction::ToTool) return fault.fault == HangUp;
    const bool lineGone = fault.fault == Silence || fault.fault == HangUp;
    return (fault.byte >= end && fault.byte <= end + 3) || (lineGone && fault.byte < end);
  }
  const std::string kEnd = "\rSJ\rCM7\rQT\r";
  Harmonizer& wizard = scene.program.SmoothingWizard;
};

TEST_F(WizardSweep, AFaultAtAnyByteIsOverWithTheNextRunAndLeavesNoMotorRunning) {
  Sweep("1.00 1.50 960 700 -4 -5 -5 ", kEnd, 7 + 6 + 6);
}

}  // namespace
}  // namespace kavr6
