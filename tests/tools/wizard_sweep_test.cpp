// Every kind of fault at every byte of a run of the smoothing wizard, in both directions: nothing hangs, the
// line is given back, the motor stands, and the next run is as ever.
#include <gtest/gtest.h>

#include "core/status_word.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

using Direction = FaultAt::Direction;
using enum LineFault;

// The opening, seven steps, and the drive taken up again by an announcement and by what reads as one.
constexpr double kStep = 0.3;
constexpr double kLongestRun = 0.05 + 3 * 0.25 + 7 * kStep + 2 * (0.1 + 2 * 0.25);

class WizardSweep : public testing::Test {
 protected:
  WizardSweep() {
    scene.desktop.AnswerAnything();
    scene.Start();
  }

  void Run() {
    const double begin = scene.desktop.Now();
    const std::size_t boxes = scene.desktop.Boxes().size();
    shown.clear();
    scene.comm.ForgetWritten();
    wizard.Show();
    After([this] { wizard.Start.Click(); });
    After([this] { wizard.ParamSlider.Scroll(150); });
    After([this] { wizard.NextDone.Click(); });
    After([this] { wizard.ParamSlider.Scroll(700); });
    After([this] { wizard.NextDone.Click(); });
    After([this] { wizard.ParamSlider.Scroll(-5); });
    After([this] { wizard.NextDone.Click(); });
    EXPECT_LE(scene.desktop.Now() - begin, kLongestRun);
    EXPECT_EQ(scene.desktop.Boxes().size(), boxes + 1);
    EXPECT_FALSE(wizard.Visible() || wizard.PowerUpPause.Enabled() || wizard.SilenceClock.Enabled());
    scene.ExpectCalm();
    EXPECT_FALSE(scene.state.LiveToolActive);
  }

  void After(const std::function<void()>& step) {
    Delay(scene.desktop, kStep);
    step();
    shown += wizard.lblParam.Caption() + ' ';
  }

  /// A fault during one run; afterwards the drive is switched off and on, and the next run has none.
  void Try(const FaultAt& fault, bool stops) {
    SCOPED_TRACE(testing::PrintToString(std::tuple(
        static_cast<int>(fault.direction), static_cast<int>(fault.fault), fault.byte, int{fault.value})));
    scene.comm.Arm(fault);
    Run();
    scene.comm.ClearFault();
    Delay(scene.desktop, 2.0);  // what was held back comes, and the motor has the time to stop
    EXPECT_TRUE(!stops || (scene.drive.StatusWord() & StatusMask("Jogging")) == 0);
    if (!scene.comm.PortOpen()) scene.comm.SetPortOpen(true);
    scene.drive.Restart();
    Delay(scene.desktop, 0.5);
    Run();
    EXPECT_EQ(shown, wholeShown);
    EXPECT_EQ(scene.comm.Written(), wholeWritten);
  }

  Scene scene;
  Harmonizer& wizard = scene.program.SmoothingWizard;
  std::string shown;
  std::string wholeShown;
  std::string wholeWritten;
};

TEST_F(WizardSweep, AFaultAtAnyByteIsOverWithTheNextRunAndLeavesNoMotorRunning) {
  Run();
  wholeShown = shown;
  wholeWritten = scene.comm.Written();
  EXPECT_EQ(shown, "1.00 1.50 960 700 -4 -5 -5 ");
  const int toDrive = static_cast<int>(wholeWritten.size());
  const int end = static_cast<int>(wholeWritten.rfind("\rSJ\r"));
  constexpr int kToTool = 7 + 6 + 6;
  const std::pair<LineFault, int> kinds[] = {{Lost, 0},      {Doubled, 0},   {Late, 0},      {Silence, 0},
                                             {HangUp, 0},    {Restart, 0},   {Swapped, 0},   {Flipped, 1},
                                             {Flipped, 128}, {Inserted, 13}, {Inserted, 255}};
  for (const auto& [kind, value] : kinds) {
    for (int at = 0; at < toDrive && !HasFailure(); ++at) {
      // What stops the motor, or an end of a line that keeps it apart, does not arrive as it was sent.
      const bool spoilt = (at >= end && at <= end + 3) || ((kind == Silence || kind == HangUp) && at < end);
      Try({Direction::ToDrive, kind, at, static_cast<std::uint8_t>(value)}, !spoilt);
    }
    for (int at = 0; at < kToTool && !HasFailure(); ++at)
      Try({Direction::ToTool, kind, at, static_cast<std::uint8_t>(value)}, kind != HangUp);
  }
}

}  // namespace
}  // namespace kavr6
