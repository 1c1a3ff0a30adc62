// The tables of the pages on hardware and dialogs say what the program's own tables say.
#include <QFile>
#include <QXmlStreamReader>
#include <algorithm>
#include <set>
#include <utility>

#include <gtest/gtest.h>

#include "core/analog_ranges.h"
#include "core/drive_models.h"
#include "core/io_modes.h"
#include "core/motion_codes.h"
#include "core/numbers.h"
#include "core/regen_resistor.h"
#include "core/serial_protocol.h"
#include "dialogs/numeric_entry.h"
#include "tests/help_pages/page.h"

namespace kavr6 {
namespace {

/// The first columns of a table; the last ones are prose.
Rows FirstColumns(std::size_t columns, const std::string& page, const std::string& table) {
  Rows rows = TableRows(page, table);
  for (auto& row : rows) row.resize(std::min(columns, row.size()));
  return rows;
}

/// As a label shows it.
std::string Shown(std::string_view text) {
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '&' && ++i == text.size()) break;
    shown += text[i];
  }
  return shown;
}

/// All texts that a person sees in a window.
std::set<std::string> FormTexts(std::string_view form) {
  QFile file(QString::fromStdString(KAVR6_FORMS + std::string("/") + std::string(form) + ".ui"));
  EXPECT_TRUE(file.open(QFile::ReadOnly)) << form;
  std::set<std::string> texts;
  for (QXmlStreamReader xml(&file); !xml.atEnd();)
    if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("string"))
      texts.insert(Shown(xml.readElementText().toStdString()));
  return texts;
}

struct LimitTable {
  const char* page;
  const char* table;
  std::vector<std::pair<std::string_view, std::string_view>> fields;  // dialog and field of each row
};

const std::vector<LimitTable>& LimitTables() {
  static const std::vector<LimitTable> tables{
      {"ConfigSoftware_Motor.html",
       "limits-motor",
       {{"MotorDialog", "txtDriveCurrent"},
        {"MotorDialog", "txtIdlePercent"},
        {"MotorDialog", "IdleDelayTime"},
        {"MotorDialog", "txtInertiaRatio"}}},
      {"ConfigSoftware_Motor.html",
       "limits-custom-motor",
       {{"EditMotor", "txtR"},
        {"EditMotor", "txtL"},
        {"EditMotor", "txtMaxVolts"},
        {"EditMotor", "txtDeg"},
        {"EditMotor", "txtRPS"},
        {"EditMotor", "Gain"},
        {"EditMotor", "Phase"}}},
      {"DigitalPosn.html",
       "limits-pulse",
       {{"PulseDirDialog", "SPR"},
        {"PulseDirDialog", "txtStepFilterFreq"},
        {"PulseDirDialog", "txtNoiseFilter"}}},
      {"VTLdialog.html",
       "limits-vtl",
       {{"VTLdialog", "txtTxDelay"},
        {"VTLdialog", "SPR"},
        {"VTLdialog", "txtStepFilterFreq"},
        {"VTLdialog", "txtNoiseFilter"}}},
      {"velocity.html",
       "limits-velocity",
       {{"VelocityDialog", "txtSpeed"},
        {"VelocityDialog", "txtSpeed2"},
        {"VelocityDialog", "txtAccel"},
        {"VelocityDialog", "txtDecel"},
        {"VelocityDialog", "CmdScale"}}},
      {"velocity.html",
       "limits-analog",
       {{"AdvancedSettings", "txtCmdOffset"},
        {"AdvancedSettings", "txtAnalogDeadband"},
        {"AdvancedSettings", "txtAnalogFilter"}}},
      {"ConfigSoftware_InputsOutputs.html",
       "limits-io",
       {{"IOdialog", "txtBrakeDelay"}, {"IOdialog", "txtBrakeEngage"}, {"IOdialog", "txtMaxAccel"}}},
      {"ConnectingEncoder.html",
       "limits-encoder",
       {{"EncoderDialog", "txtEncCounts"},
        {"EncoderDialog", "txtMaxTorque"},
        {"EncoderDialog", "txtAttempts"}}},
      {"regen.html",
       "limits-regen",
       {{"RegenDialog", "RegenWatts"}, {"RegenDialog", "RegenOhms"}, {"RegenDialog", "RegenSecs"}}},
  };
  return tables;
}

