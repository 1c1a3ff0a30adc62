#include "motor/motor_calculations.h"

#include <limits>
#include <tuple>

#include <gtest/gtest.h>

#include "motor/motor_units.h"
#include "platform/headless_desktop.h"
#include "platform/runtime_error.h"
#include "tests/support/memory_table.h"

namespace kavr6 {
namespace {

struct Bench {
  HeadlessDesktop desktop;
  MainScreen screen{desktop};
  MemoryTable memory;
  MotorTable table{memory};
  Settings settings;
  MotorCalculations calculations{settings, screen, table};

  /// With a catalogue motor of 1 N m and 5e-5 kg m2, in oz in and g cm2.
  explicit Bench(double current = 1) {
    InitVars(settings);
    memory.AddMotor("A", current, 141.6, 500);
    memory.MoveFirst();
    for (int model = 0; model < 6; ++model) screen.ModelList.AddItem("model " + std::to_string(model));
  }
  /// A custom motor in N m and kg m2 with a load that is a multiple of its inertia.
  void UseCustom(double torque, double inertia, double ratio) {
    settings.CustomMotor = true;
    settings.TorqueUnit = 4;
    settings.InertiaUnit = 3;
    settings.RatedTorque = torque;
    settings.RotorInertia = inertia;
    settings.InertiaIsRatio = true;
    settings.InertiaRatio = ratio;
  }
};

int ErrorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

TEST(MotorUnits, FactorsAndTheirInverse) {
  const double torque[] = {1.0, 16.0008, 0.0138861456, 13.8861456, 141.6, 141.6, 141.6};
  const double inertia[] = {0.00070616, 1e-8, 1e-5, 0.1, 0.1, 0.1};
  for (int unit = 0; unit < 7; ++unit) EXPECT_DOUBLE_EQ(TorqueToNm(141.6, unit), torque[unit]) << unit;
  for (int unit = 0; unit < 6; ++unit) {
    EXPECT_DOUBLE_EQ(InertiaToKgM2(0.1, unit), inertia[unit]) << unit;
    EXPECT_DOUBLE_EQ(InertiaFromKgM2(inertia[unit], unit), 0.1) << unit;
  }
}

TEST(MotorUnits, PictureFollowsTheMagnitude) {
  std::string texts;
  for (const double value :
       {12345678.4, 100000.0, 1234.56, 999.6,      100.0, 12.34,      10.0,    9.9996, 1.23456, 1.0,
        0.5,        0.1,      0.09,    0.01234567, 0.001, 0.00012344, 0.00001, 1e-9,   0.0,     -12.5})
    texts += FormatByMagnitude(value) + " ";
  EXPECT_EQ(texts,
            "12345678 100000 1235 1000 100 12.3 10.0 10.0 1.235 1.0 .5 .1 .09 .01235 .001 .0001234 .00001 "
            ".00000 .00000 -12.50000 ");
}

TEST(MotorCalculations, LimitIsTheLowerOfDriveAndOneAndAHalfTimesTheMotor) {
  const std::tuple<int, double, float> cases[] = {
      {0, 8, 7.0F}, {0, 4, 6.0F},   {1, 5, 6.0F}, {1, 1.7, 2.55F}, {2, 4.001, 6.0F},
      {3, 2, 3.0F}, {3, 2.2, 3.2F}, {4, 9, 3.2F}, {5, 9, 3.2F},    {-1, 2, 0.0F}};
  for (const auto& [model, rated, limit] : cases) {
    Bench bench(rated);
    bench.screen.ModelList.SetListIndex(model);
    EXPECT_EQ(bench.calculations.MotorCurrentLimit(), limit) << model << " " << rated;
  }
}

TEST(MotorCalculations, MotorOnShowCountsOnlyWhileItsDialogIsInFront) {
  Bench bench(1.0);
  bench.screen.ModelList.SetListIndex(1);
  bench.settings.RatedCurrent = 2.0;
  bench.calculations.DialogShowsCustom = [] { return true; };
  Form dialog(bench.desktop, "MotorDialog");
  EXPECT_EQ(bench.calculations.MotorCurrentLimit(), 1.5F);
  dialog.Show();
  EXPECT_EQ(bench.calculations.MotorCurrentLimit(), 3.0F);
  bench.screen.Show();
  EXPECT_EQ(bench.calculations.MotorCurrentLimit(), 1.5F);
}

TEST(MotorCalculations, LimitsPullDownAndNeverRaise) {
  Bench bench;
  bench.UseCustom(1, 1, 1);
  bench.settings.RatedCurrent = bench.settings.RunCurrent = 5;
  bench.settings.IdlePercent = 95;
  const auto low = static_cast<double>(3.2F);
  for (const auto& [model, current] : {std::pair(1, 5.0), {3, low}, {1, low}}) {
    bench.screen.ModelList.SetListIndex(model);
    bench.calculations.LimitContCurrent();
    EXPECT_EQ(bench.settings.RunCurrent, current);
  }
  bench.calculations.LimitIdleCurrent();
  EXPECT_EQ(bench.settings.IdlePercent, 90);
}

TEST(MotorCalculations, ResonanceOfWorkedMotors) {
  const std::tuple<double, double, double, Long> cases[] = {{1, 0.0001, 0, 113},
                                                            {1, 0.00005, 1, 113},
                                                            {0, 0.0001, 0, 0},
                                                            {-1, -0.0001, 0, 113},
                                                            {1, 0, 5, 200},
                                                            {1, 0.0001, -1, 200},
                                                            // Exactly 2.5 and 3.5.
                                                            {246.741264, 50, 0, 2},
                                                            {483.61287744, 50, 0, 4}};
  Bench bench;
  for (const auto& [torque, inertia, ratio, frequency] : cases) {
    bench.UseCustom(torque, inertia, ratio);
    EXPECT_EQ(bench.calculations.ARfreq(), frequency) << torque << " " << inertia << " " << ratio;
  }
}

TEST(MotorCalculations, LoadFromAFrequencyAsAValueOrARatio) {
  Bench bench;
  bench.settings.InertiaIsRatio = false;
  bench.settings.LoadInertia = 0.00005;
  EXPECT_EQ(bench.calculations.ARfreq(), 113);
  bench.calculations.CalcLoadInertia(113);
  EXPECT_NEAR(bench.settings.LoadInertia, 0.000099186 - 0.00005, 5e-10);
  bench.calculations.CalcLoadInertia(0);
  EXPECT_DOUBLE_EQ(bench.settings.LoadInertia, -0.00005);
  bench.UseCustom(1, 0, 7);
  bench.calculations.CalcLoadInertia(113);
  EXPECT_EQ(bench.settings.InertiaRatio, 7) << "without a rotor inertia there is no ratio";
  bench.UseCustom(1, 0.00005, 7);
  bench.calculations.CalcLoadInertia(113);
  EXPECT_NEAR(bench.settings.InertiaRatio, 0.98372, 1e-5);
  bench.calculations.CalcLoadInertia(0);
  EXPECT_EQ(bench.settings.InertiaRatio, -1);
}

TEST(MotorCalculations, ResonanceThatCannotBeIsAnError) {
  Bench bench;
  const double infinite = std::numeric_limits<double>::infinity();
  const std::tuple<double, double, double, int> cases[] = {
      {1, 0.0001, -3, 5}, {1, 1e-300, 0, 6}, {infinite, 1, 0, 6}, {1, infinite, -1, 6}};
  for (const auto& [torque, inertia, ratio, number] : cases) {
    bench.UseCustom(torque, inertia, ratio);
    EXPECT_EQ(ErrorOf([&] { bench.calculations.ARfreq(); }), number) << torque << " " << inertia;
  }
  bench.settings.CustomMotor = false;
  bench.memory.MoveNext();
  EXPECT_EQ(ErrorOf([&] { bench.calculations.ARfreq(); }), 3021) << "without a current row";
}

}  // namespace
}  // namespace kavr6
