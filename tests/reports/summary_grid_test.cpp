#include "reports/summary_grid.h"

#include <gtest/gtest.h>

#include "platform/headless_desktop.h"
#include "tests/support/catalogue.h"

namespace kavr6 {
namespace {

using Pair = std::pair<std::string, std::string>;

class SummaryGridTest : public testing::Test {
 protected:
  SummaryGridTest() {
    InitVars(settings);
    ShowModeName(screen, settings);
    motors.Open("");
    motors.MoveFirst();
    report.SummaryInit();
  }
  Pair Row(int row) const { return {screen.Summary.Text(row, 0), screen.Summary.Text(row, 1)}; }

  HeadlessDesktop desktop;
  MainScreen screen{desktop};
  Settings settings;
  MemoryTable table = CatalogueTable();
  MotorTable motors{table};
  SummaryGrid report{screen, settings, motors};
};

TEST_F(SummaryGridTest, StartValuesFillAllSectionsAndTurnTheirLinesGreen) {
  EXPECT_EQ(Row(4), Pair("Motion Mode:", "Motion Mode:"));
  report.SummarizeAll();
  const std::pair<int, Pair> expected[] = {{0, {"Motor: KM17-1S-170", "Motor: KM17-1S-170"}},
                                           {1, {"1.4", "A/phase"}},
                                           {4, {"Mode: Pulse & Direction", "Mode: Pulse & Direction"}},
                                           {5, {"25000", "steps/rev"}},
                                           {6, {"", ""}},
                                           {8, {"Regen resistor (internal)", "Regen resistor (internal)"}},
                                           {20, {"Encoder: not used", "Encoder: not used"}},
                                           {22, {"", ""}}};
  for (const auto& [row, cells] : expected) EXPECT_EQ(Row(row), cells) << row;
  for (const int row : {3, 7, 11, 19}) EXPECT_TRUE(screen.Summary.MergeRow(row)) << row;
  for (const Control* control : screen.Controls()) {
    if (control->Kind() != ControlKind::ConnectorLine) continue;
    const bool ofASection = control->Name() != "CommLine" && !control->Name().starts_with("DriveLine");
    EXPECT_EQ(static_cast<const ConnectorLine*>(control)->BorderColor() == kGreen, ofASection)
        << control->Name();
  }
}

TEST_F(SummaryGridTest, ThirdMotionRowFollowsTheMode) {
  const std::tuple<Long, Long, bool, Integer, Pair> cases[] = {{2, 11, true, 0, {"Address", "!"}},
                                                               {7, 7, false, 0, {"Address", "!"}},
                                                               {1, 21, false, 0, {"", ""}},
                                                               {3, 11, true, 1, {"-7.250", "rev/sec @ 10V"}},
                                                               {3, 11, true, 2, {"-7.250", "rev/sec @ 5V"}},
                                                               {4, 11, false, 0, {"10.000", "rev/sec"}}};
  settings.CmdScale = -7.25;
  for (const auto& [op, control, analog, range, row] : cases) {
    settings.OpMode = op;
    settings.ControlMode = control;
    settings.AnalogVelocity = analog;
    settings.AnalogRange = range;
    report.SummarizeMotion(kMotionRow);
    EXPECT_EQ(Row(6), row) << op << ' ' << control;
  }
}

TEST_F(SummaryGridTest, IoWordsByMode) {
  const char* const expected[] = {
      "Close on fault Close to reset Closed at limit Open to enable Open if running Close to release ",
      "Open on fault Open to reset Open at limit Close to enable Close if running Open to release ",
      "not used not used not used not used not used not used ",
      "not used not used not used not used Tach 100 ppr not used ",
      "not used not used not used not used Tach 200 ppr not used ",
      "not used not used not used not used Tach 400 ppr not used ",
      "not used not used not used not used Tach 800 ppr not used ",
      "not used not used not used not used Tach 1600 ppr not used ",
      "not used not used not used not used Tach 100 ppr not used "};
  for (Long mode = 1; mode <= 9; ++mode) {
    settings.AlarmOutMode = settings.AlarmResetMode = settings.LimitMode = mode;
    settings.EnableMode = settings.MotionOutMode = settings.BrakeMode = mode;
    report.SummarizeIO(kIoRow);
    std::string words;
    for (int row = 13; row <= 18; ++row) words += Row(row).second + " ";
    EXPECT_EQ(words, expected[mode - 1]);
  }
}

TEST_F(SummaryGridTest, StallTextFollowsTheModeAndOtherMotorsAndResistorsAreNamed) {
  settings.StallPrevent = true;
  settings.MaxTorquePct = 80;
  report.SummarizeMotion(kMotionRow);
  report.SummarizeEncoder(kEncoderRow);
  EXPECT_EQ(Row(22), Pair("", ""));
  settings.OpMode = 2;
  report.SummarizeMotion(kMotionRow);
  EXPECT_EQ(Row(22).first, "Prevent stalls by limiting torque demand to 80%");
  EXPECT_EQ(Row(21), Pair("4000", "Counts/rev"));
  settings.StallDetect = settings.CustomMotor = settings.RegenExternal = true;
  settings.MotorName = "my motor";
  settings.RegenOhms = 12.5;
  report.SummarizeAll();
  EXPECT_EQ(Row(22), Pair("Fault drive if motor stalls", "Fault drive if motor stalls"));
  EXPECT_EQ(Row(0).first, "Motor: my motor");
  EXPECT_EQ(Row(8).first, "Regen resistor (external)");
  EXPECT_EQ(Row(9).first, "12.5");
}

}  // namespace
}  // namespace kavr6