const EntryLimits* RowOf(std::pair<std::string_view, std::string_view> field) {
  for (const EntryLimits& row : AllLimits())
    if (row.dialog == field.first && row.field == field.second) return &row;
  return nullptr;
}

TEST(FieldTables, RangesAreThoseOfTheFields) {
  for (const auto& [page, table, fields] : LimitTables()) {
    Rows ranges = TableRows(page, table);
    for (auto& row : ranges) row = {row.at(2), row.at(3)};
    Rows expected;
    for (const auto& field : fields) {
      const EntryLimits* const limits = RowOf(field);
      ASSERT_NE(limits, nullptr) << field.second;
      expected.push_back({NumberText(limits->min), NumberText(limits->max)});
    }
    EXPECT_EQ(Lines(ranges), Lines(expected)) << page << ' ' << table;
  }
}

TEST(FieldTables, EveryFieldWithLimitsHasItsRow) {
  std::set<std::pair<std::string_view, std::string_view>> told;
  for (const LimitTable& table : LimitTables()) told.insert(table.fields.begin(), table.fields.end());
  for (const EntryLimits& limits : AllLimits())
    EXPECT_TRUE(told.contains({limits.dialog, limits.field})) << limits.dialog << '.' << limits.field;
}

TEST(FieldTables, FieldsAndUnitsReadAsInTheirWindows) {
  for (const auto& [page, table, fields] : LimitTables()) {
    const std::set<std::string> texts = FormTexts(fields.front().first);
    for (const auto& row : TableRows(page, table)) {
      EXPECT_TRUE(texts.contains(row.at(0))) << page << ": " << row.at(0);
      // Beside the idle current stands a caption that changes.
      const std::string& unit = row.at(1);
      EXPECT_TRUE(unit.empty() || unit == "%" || texts.contains(unit)) << page << ": " << unit;
    }
  }
}

std::string YesOrNo(bool value) { return value ? "yes" : "no"; }

TEST(FieldTables, ModelsAreThoseOfTheFamily) {
  Rows modes;
  for (const DriveModel& model : kDriveModels)
    modes.push_back({std::string(model.name), NumberText(model.continuousCurrent), YesOrNo(model.wyProgram),
                     YesOrNo(model.zuProgram)});
  EXPECT_EQ(Lines(TableRows("motion.html", "model-modes")), Lines(modes));
  for (const std::string kind : {"Bx", "Wy", "Zu"}) {
    Rows models;
    for (const DriveModel& model : kDriveModels)
      if (model.name.find(kind) != std::string_view::npos)
        models.push_back(
            {std::string(model.name), std::to_string(model.code), NumberText(model.continuousCurrent)});
    EXPECT_EQ(Lines(TableRows("Overview_" + kind + ".html", "models")), Lines(models));
  }
}

TEST(FieldTables, MotionModesAreThoseOfTheProgram) {
  Rows operating;
  for (const OperatingMode& mode : kOperatingModes)
    operating.push_back({std::to_string(mode.code), std::string(mode.name)});
  EXPECT_EQ(Lines(FirstColumns(2, "motion.html", "operating-modes")), Lines(operating));
  Rows control;
  for (const ControlModeWords& mode : kPowerUpModes)
    control.push_back({std::to_string(mode.code), std::string(mode.words)});
  EXPECT_EQ(Lines(FirstColumns(2, "VTLdialog.html", "control-modes")), Lines(control));
  Rows pulses;
  for (const PulseKind& kind : kPulseKinds) pulses.push_back({std::string(kind.listed), Shown(kind.name)});
  EXPECT_EQ(Lines(FirstColumns(2, "DigitalPosn.html", "pulse-kinds")), Lines(pulses));
}

