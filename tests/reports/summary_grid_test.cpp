#include "reports/summarizer.h"

#include <gtest/gtest.h>

#include "core/program/main_screen.h"
#include "platform/headless/headless_desktop.h"
#include "tests/support/catalogue.h"

namespace kavr6 {
namespace {

using Pair = std::pair<std::string, std::string>;

class SummaryGridTest : public testing::Test {
 protected:
  SummaryGridTest() {
    InitVars(settings);
    ShowModeName(state, settings);
    motors.Open("");
    motors.MoveFirst();
    report.SummaryInit();
  }
  Pair Row(int row) const { return {screen.Summary.Text(row, 0), screen.Summary.Text(row, 1)}; }

  HeadlessDesktop desktop;
  MainScreen screen{desktop};
  DriveState state;
  Settings settings;
  MemoryTable table = CatalogueTable();
  MotorTable motors{table};
  Summarizer report{{screen.Summary,
                     {screen.MotorLine1, screen.MotorLine2, screen.MotionLine, screen.RegenLine1,
                      screen.RegenLine2, screen.IOLine, screen.EncoderLine},
                     state,
                     settings,
                     motors}};
};

TEST_F(SummaryGridTest, StartValuesFillAllSectionsAndTurnTheirLinesGreen) {
  EXPECT_EQ(Row(4), Pair("Motion Mode:", "Motion Mode:"));
  report.SummarizeAll();
  const std::pair<int, const char*> expected[] = {
      {0, "Motor: KM17-1S-170"},        {1, "1.4"}, {4, "Mode: Pulse & Direction"}, {5, "25000"}, {6, ""},
      {8, "Regen resistor (internal)"}, {22, ""},   {20, "Encoder: not used"}};
  for (const auto& [row, text] : expected) EXPECT_EQ(Row(row).first, text) << row;
  for (const int row : {3, 7, 11, 19}) EXPECT_TRUE(screen.Summary.MergeRow(row)) << row;
  std::string black;
  for (const Control* control : screen.Controls()) {
    const auto* const line = dynamic_cast<const ConnectorLine*>(control);
    if (line != nullptr && line->BorderColor() != kGreen) black += line->Name() + " ";
  }
  EXPECT_EQ(black, "CommLine DriveLine1 DriveLine2 ") << "those of no section";
}

TEST_F(SummaryGridTest, ThirdMotionRowFollowsTheMode) {
  using Case = std::tuple<Long, Long, bool, Integer, Pair>;
  const Case cases[] = {{2, 11, true, 0, {"Address", "!"}},
                        {1, 21, false, 0, {"", ""}},
                        {3, 11, true, -1, {"-7.250", "rev/sec @ 5V"}},
                        {3, 11, true, 0, {"-7.250", "rev/sec @ 10V"}},
                        {3, 11, true, 1, {"-7.250", "rev/sec @ 10V"}},
                        {3, 11, true, 2, {"-7.250", "rev/sec @ 5V"}},
                        {3, 11, true, 3, {"-7.250", "rev/sec @ 5V"}},
                        {3, 11, true, 4, {"-7.250", "rev/sec @ 5V"}},
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
  const std::string names = "Fault Out, Alarm In, Limits, Enable, Motion Out, Brake Out, ";
  const auto others = [](const std::string& motion) {
    return "not used, not used, not used, not used, " + motion + ", not used, ";
  };
  const std::pair<Long, std::string> expected[] = {
      {-1, others("not used")},
      {0, others("not used")},
      {1,
       "Close on fault, Close to reset, Closed at limit, Open to enable, Open if running, Close to "
       "release, "},
      {2,
       "Open on fault, Open to reset, Open at limit, Close to enable, Close if running, Open to release, "},
      {3, others("not used")},
      {4, others("Tach 100 ppr")},
      {5, others("Tach 200 ppr")},
      {6, others("Tach 400 ppr")},
      {7, others("Tach 800 ppr")},
      {8, others("Tach 1600 ppr")},
      {9, others("Tach 100 ppr")},
      {2147483647, others("Tach 100 ppr")}};
  for (const auto& [mode, words] : expected) {
    settings.AlarmOutMode = settings.AlarmResetMode = settings.LimitMode = mode;
    settings.EnableMode = settings.MotionOutMode = settings.BrakeMode = mode;
    report.SummarizeIO(kIoRow);
    std::string left;
    std::string right;
    for (int row = 13; row <= 18; ++row) left += Row(row).first + ", ", right += Row(row).second + ", ";
    EXPECT_EQ(left + right, names + words) << mode;
  }
  // Each row follows its own field.
  settings.AlarmOutMode = settings.MotionOutMode = 1;
  settings.AlarmResetMode = settings.EnableMode = settings.BrakeMode = 2;
  settings.LimitMode = 3;
  settings.EnableMode = 9;
  report.SummarizeIO(kIoRow);
  std::string shown;
  for (int row = 13; row <= 18; ++row) shown += Row(row).second + ", ";
  EXPECT_EQ(shown, "Close on fault, Open to reset, not used, not used, Open if running, Open to release, ");
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
  settings.RunCurrent = static_cast<double>(3.2F);
  report.SummarizeAll();
  EXPECT_EQ(Row(22), Pair("Fault drive if motor stalls", "Fault drive if motor stalls"));
  EXPECT_EQ(Row(0).first, "Motor: my motor");
  EXPECT_EQ(Row(8).first, "Regen resistor (external)");
  EXPECT_EQ(Row(9).first, "12.5");
  EXPECT_EQ(Row(1), Pair("3.2", "A/phase")) << "a limit is a single";
}

}  // namespace
}  // namespace kavr6
