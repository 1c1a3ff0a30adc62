#include "comparison/setting_table.h"

#include <charconv>

#include "comparison/setting_words.h"
#include "core/numbers.h"

namespace kavr6 {
namespace {

using namespace setting_words;
using S = Settings;
using H = HeldSettings;

constexpr std::array<std::string_view, 2> kOffOn{"off", "on"};
constexpr std::string_view kSpeedUnit = "rev/sec";
constexpr std::string_view kAccelUnit = "rev/s/s";

std::string TorqueUnitIn(const MotorRecord& motor) { return TorqueUnitOf(motor.TorqueUnit); }
std::string InertiaUnitIn(const MotorRecord& motor) { return InertiaUnitOf(motor.InertiaUnit); }

using Rows = std::vector<SettingRow>;

void AddMotorUse(Rows& rows) {
  constexpr std::string_view kIn = "Motor";
  rows.insert(
      rows.end(),
      {{.section = kIn, .name = "Motor in use", .member = &S::CustomMotor, .answers = {"standard", "custom"}},
       {kIn, "Running current", &S::RunCurrent, "A"},
       {kIn, "Idle current", &S::IdlePercent, "%"},
       {kIn, "Idle current delay", &S::IdleDelay, "s"},
       {.section = kIn,
        .name = "Load inertia given",
        .member = &S::InertiaIsRatio,
        .answers = {"as a value", "as a ratio"}},
       {kIn, "Load inertia, ratio", &S::InertiaRatio, "x rotor inertia", Stored::WithRatio},
       {kIn, "Load inertia, value", &S::LoadInertia, "kg m2", Stored::WithoutRatio},
       {.section = kIn,
        .name = "Load inertia shown in",
        .member = &S::LoadInertiaUnit,
        .words = InertiaUnitOf},
       {.section = kIn, .name = "Waveform smoothing", .member = &S::SmoothingOn, .answers = kOffOn},
       {.section = kIn, .name = "Electronic damping", .member = &S::DampingOn, .answers = kOffOn}});
}

void AddMotor(Rows& rows, std::string_view in, bool standard) {
  const std::size_t first = rows.size();
  rows.insert(rows.end(),
              {{in, "Name", &S::MotorName},
               {in, "Rated current", &S::RatedCurrent, "A"},
               {.section = in, .name = "Holding torque", .member = &S::RatedTorque, .unitOf = TorqueUnitIn},
               {.section = in, .name = "Unit of torque", .member = &S::TorqueUnit, .words = TorqueUnitOf},
               {.section = in, .name = "Rotor inertia", .member = &S::RotorInertia, .unitOf = InertiaUnitIn},
               {.section = in, .name = "Unit of inertia", .member = &S::InertiaUnit, .words = InertiaUnitOf},
               {in, "Max voltage", &S::MaxVoltsPct, "%"},
               {in, "Winding resistance", &S::MotorR, "ohms", Stored::NotInImage},
               {in, "Winding inductance", &S::MotorL, "mH", Stored::NotInImage},
               {in, "Smoothing gain", &S::HarmonicGain},
               {in, "Smoothing phase", &S::HarmonicPhase},
               {in, "Max lead angle", &S::LeadAngleDeg, "deg"},
               {in, "Max lead angle from", &S::LeadAngleRps, kSpeedUnit}});
  for (std::size_t i = first; i < rows.size(); ++i) rows[i].ofStandardMotor = standard;
}

void AddMotion(Rows& rows) {
  constexpr std::string_view kIn = "Motion";
  rows.insert(rows.end(),
              {{.section = kIn, .name = "Operating mode", .member = &S::OpMode, .words = OperatingModeOf},
               {.section = kIn, .name = "Control mode", .member = &S::ControlMode, .words = ControlModeOf},
               {.section = kIn, .name = "Pulse signal", .member = &S::PulseType, .words = PulseKindOf},
               {.section = kIn,
                .name = "Clockwise when",
                .member = &S::DirIsCW,
                .answers = {"A leads B", "B leads A"}},
               {kIn, "Steps per revolution", &S::StepsPerRev, "steps/rev"},
               {kIn, "Speed", &S::Speed, kSpeedUnit},
               {kIn, "Speed with X5 closed", &S::Speed2, kSpeedUnit},
               {kIn, "Acceleration", &S::Accel, kAccelUnit},
               {kIn, "Deceleration", &S::Decel, kAccelUnit},
               {kIn, "X1 is run/stop", &S::RunStop, {}, Stored::WithVelocity},
               {kIn, "X5 changes the speed", &S::TwoSpeeds, {}, Stored::WithVelocity},
               {kIn, "Speed follows the analog input", &S::AnalogVelocity, {}, Stored::WithVelocity},
               {kIn, "Max speed", &S::MaxSpeed, kSpeedUnit, Stored::NotInImage},
               {kIn, "Maximum deceleration", &S::MaxAccel, kAccelUnit}});
}

void AddInputs(Rows& rows) {
  constexpr std::string_view kAnalog = "Analog input";
  rows.insert(rows.end(),
              {{.section = kAnalog, .name = "Range", .member = &S::AnalogRange, .words = RangeOf},
               {kAnalog, "Speed at the top of the range", &S::CmdScale, kSpeedUnit},
               {kAnalog, "Offset", &S::CmdOffset, "mV"},
               {kAnalog, "Deadband", &S::AnalogDeadband, "mV"},
               {kAnalog, "Filter", &S::AnalogFilter, "Hz"},
               {kAnalog, "Gain word", &S::AnalogGain},
               {.section = kAnalog, .name = "Type flag", .member = &S::AnalogTypeFlag, .answers = kOffOn}});
  constexpr std::string_view kIn = "Inputs and outputs";
  for (const IoFunction& function : kIoFunctions)
    rows.push_back(
        {.section = kIn, .name = function.name, .member = function.mode, .words = [&function](Long mode) {
           return IoModeOf(function, mode);
         }});
  rows.insert(rows.end(), {{kIn, "Brake release delay", &S::BrakeDelay, "ms"},
                           {kIn, "Brake engage delay", &S::BrakeEngage, "ms"},
                           {kIn, "Step smoothing filter", &S::StepFilterFreq, "Hz"},
                           {kIn, "Input noise filter", &S::NoiseFilter, "kHz"}});
}

void AddEncoderAndRegen(Rows& rows) {
  constexpr std::string_view kEncoder = "Encoder";
  constexpr std::string_view kRegen = "Regen resistor";
  rows.insert(
      rows.end(),
      {{kEncoder, "Resolution", &S::EncoderCounts, "counts/rev"},
       {.section = kEncoder,
        .name = "A leads B when turning",
        .member = &S::EncoderCW,
        .answers = {"counterclockwise", "clockwise"}},
       {.section = kEncoder,
        .name = "Wiring",
        .member = &S::EncoderSingleEnded,
        .answers = {"differential", "single ended"}},
       {.section = kEncoder, .name = "Stall detection", .member = &S::StallDetect, .answers = kOffOn},
       {.section = kEncoder, .name = "Stall prevention", .member = &S::StallPrevent, .answers = kOffOn},
       {kEncoder, "Torque utilization limit", &S::MaxTorquePct, "%"},
       {.section = kEncoder, .name = "Fault after a stall", .member = &S::StallFaultOn, .answers = kOffOn},
       {kEncoder, "Time until that fault", &S::StallFaultMs, "ms"},
       {kEncoder, "Stall speed", &S::StallSpeed, kSpeedUnit, Stored::NotInImage},
       {kEncoder, "Stall acceleration", &S::StallAccel, kAccelUnit, Stored::NotInImage},
       {.section = kRegen,
        .name = "Resistor",
        .member = &S::RegenExternal,
        .answers = {"internal", "external"}},
       {kRegen, "Resistance", &S::RegenOhms, "ohms"},
       {kRegen, "Continuous power", &S::RegenWatts, "W"},
       {kRegen, "Peak duration", &S::RegenSecs, "s"}});
}

void AddHostAndTuning(Rows& rows) {
  constexpr std::string_view kHost = "Host commands";
  constexpr std::string_view kTuning = "Tuning";
  rows.insert(
      rows.end(),
      {{.section = kHost,
        .name = "Control mode at power-up",
        .member = &S::PowerUpMode,
        .stored = Stored::NotInImage,
        .words = PowerUpModeOf},
       {kHost, "RS-485 address", &S::RS485Addr},
       {kHost, "Transmit delay", &S::TxDelay, "ms"},
       {.section = kHost, .name = "Bit rate", .member = &S::BitRateCode, .words = BitRateOf},
       {.section = kHost, .name = "Special protocols", .member = &S::ProtocolFlags, .words = ProtocolOf},
       {kTuning, "Word 1", &S::TuneWord1},
       {kTuning, "Word 2", &S::TuneWord2},
       {kTuning, "Word 3", &S::TuneWord3},
       {kTuning, "Word 4", &S::TuneWord4},
       {kTuning, "Word 5", &S::TuneWord5},
       {kTuning, "Spare number", &S::SpareLong, {}, Stored::NotInImage}});
}

Rows MakeTable() {
  Rows rows;
  AddMotorUse(rows);
  AddMotor(rows, "Standard motor", true);
  AddMotor(rows, "Custom motor", false);
  AddMotion(rows);
  AddInputs(rows);
  AddEncoderAndRegen(rows);
  AddHostAndTuning(rows);
  rows.push_back({.section = "File",
                  .name = "Drive model",
                  .member = &H::model,
                  .stored = Stored::NotInImage,
                  .words = ModelOf});
  rows.push_back(
      {.section = "File", .name = "Port", .member = &H::port, .stored = Stored::NotInImage, .words = PortOf});
  return rows;
}

/// Calls `work` with the value of a row.
template <class Work>
auto WithValue(const SettingRow& row, const HeldSettings& held, const Work& work) {
  if (const auto* const listRow = std::get_if<Integer H::*>(&row.member)) return work(held.**listRow);
  const Settings& record = row.ofStandardMotor ? held.standard : held.settings;
  return std::visit([&](auto member) { return work(record.*member); }, std::get<SettingsField>(row.member));
}

constexpr int kFewDigits = 6;

double Rounded(double value) {
  std::array<char, 64> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, kFewDigits)
          .ptr;
  RealFromChars(text.data(), end, value);
  return value;
}

/// The shortest text that is this number's alone.
template <class Number>
std::string ExactText(Number number) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

struct TextMaker {
  const SettingRow& row;
  Digits digits;