TEST(FieldTables, MenuButtonsReadAsInTheMenu) {
  const std::set<std::string> texts = FormTexts("MotionMenu");
  const Rows buttons = TableRows("motion.html", "motion-menu");
  EXPECT_EQ(buttons.size(), 6U);
  for (const auto& row : buttons) EXPECT_TRUE(texts.contains(row.at(0))) << row.at(0);
}

TEST(FieldTables, InputsAndOutputsAreThoseOfTheProgram) {
  Rows x;
  Rows in;
  for (const std::string_view name : kInputNames)
    (name.front() == 'X' ? x : in).push_back({std::string(name)});
  EXPECT_EQ(Lines(FirstColumns(1, "Connecting_IO_to_InOut1.html", "inputs-x")), Lines(x));
  EXPECT_EQ(Lines(FirstColumns(1, "Connecting_IO_to_InOut2.html", "inputs-in")), Lines(in));
  const std::string page = "ConfigSoftware_InputsOutputs.html";
  Rows functions;
  for (const IoFunction& function : kIoFunctions)
    functions.push_back(
        {std::string(function.name), std::string(function.shown[0]), std::string(function.shown[1])});
  EXPECT_EQ(Lines(FirstColumns(3, page, "io-functions")), Lines(functions));
  Rows limits;
  for (const std::string_view words : kLimitWords) limits.push_back({std::string(words)});
  EXPECT_EQ(Lines(FirstColumns(1, page, "limit-words")), Lines(limits));
  Rows tach;
  for (const int pulses : kTachPulses)
    tach.push_back({std::to_string(pulses) + " pulses/rev", std::to_string(kFirstTach + Long(tach.size()))});
  EXPECT_EQ(Lines(FirstColumns(2, page, "tach")), Lines(tach));
}

TEST(FieldTables, SerialProtocolIsThatOfTheProgram) {
  Rows rates;
  for (const int rate : kBitRates) rates.push_back({std::to_string(rates.size() + 1), std::to_string(rate)});
  EXPECT_EQ(Lines(TableRows("VTLdialog.html", "bit-rates")), Lines(rates));
  const std::set<std::string> texts = FormTexts("VTLdialog");
  const Rows bits = TableRows("VTLdialog.html", "protocol-bits");
  ASSERT_EQ(bits.size(), kProtocolBits.size());
  for (std::size_t i = 0; i < bits.size(); ++i) {
    EXPECT_EQ(bits[i].at(0), std::to_string(kProtocolBits[i].code));
    EXPECT_TRUE(texts.contains(bits[i].at(1))) << bits[i].at(1);
    // The dialog words the last one in its own way.
    if (kProtocolBits[i].code != kRedLion) {
      EXPECT_EQ(bits[i].at(1), kProtocolBits[i].reported);
    }
  }
}

Rows UnitRows(std::string (*name)(int)) {
  Rows rows;
  // Beyond its last unit `name` repeats itself.
  for (int unit = 0; unit == 0 || name(unit) != name(unit - 1); ++unit) rows.push_back({name(unit)});
  return rows;
}

TEST(FieldTables, RangesRatingsAndUnitsAreThoseOfTheProgram) {
  Rows analog;
  for (const AnalogRange& range : kAnalogRanges)
    analog.push_back({std::string(range.listed), "+" + std::string(range.top)});
  EXPECT_EQ(Lines(TableRows("velocity.html", "analog-ranges")), Lines(analog));
  EXPECT_EQ(Lines(TableRows("regen.html", "internal-resistor")),
            Lines({{"watts", NumberText(kInternalResistor.watts)},
                   {"ohms", NumberText(kInternalResistor.ohms)},
                   {"seconds", NumberText(kInternalResistor.seconds)}}));
  EXPECT_EQ(Lines(TableRows("ConfigSoftware_Motor.html", "torque-units")), Lines(UnitRows(TorqueUnitName)));
  EXPECT_EQ(Lines(TableRows("ConfigSoftware_Motor.html", "inertia-units")), Lines(UnitRows(InertiaUnitName)));
}

}  // namespace
}  // namespace kavr6
