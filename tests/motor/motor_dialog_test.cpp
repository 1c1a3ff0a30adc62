#include "motor/motor_dialog.h"

#include <gtest/gtest.h>

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
  MotorDialog dialog{desktop, screen, table};

  explicit Bench(std::vector<std::string> motors = {"KM23", "KM17", "KM34"}) {
    for (const std::string& name : motors) memory.AddMotor(name, 1, 100, 100);
  }
  void AddIfMissing(const MotorRecord& motor) { AddMotorIfMissing(desktop, table, dialog, motor); }
  std::string Items() const {
    std::string items;
    for (int i = 0; i < dialog.MotorList.Count(); ++i) items += dialog.MotorList.Item(i) + " ";
    return items;
  }
  /// Where the list and the cursor stand.
  void ExpectSelected(const std::string& name) const {
    EXPECT_EQ(dialog.MotorList.Text(), name);
    EXPECT_EQ(table.Text("PartNoX"), name);
  }
};

TEST(MotorDialog, LoadFillsTheListInOrderOverTheMainScreen) {
  Bench bench;
  bench.screen.Move(1000, 500);
  bench.dialog.EnsureLoaded();
  EXPECT_EQ(bench.Items(), "KM17 KM23 KM34 ");
  bench.ExpectSelected("KM17");
  EXPECT_EQ(bench.dialog.Top() - 500, (bench.screen.Height() - bench.dialog.Height()) / 2);
  bench.dialog.MotorList.Select(2);
  bench.ExpectSelected("KM34");
}

TEST(MotorDialog, TableThatCannotBeOpenedOrHasNoMotorEndsTheProgramWithTheReason) {
  for (const bool failOpen : {true, false}) {
    Bench bench(std::vector<std::string>{});
    bench.memory.FailOpen = failOpen;
    bench.desktop.Expect({.textPart = failOpen ? "Error 3024: " : "Error 3021: No current record."});
    EXPECT_THROW(bench.dialog.EnsureLoaded(), ProgramEnded);
    EXPECT_TRUE(bench.desktop.Boxes().at(0).text.ends_with(
        " Can't load motor database.  The KAVR6 Configurator cannot operate without it.  Please try "
        "re-installing the software."));
  }
}

TEST(MotorDialog, NameThatIsNotThereSelectsTheFirstMotor) {
  Bench bench;
  bench.dialog.EnsureLoaded();
  bench.dialog.SetMotorList("KM34");
  bench.ExpectSelected("KM34");
  bench.dialog.SetMotorList("km34");
  bench.ExpectSelected("KM17");
  bench.dialog.MotorList.AddItem("not in the table");
  bench.dialog.MotorList.Select(3);
  EXPECT_EQ(bench.table.Text("PartNoX"), "KM17");
}

TEST(AddMotorIfMissing, UnknownMotorIsAddedOnceWithAllItsValues) {
  Bench bench;
  bench.dialog.EnsureLoaded();
  MotorRecord motor{2.5, 120, 310, 88.5, 1, 2, "KM20", 70, -8, 2, 3, 118, 27};
  bench.AddIfMissing(motor);
  EXPECT_EQ(bench.Items(), "KM17 KM20 KM23 KM34 ");
  bench.ExpectSelected("KM20");
  const std::pair<const char*, double> numbers[] = {
      {"current", 2.5},       {"Torque", 120},        {"inertia", 310},  {"PWMmaxPct", 88.5},
      {"harmonic gain", 70},  {"harmonic phase", -8}, {"TorqueUnit", 2}, {"InertiaUnit", 3},
      {"leadangle deg", 118}, {"leadangle rps", 27}};
  for (const auto& [column, value] : numbers) EXPECT_EQ(bench.table.Number(column), value) << column;
  EXPECT_EQ(bench.table.Text("part number"), "KM20");
  EXPECT_TRUE(bench.table.IsEmpty("R"));
  EXPECT_TRUE(bench.table.IsEmpty("L"));
  EXPECT_EQ(bench.table.Text("R"), "");
  EXPECT_THROW(bench.table.Number("R"), RuntimeError);

  bench.dialog.MotorList.Select(3);
  bench.AddIfMissing(motor);
  bench.ExpectSelected("KM20");
  motor.MotorName.clear();
  bench.AddIfMissing(motor);
  EXPECT_EQ(bench.memory.RowCount(), 4U);
  bench.ExpectSelected("KM20");
}

TEST(AddMotorIfMissing, TableThatCannotBeWrittenIsToldAndTheSelectionStays) {
  Bench bench;
  bench.dialog.EnsureLoaded();
  bench.dialog.MotorList.Select(1);
  bench.memory.FailUpdate = true;
  bench.desktop.Expect({.textPart = "\"KM99\""});
  bench.AddIfMissing({.MotorName = "KM99"});
  EXPECT_NE(bench.desktop.Boxes().at(0).text.find("read-only"), std::string::npos);
  EXPECT_EQ(bench.Items(), "KM17 KM23 KM34 ");
  bench.ExpectSelected("KM23");
}

}  // namespace
}  // namespace kavr6
