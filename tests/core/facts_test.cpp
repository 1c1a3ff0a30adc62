// Words and codes of the core's tables, written out once more in facts.txt: two exchanged rows would change
// list, grid, report and bytes alike, so none of these can be held against another.
#include <fstream>
#include <iterator>
#include <numeric>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "core/alarms.h"
#include "core/analog_ranges.h"
#include "core/drive_models.h"
#include "core/io_modes.h"
#include "core/serial_protocol.h"
#include "core/status_word.h"

namespace kavr6 {
namespace {

/// A title, then one line for each row of a table.
template <class Table, class Row>
void Tell(std::ostream& text, const char* title, const Table& table, Row row) {
  text << (text.tellp() > 0 ? "\n# " : "# ") << title << '\n';
  for (const auto& line : table) {
    row(line);
    text << '\n';
  }
}

char Colour(Lamp::State lit) { return "-gyr"[static_cast<std::size_t>(lit)]; }

/// So many numbers from the first on.
std::vector<Long> From(Long first, std::size_t count) {
  std::vector<Long> numbers(count);
  std::iota(numbers.begin(), numbers.end(), first);
  return numbers;
}

std::string ModeNameOf(Long op, Long control, Long pulses) {
  Settings s;
  s.OpMode = op, s.ControlMode = control, s.PulseType = pulses;
  return ModeName(s, "before");
}

TEST(Facts, StandAsTheyAreWrittenOutByHand) {
  std::ostringstream text;
  const auto coded = [&](const auto& row) { text << row.code << ' ' << row.reported; };
  const auto reported = [&](const auto& row) { text << row.reported; };
  Tell(text, "Drive models: code, index, continuous current, Wy program, Zu program", kDriveModels,
       [&](const DriveModel& model) {
         text << model.name << ' ' << model.code << ' ' << ModelIndex(model.code) << ' '
              << model.continuousCurrent << ' ' << model.wyProgram << model.zuProgram;
       });
  Tell(text, "Operating modes in print", kOperatingModes, coded);
  Tell(text, "Pulse kinds in print", kPulseKinds, reported);
  Tell(text, "Analog ranges in print", kAnalogRanges, reported);
  Tell(text, "Protocol bits in print", kProtocolBits, coded);
  Tell(text, "Inputs and outputs in print: modes 1 to 3, and the mode as which others are printed",
       kIoFunctions, [&](const IoFunction& row) {
         text << row.name;
         for (const std::string_view line : row.reported) text << '\n' << line;
         text << '\n' << row.reportedOther;
       });
  Tell(text, "Alarms by bit: lamp, popup; monitor, fault window, history", kAlarms, [&](const Alarm& alarm) {
    text << Colour(alarm.lit) << (alarm.popsUp ? '!' : ' ') << alarm.monitored << '|' << alarm.fault << '|'
         << alarm.history;
  });
  Tell(text, "Rows of the status monitor", kMonitoredAlarms,
       [&](std::size_t bit) { text << kAlarms.at(bit).monitored; });
  Tell(text, "Status by bit", kStatusBits,
       [&](const StatusBit& bit) { text << Colour(bit.lit) << ' ' << bit.name; });
  Tell(text, "Motion modes on the main screen: by operating mode, with control modes 2, 7, 11 and 21",
       From(0, 9), [&](Long op) {
         text << op;
         for (const Long control : {2, 7, 11, 21}) text << '|' << ModeNameOf(op, control, 0);
       });
  Tell(text, "Motion modes on the main screen: by kind of pulses", From(-1, 5),
       [&](Long pulses) { text << pulses << ' ' << ModeNameOf(3, 7, pulses); });
  Tell(text, "Packed velocity codes and their three options", From(10, 10), [&](Long packed) {
    Settings s;
    s.ControlMode = packed;
    DecodeControlMode(s);
    text << packed << ": " << s.ControlMode << (s.AnalogVelocity ? " analog" : "")
         << (s.TwoSpeeds ? " two" : "") << (s.RunStop ? " run" : "");
  });
  std::ifstream file(KAVR6_SOURCE "/tests/core/facts.txt");
  EXPECT_EQ(text.str(), std::string(std::istreambuf_iterator<char>(file), {}));
  EXPECT_EQ(ModelIndex(40) + ModelIndex(47), -2);
  EXPECT_EQ(kPopupAlarms, 49849);
}

}  // namespace
}  // namespace kavr6
