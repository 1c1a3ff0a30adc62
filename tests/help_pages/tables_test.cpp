// The facts in the pages are those of the program.
#include <gtest/gtest.h>

#include "core/alarms.h"
#include "core/drive_models.h"
#include "core/io_modes.h"
#include "core/numbers.h"
#include "core/status_word.h"
#include "help/code_window.h"
#include "help/summary.h"
#include "help/teq_help.h"
#include "tests/help_pages/page.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

/// The first columns of a table.
Rows Columns(Rows rows, std::size_t count) {
  for (auto& row : rows) row.resize(std::min(row.size(), count));
  return rows;
}

std::string ColorOf(Lamp::State lit) {
  switch (lit) {
    case Lamp::State::Green:
      return "green";
    case Lamp::State::Yellow:
      return "yellow";
    case Lamp::State::Red:
      return "red";
    default:
      return "";
  }
}

std::string YesNoOf(bool yes) { return yes ? "yes" : "no"; }

/// As a label shows it.
std::string Shown(std::string text) {
  if (const std::size_t at = text.find("&&"); at != std::string::npos) text.erase(at, 1);
  return text;
}

TEST(HelpTables, Alarms) {
  Rows rows;
  for (std::size_t bit = 0; bit < kAlarms.size(); ++bit) {
    const Alarm& alarm = kAlarms[bit];
    rows.push_back({std::to_string(bit), std::string(alarm.monitored), std::string(alarm.fault),
                    std::string(alarm.history), ColorOf(alarm.lit), YesNoOf(alarm.popsUp)});
  }
  EXPECT_EQ(Lines(TableRows("ErrorCodes.html", "alarms")), Lines(rows));
}

TEST(HelpTables, EachAlarmIsExplainedUnderItsName) {
  const auto& places = HelpPage("ErrorCodes.html").headings;
  for (std::size_t bit = 0; bit < kAlarms.size(); ++bit) {
    const auto place = places.find("alarm" + std::to_string(bit));
    EXPECT_EQ(place == places.end() ? "" : place->second, kAlarms[bit].monitored);
  }
}

TEST(HelpTables, StatusBits) {
  Rows rows;
  for (const StatusBit& bit : kStatusBits)
    rows.push_back({std::to_string(rows.size()), std::string(bit.name), ColorOf(bit.lit)});
  EXPECT_EQ(Lines(Columns(TableRows("status_monitor.html", "status"), 3)), Lines(rows));
}

TEST(HelpTables, InputsAndOutputsOfTheMonitor) {
  Scene scene;
  ExecStatus& monitor = scene.program.StatusMonitor;
  Rows inputs, outputs;
  for (Label& name : monitor.XLabel) inputs.push_back({name.Caption()});
  for (Label& name : monitor.OutLabel) outputs.push_back({name.Caption()});
  for (Label* name : {&monitor.Y1, &monitor.Y2, &monitor.Y3}) outputs.push_back({name->Caption()});
  EXPECT_EQ(Lines(Columns(TableRows("status_monitor.html", "inputs"), 1)), Lines(inputs));
  EXPECT_EQ(Lines(Columns(TableRows("status_monitor.html", "outputs"), 1)), Lines(outputs));
}

TEST(HelpTables, Models) {
  Rows rows;
  for (const DriveModel& model : kDriveModels)
    rows.push_back({std::string(model.name), NumberText(model.continuousCurrent), YesNoOf(model.wyProgram),
                    YesNoOf(model.zuProgram)});
  EXPECT_EQ(Lines(TableRows("download_upload.html", "models")), Lines(rows));
}

TEST(HelpTables, WordsForInputsAndOutputs) {
  Rows shown, reported;
  for (const IoFunction& function : kIoFunctions) {
    const std::string name(function.name);
    shown.push_back({name, std::string(function.shown[0]), std::string(function.shown[1])});
    for (std::size_t mode = 0; mode < 3; ++mode) {
      std::string words(function.reported[mode]);
      for (std::size_t at; (at = words.find('#')) != std::string::npos;) words.replace(at, 1, "…");
      reported.push_back({name + ": " + (mode < 2 ? std::string(function.shown[mode]) : "not used"), words});
    }
  }
  EXPECT_EQ(Lines(TableRows("summary.html", "io")), Lines(shown));
  EXPECT_EQ(Lines(TableRows("report.html", "words")), Lines(reported));
}

TEST(HelpTables, TextCommands) {
  HeadlessDesktop desktop;
  Summary list(desktop);
  const auto rowsOf = [](CommandList& commands) {
    Rows rows;
    for (int i = 0; i < commands.cmd.Count(); ++i)
      rows.push_back({commands.cmd[i].Caption(), Shown(commands.desc[i].Caption())});
    return rows;
  };
  EXPECT_EQ(Lines(Columns(TableRows("text_language.html", "commands"), 2)), Lines(rowsOf(list)));
  EXPECT_EQ(Lines(Columns(TableRows("text_language.html", "servo"), 2)), Lines(rowsOf(list.ServoCommands)));
}

TEST(HelpTables, Codes) {
  for (const CodeTable& table :
       {kMRcodes, kRScodes, kDefCodes, kBRcodes, kLimCodes, kIOcodes, kControlModes, kEFcodes}) {
    std::string lines;
    for (const std::string_view line : table.lines)
      if (!line.empty()) lines += Shown(std::string(line)) + "\n";
    // One of the windows lacks a blank.
    if (const std::size_t at = lines.find("W="); at != std::string::npos) lines.insert(at + 1, " ");
    std::string found;
    for (const auto& row : TableRows("codes.html", std::string(table.name)))
      found += row.size() == 1 ? row[0] + "\n" : row[0] + " = " + row[1] + "\n";
    EXPECT_EQ(found, lines);
    const auto& places = HelpPage("codes.html").headings;
    EXPECT_EQ(places.contains(std::string(table.name)) ? places.at(std::string(table.name)) : "",
              table.title);
  }
}

}  // namespace
}  // namespace kavr6