  std::string operator()(double value) const {
    if (digits == Digits::All) return ExactText(value);
    return ShownNumber(digits == Digits::Few ? Rounded(value) : value);
  }
  std::string operator()(float value) const {
    return digits == Digits::All ? ExactText(value) : NumberText(value);
  }
  std::string operator()(Long value) const { return row.words ? row.words(value) : NumberText(value); }
  std::string operator()(Integer value) const { return (*this)(Long{value}); }
  std::string operator()(bool value) const { return std::string(row.answers[value ? 1 : 0]); }
  std::string operator()(const std::string& value) const {
    // What begins or ends with a blank, or is nothing else, could not be seen.
    const bool plain = !value.empty() && value.front() != ' ' && value.back() != ' ';
    return digits == Digits::All || !plain ? '"' + value + '"' : value;
  }
};

}  // namespace

const std::vector<SettingRow>& SettingTable() {
  static const Rows table = MakeTable();
  return table;
}

bool SameValue(const SettingRow& row, const HeldSettings& left, const HeldSettings& right) {
  return WithValue(row, left, [&](const auto& mine) {
    return WithValue(row, right, [&](const auto& other) {
      if constexpr (std::is_same_v<decltype(mine), decltype(other)>) return mine == other;
      return false;
    });
  });
}

std::string TextOf(const SettingRow& row, const HeldSettings& held, Digits digits) {
  std::string text = WithValue(row, held, TextMaker{row, digits});
  const std::string unit = row.unitOf != nullptr
                               ? row.unitOf(row.ofStandardMotor ? held.standard : held.settings)
                               : std::string(row.unit);
  return unit.empty() ? text : text + " " + unit;
}

bool InImage(const SettingRow& row, const HeldSettings& held) {
  switch (row.stored) {
    case Stored::WithVelocity:
      return held.velocityOptions;
    case Stored::WithRatio:
      return held.settings.InertiaIsRatio;
    case Stored::WithoutRatio:
      return !held.settings.InertiaIsRatio;
    default:
      return row.stored == Stored::InImage;
  }
}

}  // namespace kavr6
