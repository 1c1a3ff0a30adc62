// Words and codes of the core's tables, written out once more: two exchanged rows would change list, grid,
// report and bytes alike, so none of these can be held against another.
#include <sstream>

#include "core/alarms.h"
#include "core/analog_ranges.h"
#include "core/drive_models.h"
#include "core/io_modes.h"
#include "core/serial_protocol.h"
#include "core/status_word.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

/// One line for each row of a table.
template <class Table, class Row>
std::string Lines(const Table& table, Row row) {
  std::ostringstream text;
  for (const auto& line : table) {
    row(text, line);
    text << '\n';
  }
  return text.str();
}

char Colour(Lamp::State lit) { return "-gyr"[static_cast<std::size_t>(lit)]; }

TEST(Facts, DriveModelsAsListedWithCodeCurrentAndPrograms) {
  Scene scene;
  scene.Start();
  const ListBox& list = scene.main.ModelList;
  std::ostringstream text;
  for (int row = 0; row < list.Count(); ++row) {
    const DriveModel& model = kDriveModels.at(static_cast<std::size_t>(row));
    text << list.Item(row) << ' ' << list.ItemData(row) << ' ' << ModelIndex(list.ItemData(row)) << ' '
         << model.continuousCurrent << ' ' << model.wyProgram << model.zuProgram << '\n';
  }
  EXPECT_EQ(text.str(), R"(KAVR6-Bx 41 0 7 00
KAVR6-Wy 42 1 6 10
KAVR6-Zu 43 2 6 11
KAVR6-Bx-220 44 3 3.2 00
KAVR6-Wy-220 45 4 3.2 10
KAVR6-Zu-220 46 5 3.2 11
)");
  EXPECT_EQ(ModelIndex(40) + ModelIndex(47), -2);
}

TEST(Facts, MotionModesOnTheMainScreenAndInPrint) {
  const std::tuple<Long, Long, Long, const char*> cases[] = {{0, 7, 0, ""},
                                                             {1, 21, 0, "Zu Program"},
                                                             {2, 7, 0, "VTL Mode"},
                                                             {3, 11, 0, "Velocity Mode"},
                                                             {3, 7, -1, "CW/CCW Pulse"},
                                                             {3, 7, 0, "Pulse && Direction"},
                                                             {3, 7, 1, "CW/CCW Pulse"},
                                                             {3, 7, 2, "Quadrature Following"},
                                                             {3, 7, 3, "CW/CCW Pulse"},
                                                             {3, 2, 0, "before"},
                                                             {4, 11, 0, "Zulink Hub"},
                                                             {5, 7, 0, ""},
                                                             {6, 11, 0, ""},
                                                             {7, 7, 2, "Wy Program"},
                                                             {8, 7, 0, ""}};
  Settings s;
  for (const auto& [op, control, pulse, name] : cases) {
    s.OpMode = op, s.ControlMode = control, s.PulseType = pulse;
    EXPECT_EQ(ModeName(s, "before"), name) << op << ' ' << control << ' ' << pulse;
  }
  const auto mode = [](std::ostream& text, const auto& row) { text << row.code << ' ' << row.reported; };
  EXPECT_EQ(Lines(kOperatingModes, mode), R"(1 Zu Programmer mode
2 VTL mode, RS-485 address = 
4 Hub mode
7 Wy Programmer mode, RS-485 address = 
)");
  const auto reported = [](std::ostream& text, const auto& row) { text << row.reported; };
  EXPECT_EQ(Lines(kPulseKinds, reported), R"(Pulse & direction
CW Pulse / CCW Pulse
Quadrature encoder following
)");
  EXPECT_EQ(Lines(kAnalogRanges, reported), R"(Range = +/- 10V
Range = 0 to 10V
Range = +/- 5V
Range = 0 to 5V
)");
  EXPECT_EQ(Lines(kProtocolBits, mode), R"(2 Prefix all responses with address character
4 Respond to all commands with ack or nak
16 Use this drive as RS-232 to RS-485 converter
32 Use Red Lion register addressing
)");
}

