#include <limits>
#include <tuple>

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "motor/memory_table.h"
#include "motor/motor_calculations.h"
#include "motor/motor_units.h"
#include "motor/own_rows.h"
#include "tests/support/error_of.h"

namespace kavr6 {
namespace {

/// The motor table with its calculations.
struct Bench {
  DriveState state;
  MemoryTable memory;
  MotorTable table{memory};
  Settings settings;
  CurrentLimits limits{settings, state, table};

  Bench() { InitVars(settings); }
  /// With a catalogue motor of 1 N m and 5e-5 kg m2, in oz in and g cm2.
  explicit Bench(double current) : Bench() {
    memory.AddMotor("A", current, 141.6, 500);
    memory.MoveFirst();
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
  for (const double value : {1234.56, 999.6, 12.34, 9.9996, 1.0, 0.5, 0.09, 0.001, 0.00012344, 1e-9, -12.5})
    texts += FormatByMagnitude(value) + " ";
  EXPECT_EQ(texts, "1235 1000 12.3 10.0 1.0 .5 .09 .001 .0001234 .00000 -12.50000 ");
}

TEST(MotorRows, EmptyColumnsAreNothingInARecord) { EXPECT_EQ(RecordOf({}), MotorRecord()); }

TEST(MotorCalculations, LimitIsTheLowerOfDriveAndOneAndAHalfTimesTheMotor) {
  const std::tuple<int, double, float> cases[] = {{0, 8, 7.0F},    {0, 4, 6.0F},   {1, 5, 6.0F},
                                                  {1, 1.7, 2.55F}, {3, 2.2, 3.2F}, {-1, 2, 0.0F}};
  for (const auto& [model, rated, limit] : cases) {
    Bench bench(rated);
    bench.state.ModelIndex = model;
    EXPECT_EQ(bench.limits.MotorCurrentLimit(), limit) << model << " " << rated;
  }
}

TEST(MotorCalculations, ResonanceOfWorkedMotors) {
  const double infinite = std::numeric_limits<double>::infinity();
  using Row = std::tuple<double, double, double, Long>;
  const Row cases[] = {{1, 0.0001, 0, 113},    {1, 0.00005, 1, 113}, {-1, -0.0001, 0, 113}, {1, 0, 5, 200},
                       {246.741264, 50, 0, 2}, {1, 0.0001, -3, -5},  {1, infinite, -1, -6}};
  Bench bench(1.0);
  for (const auto& [torque, inertia, ratio, expected] : cases) {
    bench.UseCustom(torque, inertia, ratio);
    Long frequency = 0;
    const int error = ErrorOf([&] { frequency = ARfreq(bench.settings, bench.table.Row()); });
    EXPECT_EQ(error != 0 ? -error : frequency, expected) << torque << " " << inertia << " " << ratio;
  }
  bench.settings.CustomMotor = false;
  bench.memory.MoveNext();
  EXPECT_EQ(ErrorOf([&] { MotorTable(bench.memory).Row(); }), 3021) << "without a current row";
}

TEST(MotorCalculations, LoadFromAFrequencyAsAValueOrARatio) {
  Bench bench(1.0);
  bench.settings.InertiaIsRatio = false;
  bench.settings.LoadInertia = 0.00005;
  EXPECT_EQ(ARfreq(bench.settings, bench.table.Row()), 113);
  CalcLoadInertia(bench.settings, bench.table.Row(), 113);
  EXPECT_NEAR(bench.settings.LoadInertia, 0.000099186 - 0.00005, 5e-10);
  CalcLoadInertia(bench.settings, bench.table.Row(), 0);
  EXPECT_DOUBLE_EQ(bench.settings.LoadInertia, -0.00005);
  bench.UseCustom(1, 0.00005, 7);
  CalcLoadInertia(bench.settings, bench.table.Row(), 113);
  EXPECT_NEAR(bench.settings.InertiaRatio, 0.98372, 1e-5);
}

/// A catalogue, and one user's motors.
struct TwoTables {
  MemoryTable common;
  MemoryTable own;
  std::string made;
  int read = 0;
  OwnRows both{common,
               {[this] { return ++read, std::make_unique<MemoryTable>(own); }, "/",
                [this](const auto& file) { made += file.string(); }}};

