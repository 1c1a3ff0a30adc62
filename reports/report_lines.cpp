#include "reports/report_lines.h"

#include <algorithm>
#include <array>

#include "core/analog_ranges.h"
#include "core/drive_models.h"
#include "core/io_modes.h"
#include "core/numbers.h"
#include "core/serial_protocol.h"
#include "motor/motor_row.h"
#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr const char* kFontName = "Arial";
constexpr int kFontPoints = 9;
constexpr std::size_t kDashes = 56;

// Columns.
constexpr int kLeft = 2;
constexpr int kIndented = 4;
constexpr int kDeep = 6;

/// In the order of the report, which is not that of the grid.
constexpr std::array kIoOrder{&Settings::EnableMode, &Settings::AlarmResetMode, &Settings::AlarmOutMode,
                              &Settings::BrakeMode,  &Settings::MotionOutMode,  &Settings::LimitMode};

/// The code of the first character of a text. RuntimeError without one.
struct CharacterCode {
  const std::string& text;
};

std::string Printed(std::string_view text) { return std::string(text); }

std::string PrintForm(const std::string& number) {
  return (number.starts_with('-') ? "" : " ") + number + " ";
}
std::string Printed(double number) { return PrintForm(ShownNumber(number)); }
std::string Printed(Long number) { return PrintForm(NumberText(number)); }
std::string Printed(CharacterCode of) {
  const std::string codes = CharacterCodes(of.text);
  if (codes.empty()) RaiseInvalidCall();
  return Printed(Long{static_cast<unsigned char>(codes[0])});
}

std::string ModelName(int index) {
  const bool known = index >= 0 && index < static_cast<int>(kDriveModels.size());
  return known ? std::string(kDriveModels[static_cast<std::size_t>(index)].name) : std::string();
}

std::string BitRateText(Long code) {
  const bool known = code >= 1 && code <= Long{kBitRates.size()};
  return std::to_string(kBitRates[known ? static_cast<std::size_t>(code - 1) : 0]);
}

/// Empty where the report has no line for the mode.
std::string IoText(const IoFunction& function, Long mode) {
  if (function.mode == &Settings::MotionOutMode && mode >= kFirstTach && mode <= kLastTach)
    return "Motion Output: tach, " +
           std::to_string(kTachPulses[static_cast<std::size_t>(mode - kFirstTach)]) + " pulses/rev.";
  const bool known = mode >= 1 && mode <= kNotUsed;
  const Long shown = known ? mode : function.reportedOther;
  return shown == 0 ? std::string() : std::string(function.reported[static_cast<std::size_t>(shown - 1)]);
}

std::string WithTimes(std::string text, std::initializer_list<Long> times) {
  for (const Long time : times)
    if (const std::size_t place = text.find('#'); place != std::string::npos)
      text.replace(place, 1, Printed(time));
  return text;
}

}  // namespace

PageMargins ReportMargins(const DriveState& state) {
  const std::string name = FileNameOf(state.TitleName.Get());
  return {.title = kReportTitle,
          .file = name.empty() ? "untitled" : name,
          .remark = state.Modified ? " (changed)" : ""};
}

ReportLines::ReportLines(const ReportSource& source, PrintJob& job)
    : state_(source.state), s_(source.settings), table_(source.table), job_(job) {}

template <class... Items>
void ReportLines::Line(int column, const Items&... items) {
  TryToPrint([&] { job_.PrintLine(column, (Printed(items) + ...)); });
}

void ReportLines::Print() {
  TryToPrint([this] { job_.SetFont({kFontName, kFontPoints, true}); });
  Line(kLeft, kReportTitle);
  TryToPrint([this] { job_.SetFont({kFontName, kFontPoints, false}); });
  TryToPrint([this] { job_.BlankLine(); });
  Line(kLeft, "Velmar Drives, Inc.  (800) 555-0100");
  Line(kLeft, "Fax (800) 555-0199");
  Line(kLeft, "Configurator Software Version: ", state_.AppVersion);
  Line(kLeft, "Drive Firmware Version: ", state_.DriveVersion.Get());
  PrintData();
  Line(kLeft, "Comm port", Long{state_.CommIndex + 1});
}

void ReportLines::PrintData() {
  Line(kLeft, "Drive: ", ModelName(state_.ModelIndex));
  TryToPrint([this] { job_.BlankLine(); });
  Line(kLeft, "Max accel rate: ", s_.MaxAccel, " rev/sec/sec, Max speed: ", s_.MaxSpeed, " rev/sec");
  PrintMode();
  Line(kLeft, "Run current:  ", s_.RunCurrent, " A, Idle current:  ", s_.IdlePercent, "%, after ",
       s_.IdleDelay, " sec delay.");
  PrintStall();
  PrintIo();
  PrintFilters();
  Line(kLeft, "Motor:");
  TryToPrint([this] { PrintMotor(); });
  PrintLoad();
}

void ReportLines::PrintMode() {
  if (s_.OpMode == kOpPulseOrVelocity) {
    if (s_.ControlMode == kControlPulse) PrintPulses();
    if (s_.ControlMode == kControlVelocity) PrintVelocity();
  } else if (s_.OpMode == kOpVtl || s_.OpMode == kOpWyProgram) {
    PrintAddress();
  } else if (const OperatingMode* const mode = RowOfCode(kOperatingModes, s_.OpMode)) {
    Line(kLeft, mode->reported);
  }
}

