#include "apps/help_writer/facts.h"

#include <concepts>
#include <functional>
#include <span>
#include <string_view>

#include "apps/help_writer/markup.h"
#include "core/alarms.h"
#include "core/analog_ranges.h"
#include "core/drive_models.h"
#include "core/io_modes.h"
#include "core/motion_codes.h"
#include "core/numbers.h"
#include "core/regen_resistor.h"
#include "core/serial_protocol.h"
#include "core/status_word.h"
#include "dialogs/numeric_entry.h"
#include "help/code_window.h"
#include "help/summary.h"
#include "help/teq_help.h"

namespace kavr6 {
namespace {

using Facts = std::map<std::string, FactTable>;

std::string Words(std::string_view text) { return std::string(text); }
std::string Words(std::floating_point auto number) { return NumberText(number); }
std::string Words(std::integral auto number) {
  if constexpr (std::same_as<decltype(number), bool>) return number ? "yes" : "no";
  return std::to_string(number);
}
std::string Words(Lamp::State lit) {
  if (lit == Lamp::State::Green) return "green";
  if (lit == Lamp::State::Yellow) return "yellow";
  return lit == Lamp::State::Red ? "red" : "";
}

template <class Key, class... Cells>
FactRow Named(const Key& key, const Cells&... cells) {
  return {Words(key), {Markup(Words(cells))...}};
}
template <class Key, class... Cells>
FactRow Row(const Key& key, const Cells&... cells) {
  return Named(key, key, cells...);
}

/// One of the program's tables; the cells are members of its entries, or functions of them.
template <class Entries, class... Cells>
FactTable Table(const Entries& entries, Cells... cells) {
  FactTable rows;
  for (const auto& entry : entries) rows.push_back(Row(std::invoke(cells, entry)...));
  return rows;
}

/// The cell for a table whose index tells something.
auto IndexIn(const auto& entries, Long first = 0) {
  return [&entries, first](const auto& entry) { return first + (&entry - entries.data()); };
}

/// The rows with `part` in their key.
FactTable Only(FactTable rows, std::string_view part) {
  std::erase_if(rows, [part](const FactRow& row) { return row.key.find(part) == std::string::npos; });
  return rows;
}

/// With the names of those that the page explains one by one, and links to there.
void AddAlarms(Facts& facts) {
  FactTable& rows = facts["alarms"] = Table(kAlarms, IndexIn(kAlarms), &Alarm::monitored, &Alarm::fault,
                                            &Alarm::history, &Alarm::lit, &Alarm::popsUp);
  for (auto& [bit, cells] : rows) {
    std::string& name = cells[1];
    if (name.empty()) continue;
    facts["alarm-names"].push_back({bit, {name}});
    name = Element("a", name, Replaced("href=\"#alarm?\"", "?", bit));
  }
}

void AddDrive(Facts& facts) {
  using Model = DriveModel;
  facts["status"] = Table(kStatusBits, IndexIn(kStatusBits), &StatusBit::name, &StatusBit::lit);
  facts["models"] =
      Table(kDriveModels, &Model::name, &Model::continuousCurrent, &Model::wyProgram, &Model::zuProgram);
  const FactTable codes = Table(kDriveModels, &Model::name, &Model::code, &Model::continuousCurrent);
  for (const char* kind : {"Bx", "Wy", "Zu"}) facts[std::string("models-") + kind] = Only(codes, kind);
  facts["internal-resistor"] = {Row("watts", kInternalResistor.watts), Row("ohms", kInternalResistor.ohms),
                                Row("seconds", kInternalResistor.seconds)};
}

/// How summary and report word the same mode.
FactTable IoReport() {
  FactTable rows;
  for (const IoFunction& function : kIoFunctions)
    for (std::size_t mode = 0; mode < function.reported.size(); ++mode) {
      const auto shown = mode < function.shown.size() ? function.shown[mode] : kLimitWords.back();
      // The times of the brake are those of the moment.
      rows.push_back(Row(Words(function.name) + ": " + Words(shown),
                         Replaced(Words(function.reported[mode]), "#", "…")));
    }
  return rows;
}

void AddInputsAndOutputs(Facts& facts) {
  const auto shown = [](std::size_t mode) { return [mode](const IoFunction& io) { return io.shown[mode]; }; };
  facts["inputs"] = Table(kInputNames, std::identity());
  facts["inputs-x"] = Only(facts["inputs"], "X");
  facts["inputs-in"] = Only(facts["inputs"], "IN");
  facts["limit-words"] = Table(kLimitWords, std::identity());
  facts["io-functions"] = Table(kIoFunctions, &IoFunction::name, shown(0), shown(1));
  facts["io-report"] = IoReport();
  facts["tach"] = Table(
      kTachPulses, [](int pulses) { return Words(pulses) + " pulses/rev"; },
      IndexIn(kTachPulses, kFirstTach));
  facts["analog-ranges"] = Table(kAnalogRanges, &AnalogRange::listed,
                                 [](const AnalogRange& range) { return "+" + Words(range.top); });
}

void AddModes(Facts& facts) {
  facts["operating-modes"] = Table(kOperatingModes, &OperatingMode::code, &OperatingMode::name);
  facts["control-modes"] = Table(kPowerUpModes, &ControlModeWords::code, &ControlModeWords::words);
  facts["pulse-kinds"] =
      Table(kPulseKinds, &PulseKind::listed, [](const PulseKind& kind) { return Shown(kind.name); });
  facts["bit-rates"] = Table(kBitRates, IndexIn(kBitRates, 1), std::identity());
  // Their words are captions of the dialog, which differ from those in print.
  facts["protocol-bits"] = Table(kProtocolBits, &ProtocolBit::code);
}

FactTable Units(std::string (*name)(int)) {
  FactTable rows;
  // Beyond its last unit `name` repeats itself.
  for (int unit = 0; unit == 0 || name(unit) != name(unit - 1); ++unit) rows.push_back(Row(name(unit)));
  return rows;
}

FactTable Commands(std::span<const CommandRow> commands) {
  FactTable rows =
      Table(commands, &CommandRow::cmd, [](const CommandRow& command) { return Shown(command.desc); });
  for (FactRow& row : rows) row.cells[0] = Element("code", row.cells[0]);
  return rows;
}

/// A line without a code is a remark.
FactTable Codes(const CodeTable& table) {
  FactTable rows;
  for (const std::string_view line : table.lines) {
    const std::string text = Shown(line);
    const std::size_t equals = text.find('=');
    // One line has no blank before the sign.
    if (equals != std::string::npos)
      rows.push_back(Row(text.substr(0, text.find_first_of(" =")), text.substr(equals + 2)));
    else if (!text.empty())
      rows.push_back(Row(text));
  }
  return rows;
}

void AddWindows(Facts& facts) {
  for (const EntryLimits& limits : AllLimits())
    facts[Words(limits.dialog)].push_back(Named(limits.field, limits.min, limits.max));
  facts["torque-units"] = Units(TorqueUnitName);
  facts["inertia-units"] = Units(InertiaUnitName);
  facts["commands"] = Commands(TextCommands());
  facts["servo-commands"] = Commands(ServoTextCommands());
  for (const CodeTable& table :
       {kMRcodes, kRScodes, kDefCodes, kBRcodes, kLimCodes, kIOcodes, kControlModes, kEFcodes}) {
    facts[Words(table.name)] = Codes(table);
    facts["code-windows"].push_back(Named(table.name, table.title));
  }
}

}  // namespace

Facts AllFacts() {
  Facts facts;
  for (const auto add : {AddAlarms, AddDrive, AddInputsAndOutputs, AddModes, AddWindows}) add(facts);
  return facts;
}

}  // namespace kavr6
