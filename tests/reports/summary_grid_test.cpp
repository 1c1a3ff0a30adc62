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
  EXPECT_EQ(screen.Summary.RowHeight(22), 480);
  EXPECT_NE(screen.MotionLine.BorderColor(), kGreen);
  report.SummarizeAll();
  const std::string motor = "Motor: " + motors.Text("PartNoX");
  const std::pair<int, Pair> expected[] = {{0, {motor, motor}},
                                           {1, {"1.4", "A/phase"}},
                                           {2, {"50", "% idle"}},
                                           {4, {"Mode: Pulse & Direction", "Mode: Pulse & Direction"}},
                                           {5, {"25000", "steps/rev"}},
                                           {6, {"", ""}},
                                           {8, {"Regen resistor (internal)", "Regen resistor (internal)"}},
                                           {9, {"40", "Ohms"}},
                                           {10, {"50", "Watts"}},
                                           {13, {"Fault Out", "not used"}},
                                           {15, {"Limits", "Closed at limit"}},
                                           {16, {"Enable", "not used"}},
                                           {20, {"Encoder: not used", "Encoder: not used"}},
                                           {21, {"", ""}},
                                           {22, {"", ""}}};
  for (const auto& [row, cells] : expected) EXPECT_EQ(Row(row), cells) << row;
  for (const int row : {3, 7, 11, 19}) {
    EXPECT_EQ(screen.Summary.At(row, 0).picture, "DividerGradient") << row;
    EXPECT_EQ(screen.Summary.RowHeight(row), 100);
    EXPECT_TRUE(screen.Summary.MergeRow(row));
  }
  for (const ConnectorLine* line :
       {&screen.MotorLine1, &screen.MotorLine2, &screen.MotionLine, &screen.RegenLine1, &screen.RegenLine2,
        &screen.IOLine, &screen.EncoderLine})
    EXPECT_EQ(line->BorderColor(), kGreen) << line->Name();
  for (const ConnectorLine* line : {&screen.CommLine, &screen.DriveLine1, &screen.DriveLine2})
    EXPECT_NE(line->BorderColor(), kGreen) << line->Name();
}

TEST_F(SummaryGridTest, ThirdMotionRowFollowsTheMode) {
  struct Case {
    Long op, control;
    bool analog;
    Integer range;
    Pair row;
  };
  const Case cases[] = {{2, 11, true, 0, {"Address", "!"}},
                        {7, 7, false, 0, {"Address", "!"}},
                        {3, 7, true, 0, {"", ""}},
                        {1, 21, false, 0, {"", ""}},
                        {3, 11, true, 1, {"-7.250", "rev/sec @ 10V"}},
                        {3, 11, true, 2, {"-7.250", "rev/sec @ 5V"}},
                        {4, 11, false, 0, {"10.000", "rev/sec"}}};
  settings.CmdScale = -7.25;
  for (const Case& c : cases) {
    settings.OpMode = c.op;
    settings.ControlMode = c.control;
    settings.AnalogVelocity = c.analog;
    settings.AnalogRange = c.range;
    report.SummarizeMotion(kMotionRow);
    EXPECT_EQ(Row(6), c.row) << c.op << ' ' << c.control;
  }
}

TEST_F(SummaryGridTest, IoWordsByMode) {
  const char* const kTach[] = {"Tach 100 ppr", "Tach 200 ppr",  "Tach 400 ppr",
                               "Tach 800 ppr", "Tach 1600 ppr", "Tach 100 ppr"};
  for (Long mode = 4; mode <= 9; ++mode) {
    settings.MotionOutMode = mode;
    report.SummarizeIO(kIoRow);
    EXPECT_EQ(Row(17), Pair("Motion Out", kTach[mode - 4]));
  }
  const char* const kWords[6][2] = {
      {"Close on fault", "Open on fault"},     {"Close to reset", "Open to reset"},
      {"Closed at limit", "Open at limit"},    {"Open to enable", "Close to enable"},
      {"Open if running", "Close if running"}, {"Close to release", "Open to release"}};
  for (Long mode = 1; mode <= 2; ++mode) {
    settings.AlarmOutMode = settings.AlarmResetMode = settings.LimitMode = mode;
    settings.EnableMode = settings.MotionOutMode = settings.BrakeMode = mode;
    report.SummarizeIO(kIoRow);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(Row(13 + i).second, kWords[i][mode - 1]);
  }
}

TEST_F(SummaryGridTest, StallTextDependsOnTheModeAndFollowsIt) {
  settings.StallPrevent = true;
  settings.MaxTorquePct = 80;
  report.SummarizeMotion(kMotionRow);
  EXPECT_EQ(Row(20).first, "Encoder:") << "not filled before its own turn";
  EXPECT_NE(screen.EncoderLine.BorderColor(), kGreen);
  report.SummarizeEncoder(kEncoderRow);
  EXPECT_EQ(Row(22), Pair("", ""));
  settings.OpMode = 2;
  report.SummarizeMotion(kMotionRow);
  EXPECT_EQ(Row(22).first, "Prevent stalls by limiting torque demand to 80%");
  EXPECT_EQ(Row(21), Pair("4000", "Counts/rev"));
  settings.StallDetect = true;
  settings.OpMode = 3;
  report.SummarizeEncoder(kEncoderRow);
  EXPECT_EQ(Row(22), Pair("Fault drive if motor stalls", "Fault drive if motor stalls"));
}

TEST_F(SummaryGridTest, CustomMotorAndExternalResistorAreNamed) {
  settings.CustomMotor = true;
  settings.MotorName = "my motor";
  settings.RegenExternal = true;
  settings.RegenOhms = 12.5;
  report.SummarizeAll();
  EXPECT_EQ(Row(0).first, "Motor: my motor");
  EXPECT_EQ(Row(8).first, "Regen resistor (external)");
  EXPECT_EQ(Row(9).first, "12.5");
}

}  // namespace
}  // namespace kavr6