void ReportLines::PrintAddress() {
  // No blank stands before the rate, and the list of protocols is headed by a comma even where it is empty.
  Line(kLeft, RowOfCode(kOperatingModes, s_.OpMode)->reported, s_.RS485Addr, "(ascii ",
       CharacterCode{s_.RS485Addr}, "), TXDelay = ", s_.TxDelay, " ms, bit rate",
       BitRateText(s_.BitRateCode));
  Line(kIndented, ", Special Protocols: ");
  for (const ProtocolBit& bit : kProtocolBits)
    if ((s_.ProtocolFlags & bit.code) != 0) Line(kDeep, bit.reported);
  PrintStepsPerRev();
  Line(kLeft, "Power up control mode = ", s_.PowerUpMode);
}

void ReportLines::PrintPulses() {
  Line(kLeft, "Pulse positioning mode:");
  const bool quadrature = s_.PulseType != kPulseAndDirection && s_.PulseType != kCwCcwPulse;
  const Long kind = quadrature ? kQuadrature : s_.PulseType;
  std::string_view sense;
  if (quadrature)
    sense =
        s_.DirIsCW ? " (motor moves clockwise when B leads A)" : " (motor moves clockwise when A leads B)";
  Line(kIndented, kPulseKinds[static_cast<std::size_t>(kind)].reported, sense);
  PrintStepsPerRev();
}

void ReportLines::PrintVelocity() {
  Line(kLeft, "Velocity/oscillator mode:");
  if (s_.RunStop) Line(kIndented, "Run when X1/Step input closed");
  Line(kIndented, "Speed = ", s_.Speed, "rps, Accel = ", s_.Accel, "rev/s/s, decel = ", s_.Decel, " rev/s/s");
  if (s_.TwoSpeeds) Line(kIndented, "When X5 closed, change speed to ", s_.Speed2, " rev/sec");
  if (s_.AnalogVelocity) PrintAnalogInput();
  PrintStepsPerRev();
}

void ReportLines::PrintAnalogInput() {
  Line(kIndented, "Speed proportional to analog input. ", s_.CmdScale,
       "rev/sec at +10V.  Offset = ", s_.CmdOffset, "mV");
  Line(kDeep, AnalogRangeOf(s_.AnalogRange).reported);
  Line(kDeep, "Deadband = ", s_.AnalogDeadband, " mV");
}

void ReportLines::PrintStepsPerRev() { Line(kIndented, "Steps/rev:  ", s_.StepsPerRev); }

void ReportLines::Dashes() { Line(kLeft, std::string(kDashes, '-')); }

void ReportLines::PrintStall() {
  if (!s_.StallDetect && !s_.StallPrevent) return;
  Dashes();
  if (s_.StallDetect) {
    Line(kLeft, "Stall detection:  fault drive if motor stalls");
    PrintEncoder();
  } else {
    Line(kLeft, "Auto adjust move parameters if torque utilization exceeds ", s_.MaxTorquePct, "%");
    PrintEncoder();
    if (s_.StallFaultOn)
      Line(kLeft, "  If motor stalls for more than ", s_.StallFaultMs, " msec, fault the drive");
  }
  Dashes();
}

void ReportLines::PrintEncoder() {
  Line(kLeft, "  Encoder resolution:  ", s_.EncoderCounts, " counts/rev");
  // Whatever EncoderCW says.
  Line(kLeft, ", A leads B when motor turns ccw");
}

void ReportLines::PrintIo() {
  Line(kLeft, "I/O:");
  for (Long Settings::*const mode : kIoOrder) {
    const IoFunction& function = *std::ranges::find(kIoFunctions, mode, &IoFunction::mode);
    const std::string text = IoText(function, s_.*mode);
    if (!text.empty()) Line(kIndented, WithTimes(text, {s_.BrakeDelay, s_.BrakeEngage}));
  }
}

void ReportLines::PrintFilters() {
  Dashes();
  Line(kLeft, "Analog input filter: ", s_.AnalogFilter, "Hz");
  Line(kLeft, "Step input filter: ", s_.StepFilterFreq, "Hz");
  Line(kLeft, "Input Noise filter: ", s_.NoiseFilter, "kHz");
  Line(kLeft, "Regeneration resistor: ", s_.RegenOhms, " ohms, ", s_.RegenWatts, " watts, peak duration ",
       s_.RegenSecs, " sec");
  Dashes();
}

void ReportLines::PrintMotor() {
  const MotorRecord motor = s_.CustomMotor ? static_cast<const MotorRecord&>(s_) : RecordOf(table_.Row());
  Line(kIndented, "Part number: ", motor.MotorName);
  Line(kIndented, "Rated current:", motor.RatedCurrent, "A, rated torque:", motor.RatedTorque,
       TorqueUnitName(motor.TorqueUnit), ", rotor inertia: ", motor.RotorInertia,
       InertiaUnitName(motor.InertiaUnit));
  Line(kIndented, "Smoothness gain: ", motor.HarmonicGain, ", smoothness phase: ", motor.HarmonicPhase);
  Line(kIndented, "Max lead angle: ", motor.LeadAngleDeg, "deg, at ", motor.LeadAngleRps, " rps");
  Line(kIndented, "Max voltage: ", motor.MaxVoltsPct, "%");
}

void ReportLines::PrintLoad() {
  if (s_.InertiaIsRatio) {
    TryToPrint(
        [this] { Line(kLeft, "Load inertia: ", FormatNumber(s_.InertiaRatio, "0.00"), "X motor inertia."); });
  } else {
    // The number is in kg m2 whatever unit is named: so it has always been printed.
    Line(kLeft, "Load inertia:", s_.LoadInertia, InertiaUnitName(s_.LoadInertiaUnit));
  }
  Line(kLeft, s_.SmoothingOn ? "Waveform smoothing on." : "Waveform smoothing off.");
  Line(kLeft, s_.DampingOn ? "Electronic damping on." : "Electronic damping off.");
}

}  // namespace kavr6