  void Fill(const char* commons, const char* owns) {
    for (const char c : std::string(commons)) common.AddMotor({c}, 1, 1, 1);
    for (const char c : std::string(owns)) own.AddMotor({c}, 2, 1, 1);
    both.Open("file", "table");
    both.SetIndex("PartNoX");
  }
  /// The current row and all that follow, the user's in brackets.
  std::string Rest() {
    std::string names;
    for (; !both.EndOfTable(); both.MoveNext()) {
      const std::string name = std::get<std::string>(both.Read("part number"));
      names += std::get<double>(both.Read("current")) == 1 ? name : "(" + name + ")";
    }
    return names;
  }
};

TEST(OwnRows, StandInTheOrderOfTheTableAndGiveWayToItsOwn) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"", "", ""},           {"BD", "", "BD"},
      {"", "BD", "(B)(D)"},   {"BD", "ACE", "(A)B(C)D(E)"},
      {"BD", "BCD", "B(C)D"}, {"BDE", "ABDEF", "(A)BDE(F)"}};
  for (const auto& [common, own, all] : cases) {
    TwoTables tables;
    tables.Fill(common, own);
    tables.both.MoveFirst();
    EXPECT_EQ(tables.Rest(), all);
  }
}

TEST(OwnRows, GoOnBehindTheRowThatWasSought) {
  const std::pair<const char*, const char*> cases[] = {
      {"A", "(A)B(C)DE(F)"}, {"B", "B(C)DE(F)"}, {"C", "(C)DE(F)"}, {"D", "DE(F)"}, {"F", "(F)"}};
  for (const auto& [key, rest] : cases) {
    TwoTables tables;
    tables.Fill("BDE", "ABCDF");
    tables.both.Seek(key);
    EXPECT_FALSE(tables.both.NoMatch());
    tables.both.Seek("X");
    EXPECT_TRUE(tables.both.NoMatch());
    EXPECT_EQ(tables.Rest(), rest);
  }
}

TEST(OwnRows, TakeWhatTheTableDoesNot) {
  TwoTables tables;
  tables.Fill("B", "A");
  MotorTable motors(tables.both);
  EXPECT_EQ(motors.Append({.MotorName = "C"}).elsewhere, "");
  tables.common.FailUpdate = true;
  EXPECT_TRUE(motors.Seek("A"));
  EXPECT_EQ(motors.Append({.MotorName = "D"}).elsewhere, "/");
  EXPECT_EQ(tables.Rest(), "(A)B(C)(D)");
  EXPECT_EQ(tables.made, "/");
  EXPECT_TRUE(motors.Seek("D") && motors.Seek("C"));
  EXPECT_EQ(tables.common.RowCount(), 2U);
}

TEST(OwnRows, LeftOutInTheMiddleKeepTheCursorAndAreNotReadAgain) {
  TwoTables tables;
  tables.Fill("BD", "AC");
  tables.both.Seek("C");
  tables.common.FailUpdate = tables.own.FailOpen = true;
  EXPECT_TRUE(MotorTable(tables.both).Append({.MotorName = "X"}).refusal);
  EXPECT_EQ(tables.Rest(), "(C)D");
  for (const char* key : {"A", "B", "C"}) tables.both.Seek(key);
  EXPECT_EQ(tables.Rest(), "BD");
  EXPECT_EQ(tables.read, 3) << "at first, for the new row and for the next look";
  EXPECT_NE(tables.both.LeftOut(), "");
}

}  // namespace
}  // namespace kavr6
