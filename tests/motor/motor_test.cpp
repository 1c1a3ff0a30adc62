#include <limits>
#include <tuple>

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "motor/dialogs/motor_dialog.h"
#include "motor/motor_calculations.h"
#include "motor/motor_units.h"
#include "platform/headless/headless_desktop.h"
#include "tests/support/error_of.h"
#include "tests/support/memory_table.h"

namespace kavr6 {
namespace {

/// The motor table with its dialog and calculations.
struct Bench {
  HeadlessDesktop desktop;
  Form main{desktop, "MainForm"};
  DriveState state;
  MemoryTable memory;
  MotorTable table{memory};
  Settings settings;
  CurrentLimits limits{settings, state, table};
  MotorDialog dialog{{main, state, settings}, table, limits};

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
  /// With the dialog loaded.
  explicit Bench(const std::vector<std::string>& motors) : Bench() {
    for (const std::string& name : motors) memory.AddMotor(name, 1, 100, 100);
    dialog.EnsureLoaded();
  }
  void AddIfMissing(const MotorRecord& motor) { AddMotorIfMissing(table, dialog, motor); }
  std::string Items() const {
    std::string items;
    for (int i = 0; i < dialog.MotorList.Count(); ++i) items += dialog.MotorList.Item(i) + " ";
    return items;
  }
  /// Where the list and the cursor stand.
  void ExpectSelected(const std::string& name) const {
    EXPECT_EQ(dialog.MotorList.Text(), name);
    EXPECT_EQ(table.Row().PartNoX, name);
  }
};

const std::vector<std::string> kThreeMotors{"KM23", "KM17", "KM34"};

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

TEST(MotorDialog, ListInOrderLeadsTheCursorAndAMissingNameSelectsTheFirstMotor) {
  Bench bench(kThreeMotors);
  EXPECT_EQ(bench.Items(), "KM17 KM23 KM34 ");
  bench.ExpectSelected("KM17");
  EXPECT_EQ(bench.dialog.Top(), (bench.main.Height() - bench.dialog.Height()) / 2);
  bench.dialog.Show();
  bench.dialog.MotorList.Select(1);
  bench.ExpectSelected("KM23");
  bench.dialog.SetMotorList("KM34");
  bench.ExpectSelected("KM34");
  bench.dialog.SetMotorList("km34");
  bench.ExpectSelected("KM17");
}

TEST(MotorDialog, TableThatCannotBeOpenedOrHasNoMotorEndsTheProgramWithTheReason) {
  for (const bool failOpen : {true, false}) {
    Bench bench;
    bench.memory.FailOpen = failOpen;
    const std::string error =
        failOpen ? "Error 3024: Couldn't find the file." : "Error 3021: No current record.";
    bench.desktop.Expect({.text = error +
                                  " Can't load motor database.  The KAVR6 Configurator cannot operate "
                                  "without it.  Please try re-installing the software."});
    EXPECT_THROW(bench.dialog.EnsureLoaded(), ProgramEnded);
  }
}

TEST(AddMotorIfMissing, UnknownMotorIsAddedOnceWithAllItsValuesAndKeptForThisRunWhenTheTableCannotBeWritten) {
  for (const bool readOnly : {false, true}) {
    Bench bench(kThreeMotors);
    bench.dialog.Show();
    bench.dialog.MotorList.Select(1);
    MotorRecord motor{2.5, 120, 310, 88.5, 1, 2, "KM20", 70, -8, 2, 3, 118, 27};
    bench.memory.FailUpdate = readOnly;
    if (readOnly)
      bench.desktop.Expect(
          {.text = "The motor \"KM20\" is not in the motor database and cannot be added to it.  The "
                   "database is read-only.  It is selected all the same and can be used until the program "
                   "ends.",
           .icon = BoxIcon::Exclamation});
    bench.AddIfMissing(motor);
    EXPECT_EQ(bench.memory.RowCount(), readOnly ? 3U : 4U);
    std::string numbers;
    for (const MotorNumber column :
         {&MotorRow::Current, &MotorRow::Torque, &MotorRow::Inertia, &MotorRow::PWMmaxPct,
          &MotorRow::HarmonicGain, &MotorRow::HarmonicPhase, &MotorRow::TorqueUnit, &MotorRow::InertiaUnit,
          &MotorRow::LeadAngleDeg, &MotorRow::LeadAngleRps, &MotorRow::R, &MotorRow::L})
      numbers += ColumnText(bench.table.Row().*column) + " ";
    EXPECT_EQ(numbers, "2.5 120 310 88.5 70 -8 2 3 118 27   ");
    for (const char* name : {"KM20", ""}) {
      motor.MotorName = name;
      bench.AddIfMissing(motor);
      EXPECT_EQ(bench.Items(), "KM17 KM20 KM23 KM34 ");
      bench.ExpectSelected("KM20");
    }
    bench.dialog.MotorList.Select(3);
    bench.ExpectSelected("KM34");
    bench.dialog.MotorList.Select(1);
    bench.ExpectSelected("KM20");
  }
}

}  // namespace
}  // namespace kavr6
