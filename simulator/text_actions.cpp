#include <cmath>
#include <string>

#include "core/motion_codes.h"
#include "core/numbers.h"
#include "simulator/text_commands.h"

namespace kavr6 {
namespace {

using Text = const std::string&;
constexpr int kVelocityMode = 10;
constexpr int kAnalogPositionMode = 22;

struct Resolution {
  int code;
  int steps;
};
constexpr Resolution kResolutions[] = {{0, 200},    {1, 400},    {3, 2000},   {4, 5000},   {5, 10000},
                                       {6, 12800},  {7, 18000},  {8, 20000},  {9, 21600},  {10, 25000},
                                       {11, 25400}, {12, 25600}, {13, 36000}, {14, 50000}, {15, 50800}};
constexpr int kResolutionOfDistance = 16;

std::string Refusal() { return std::string(kRefusal); }

bool Positions(const TextSession& s) {
  const double mode = s.works.registers["CM"];
  return mode == kControlPointToPoint || mode == kAnalogPositionMode;
}

/// A whole number of 32 bits, for steps and counts.
std::optional<double> CountOf(Text text) {
  const auto value = NumberOf(text);
  if (!value || std::abs(*value) > 2147483647.0 || *value != std::round(*value)) return {};
  return value;
}

/// The distance that a move is given, or the one that is set.
std::optional<double> Distance(const TextSession& s, Text argument) {
  return argument.empty() ? s.works.registers["DI"] : CountOf(argument);
}

std::string Feed(TextSession& s, Text argument) {
  const auto steps = Distance(s, argument);
  if (!steps || !Positions(s)) return Refusal();
  s.works.motor.Feed(*steps);
  return {};
}

std::string FeedTo(TextSession& s, Text argument) {
  const auto steps = Distance(s, argument);
  if (!steps || !Positions(s)) return Refusal();
  s.works.motor.FeedTo(*steps);
  return {};
}

template <void (MotorControl::*Seek)(double, const InputCondition&)>
std::string SeekInput(TextSession& s, Text argument) {
  const auto condition = InputCondition::Of(argument);
  if (!condition || !Positions(s)) return Refusal();
  (s.works.motor.*Seek)(s.works.registers["DI"], *condition);
  return {};
}

/// Jogging goes the way of the distance that is set.
double JogSpeed(const TextSession& s, double speed) { return s.works.registers["DI"] < 0.0 ? -speed : speed; }

std::string Jog(TextSession& s, Text argument) {
  if (!argument.empty() || (!Positions(s) && s.works.registers["CM"] != kVelocityMode)) return Refusal();
  const double speed = s.works.registers["JS"];
  s.works.registers.Set("CS", speed);
  s.works.motor.Jog(JogSpeed(s, speed));
  return {};
}

std::string ChangeSpeed(TextSession& s, Text argument) {
  if (argument.empty()) return "CS=" + NumberText(s.works.registers["CS"]);
  const auto speed = NumberOf(argument);
  const Register& row = *Registers::Find("CS");
  if (!speed || *speed < row.least || *speed > row.most) return Refusal();
  s.works.registers.Set("CS", *speed);
  s.works.motor.ChangeSpeed(JogSpeed(s, *speed));
  return {};
}

std::string StopMotor(TextSession& s, Text argument) {
  if (!argument.empty() && argument != "D") return Refusal();
  s.works.motor.Stop(s.works.registers[argument.empty() ? "AM" : "DE"]);
  return {};
}

std::string StopAndKill(TextSession& s, Text argument) {
  s.Kill();
  return StopMotor(s, argument);
}

std::string Position(TextSession& s, Text argument) {
  if (argument.empty()) return "SP=" + NumberText(s.works.motor.CommandedSteps());
  const auto steps = CountOf(argument);
  if (!steps) return Refusal();
  s.works.motor.SetPosition(*steps);
  return {};
}

std::string EncoderPosition(TextSession& s, Text argument) {
  if (argument.empty()) return "EP=" + NumberText(s.works.motor.EncoderCount());
  const auto count = CountOf(argument);
  if (!count) return Refusal();
  s.works.motor.SetEncoderCount(*count);
  return {};
}

std::string StepResolution(TextSession& s, Text argument) {
  Registers& registers = s.works.registers;
  if (argument.empty()) {
    for (const auto& [code, steps] : kResolutions)
      if (steps == registers[kStepsPerTurn]) return "MR=" + std::to_string(code);
    return "MR=" + std::to_string(kResolutionOfDistance);
  }
  const auto asked = NumberOf(argument);
  const double distance = std::abs(registers["DI"]);
  if (asked == kResolutionOfDistance && distance > 0.0) {
    registers.Set(kStepsPerTurn, distance);
    return {};
  }
  for (const auto& [code, steps] : kResolutions) {
    if (asked != code) continue;
    registers.Set(kStepsPerTurn, steps);
    return {};
  }
  return Refusal();
}

std::string Address(TextSession& s, Text argument) {
  if (argument.empty())
    return std::string("DA=") + static_cast<char>(static_cast<int>(s.works.registers[kAddress]));
  if (argument.size() != 1) return Refusal();
  s.works.registers.Set(kAddress, static_cast<std::uint8_t>(argument[0]));
  return {};
}

std::string SetByHand(TextSession& s, std::string_view output, bool high) {
  const auto index = DriveTerminals::OutputOf(output);
  if (!index) return Refusal();
  if (!s.works.HasFunction(*index)) s.works.terminals.SetByHand(*index, high);
  return {};
}

std::string OutputHigh(TextSession& s, Text argument) { return SetByHand(s, argument, true); }
std::string OutputLow(TextSession& s, Text argument) { return SetByHand(s, argument, false); }

std::string SetOutput(TextSession& s, Text argument) {
  if (!argument.ends_with('H') && !argument.ends_with('L')) return Refusal();
  return SetByHand(s, std::string_view(argument).substr(0, argument.size() - 1), argument.ends_with('H'));
}

std::string WaitInput(TextSession& s, Text argument) {
  const auto condition = InputCondition::Of(argument);
  if (!condition) return Refusal();
  s.WaitInput(*condition);
  return {};
}

std::string WaitTime(TextSession& s, Text argument) {
  const auto seconds = NumberOf(argument);
  if (!seconds || *seconds < 0.01 || *seconds > 300.0) return Refusal();
  s.Wait(*seconds);
  return {};
}

/// An action without an argument.
template <void (*Do)(TextSession&)>
std::string Plain(TextSession& s, Text argument) {
  if (!argument.empty()) return Refusal();
  Do(s);
  return {};
}

void Nothing(TextSession&) {}
void Leave(TextSession& s) { s.Leave(); }
void PowerUp(TextSession& s) { s.PowerUp(); }
void Save(TextSession& s) { s.Save(); }
void Enable(TextSession& s) { s.works.motor.Enable(); }
void Disable(TextSession& s) { s.works.motor.Disable(); }
void ClearAlarm(TextSession& s) { s.works.motor.ClearAlarm(); }
void StopJogging(TextSession& s) { s.works.motor.StopJogging(); }
void EnableJogInputs(TextSession& s) { s.works.registers.Set(kJogInputs, 1); }
void DisableJogInputs(TextSession& s) { s.works.registers.Set(kJogInputs, 0); }
void PauseBuffer(TextSession& s) { s.Pause(true); }
void Continue(TextSession& s) { s.Pause(false); }

constexpr TextCommand kActions[] = {
    {"AR", false, Plain<ClearAlarm>},
    {"CJ", true, Jog},
    {"CS", false, ChangeSpeed},
    {"CT", false, Plain<Continue>},
    {"DA", false, Address},
    {"EP", false, EncoderPosition},
    {"FL", true, Feed},
    {"FP", true, FeedTo},
    {"FS", true, SeekInput<&MotorControl::FeedToSensor>},
    {"HM", false, Plain<Leave>},
    {"HR", false, Plain<Nothing>},
    {"IH", false, OutputHigh},
    {"IL", false, OutputLow},
    {"JD", false, Plain<DisableJogInputs>},
    {"JE", false, Plain<EnableJogInputs>},
    {"MD", false, Plain<Disable>},
    {"ME", false, Plain<Enable>},
    {"MR", true, StepResolution},
    {"PS", false, Plain<PauseBuffer>},
    {"QT", false, Plain<Leave>},
    {"RE", false, Plain<PowerUp>},
    {"SA", false, Plain<Save>},
    {"SH", true, SeekInput<&MotorControl::SeekHome>},
    {"SJ", false, Plain<StopJogging>},
    {"SK", false, StopAndKill},
    {"SO", true, SetOutput},
    {"SP", true, Position},
    {"SS", true, [](TextSession&, Text argument) { return argument; }},
    {"ST", false, StopMotor},
    {"WI", true, WaitInput},
    {"WT", true, WaitTime},
};

}  // namespace

std::optional<double> NumberOf(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  if (text.find_first_not_of("-.0123456789") != std::string_view::npos) return {};  // no exponent
  double value = 0.0;
  const auto [rest, error] = RealFromChars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || rest != text.data() + text.size() || !std::isfinite(value)) return {};
  return value;
}

std::span<const TextCommand> TextActions() { return kActions; }

}  // namespace kavr6
