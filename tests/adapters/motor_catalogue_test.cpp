#include "adapters/sqlite/motor_catalogue.h"

#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "adapters/sqlite/sqlite_table.h"
#include "motor/motor_calculations.h"
#include "motor/motor_dialog.h"
#include "platform/headless_desktop.h"
#include "tests/support/temp_folder.h"

namespace kavr6 {
namespace {

std::string ReasonAgainst(const std::string& text) {
  std::istringstream lines(text);
  try {
    ReadCatalogue(lines);
  } catch (const CatalogueError& error) {
    return error.what();
  }
  return "none";
}

TEST(MotorCatalogue, BadLineIsNamedWithItsReason) {
  std::string names = "part number";
  for (std::size_t i = 1; i < kMotorColumns.size(); ++i) names += "," + std::string(kMotorColumns[i].name);
  const std::string good = "KM1,KM1,1.5,60,0,57,1,700,-4,30,120,85,2.1,3.2,x\n";
  EXPECT_EQ(ReasonAgainst(good), "line 1: these are not the columns of the motor table");
  EXPECT_EQ(ReasonAgainst(names), "line 1: the catalogue has no motor");
  const std::pair<const char*, const char*> cases[] = {
      {"KM2,KM2,1", "3 values instead of 15"},
      {"", "1 values instead of 15"},
      {"KM1,KM1,1.5,60,0,57,1,0,0,30,120,85,2,3,x", "the part number KM1 is there twice"},
      {"KM2,KM3,1.5,60,0,57,1,0,0,30,120,85,2,3,x", "\"PartNoX\" must repeat the part number"},
      {"KM 2,KM 2,1.5,60,0,57,1,0,0,30,120,85,2,3,x", "the part number has a blank or a special character"},
      {"KM234567890123,,1.5,60,0,57,1,0,0,30,120,85,2,3,x", "the part number must have 1 to 13 characters"},
      {"KM2,KM2,1.5A,60,0,57,1,0,0,30,120,85,2,3,x", "\"current\" is \"1.5A\", not a number of its kind"},
      {"KM2,KM2,nan,60,0,57,1,0,0,30,120,85,2,3,x", "\"current\" is \"nan\", out of range"},
      {"KM2,KM2,1.5,60,5,57,1,0,0,30,120,85,2,3,x", "\"TorqueUnit\" is \"5\", out of range"},
      {"KM2,KM2,1.5,60,0.5,57,1,0,0,30,120,85,2,3,x", "\"TorqueUnit\" is \"0.5\", not a number of its kind"},
      {"KM2,KM2,1.5,60,0,57,1,0,0,30,120,85,2,3,\"x\"", "quotes are not allowed"}};
  for (const auto& [line, reason] : cases)
    EXPECT_EQ(ReasonAgainst(names + "\r\n" + good + line + "\n"), std::string("line 3: ") + reason);
}

/// What a person in the trade would check in a data sheet.
void ExpectPlausible(const MotorTable& motor, Long resonance) {
  const auto within = [](double value, double least, double most) { return value >= least && value <= most; };
  const double current = motor.Number("current");
  EXPECT_TRUE(within(2 * current * current * motor.Number("R"), 3, 100)) << "watts";
  EXPECT_TRUE(within(motor.Number("L") / motor.Number("R"), 0.3, 25)) << "milliseconds";
  EXPECT_TRUE(within(motor.Number("PWMmaxPct"), 50, 16000.0 / 170));
  EXPECT_TRUE(within(resonance, 30, 1000)) << resonance;
}

TEST(MotorCatalogue, ShippedMotorsHoldTogether) {
  const TempFolder folder;
  std::ifstream text(KAVR6_MOTORS_CSV);
  const std::vector<CatalogueRow> rows = ReadCatalogue(text);
  WriteMotorFile({}, folder.Path() / kMotorFile);
  WriteMotorFile(rows, folder.Path() / kMotorFile);  // in its place

  HeadlessDesktop desktop;
  desktop.SetProgramDirectory(folder.Path());
  MainScreen screen(desktop);
  SqliteTable access;
  MotorTable motors(access);
  MotorDialog dialog(desktop, screen, motors);
  dialog.EnsureLoaded();
  ASSERT_EQ(dialog.MotorList.Count(), static_cast<int>(rows.size()));
  EXPECT_NEAR(static_cast<double>(rows.size()), 30, 5);

  Settings settings;
  InitVars(settings);
  MotorCalculations calculations(settings, screen, motors);
  for (int i = 0; i < dialog.MotorList.Count(); ++i) {
    dialog.MotorList.Select(i);
    SCOPED_TRACE(dialog.MotorList.Text());
    ASSERT_EQ(motors.Text("PartNoX"), dialog.MotorList.Text());
    EXPECT_TRUE(std::holds_alternative<double>(access.Read("Torque"))) << "also where it is a whole number";
    EXPECT_TRUE(std::holds_alternative<std::int64_t>(access.Read("harmonic gain")));
    ExpectPlausible(motors, calculations.ARfreq());
  }
}

}  // namespace
}  // namespace kavr6