TEST(Facts, PackedVelocityCodesGiveTheirThreeOptions) {
  std::ostringstream text;
  for (const Long packed : {10, 11, 12, 13, 14, 15, 16, 17, 18, 19}) {
    Settings s;
    s.ControlMode = packed;
    DecodeControlMode(s);
    text << s.ControlMode << (s.AnalogVelocity ? " analog" : "") << (s.TwoSpeeds ? " two" : "")
         << (s.RunStop ? " run" : "") << ", ";
  }
  EXPECT_EQ(text.str(),
            "10, 11 analog, 11 analog run, 11 analog two, 11 analog two run, "
            "11, 11 run, 11 two, 11 two run, 19, ");
}

TEST(Facts, InputsAndOutputsInPrint) {
  const auto lines = [](std::ostream& text, const IoFunction& row) {
    text << row.name;
    for (const std::string_view line : row.reported) text << '\n' << line;
    text << '\n' << row.reportedOther;
  };
  EXPECT_EQ(Lines(kIoFunctions, lines), R"(Fault Out
If a fault occurs, close Alarm Output.
If a fault occurs, open Alarm Output.
Alarm Output not used for signaling faults, available for other uses.
3
Alarm In
Allow faults to be cleared by closing Alarm Reset Input
Allow faults to be cleared by opening Alarm Reset Input
Do not allow faults to be cleared by Alarm Reset Input
3
Limits
At end of travel limit, sensors are closed.
At end of travel limit, sensors are open.
No limit sensors, limit inputs are available for other uses.
0
Enable
Enable motor when Enable input is closed.
Enable motor when Enable input is open.
Enable motor automatically at power up.
3
Motion Out
Open Motion Output when moving.
Close Motion Output when moving.
Motion Output not used.
0
Brake Out
Close Brake Output # ms before moving, open brake output # ms before disabling servo.
Open Brake Output # ms before moving, close brake output # ms before disabling servo.
Brake Output not used for brake, available for other uses.
2
)");
}

TEST(Facts, AlarmsByBitInTheThreeWindows) {
  const auto row = [](std::ostream& text, const Alarm& alarm) {
    text << Colour(alarm.lit) << (alarm.popsUp ? '!' : ' ') << alarm.monitored << '|' << alarm.fault << '|'
         << alarm.history;
  };
  EXPECT_EQ(Lines(kAlarms, row), R"(y!motor stall|motor stalled|motor stall
y CCW Limit|CCW Limit|CCW Limit
y CW Limit|CW Limit|CW Limit
r!over temp|drive overtemp|drive overtemp
r!excess regen|excess regen|excess regen
r!over voltage|over voltage|over voltage
r under voltage|under voltage|under voltage
r!overcurrent|motor short|over current
r open phase|open motor winding|open motor winding
r!bad encoder|bad encoder|bad encoder
y serial comm|comm error|comm error
y flash memory|save failed|save failed
y move while dis|move while disabled|move attempted while disabled
y motor ohms|motor resistance error|motor resistance
-!||reserved
-!||reserved
)");
  EXPECT_EQ(kPopupAlarms, 49849);
  const auto label = [](std::ostream& text, std::size_t bit) { text << kAlarms.at(bit).monitored; };
  EXPECT_EQ(Lines(kMonitoredAlarms, label), R"(motor stall
motor ohms
CCW Limit
CW Limit
over temp
excess regen
over voltage
under voltage
move while dis
overcurrent
open phase
bad encoder
serial comm
flash memory
)");
}

TEST(Facts, StatusByBit) {
  const auto row = [](std::ostream& text, const StatusBit& bit) {
    text << Colour(bit.lit) << ' ' << bit.name;
  };
  EXPECT_EQ(Lines(kStatusBits, row), R"(g Enabled
g Sampling
r Fault
g Motion
g P2P Move
g Jogging
y Stopping
g Wait Input
g Saving
y Alarm
g Homing
g Wait Time
g Wizard 1
g Wizard 2
)");
}

}  // namespace
}  // namespace kavr6
