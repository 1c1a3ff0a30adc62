#include <cmath>
#include <string>

#include "core/numbers.h"
#include "core/status_word.h"
#include "simulator/text_commands.h"

namespace kavr6 {
namespace {

using Text = const std::string&;

std::string Hexadecimal(long value, int digits) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
    text += kDigits[static_cast<std::size_t>(value >> shift & 15)];
  return text;
}

/// A measured value in units of 10 to the power of -`decimals`: as a decimal number with these decimals, or
/// as so many hexadecimal digits.
std::string Reading(const TextSession& session, const char* letters, double value, int decimals, int digits) {
  const double units = std::round(value * std::pow(10.0, decimals));
  if (session.hexadecimal) return std::string(letters) + "=" + Hexadecimal(static_cast<long>(units), digits);
  const std::string picture =
      decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
  return std::string(letters) + "=" + FormatNumber(units / std::pow(10.0, decimals), picture);
}

double Now(const TextSession& session) { return session.works.scheduler.Now(); }
const MotorControl& Motor(const TextSession& session) { return session.works.motor; }

char Digit(bool high) { return high ? '1' : '0'; }

// The inputs of the "X" terminals begin with X0, and then go down from X7.
std::string Inputs(TextSession& session, Text argument) {
  const DriveTerminals& terminals = session.works.terminals;
  std::string text = "IS=";
  if (argument == "X") {
    text += Digit(terminals.High(DriveTerminals::kX));
    for (std::size_t i = 15; i > DriveTerminals::kX; --i) text += Digit(terminals.High(i));
    return text;
  }
  if (!argument.empty()) return std::string(kRefusal);
  for (std::size_t i = DriveTerminals::kX; i-- > 0;) text += Digit(terminals.High(i));
  return text;
}

// Eight places, of which the last ones are outputs, the first of them in the last place.
std::string Outputs(TextSession& session, Text argument) {
  if (!argument.empty() && argument != "Y") return std::string(kRefusal);
  const bool y = argument == "Y";
  const std::size_t first = y ? DriveTerminals::kY : 0;
  const std::size_t count = y ? 3 : 4;
  std::string text = "IO=" + std::string(8 - count, '1');
  for (std::size_t i = count; i-- > 0;) text += Digit(session.works.OutputHigh(first + i));
  return text;
}

std::string Velocity(TextSession& session, Text argument) {
  if (!argument.empty() && argument != "0" && argument != "1") return std::string(kRefusal);
  return Reading(session, "IV", Motor(session).ShaftSpeed() * 60, 0, 4);
}

std::string Format(TextSession& session, Text argument) {
  if (argument.empty()) return session.hexadecimal ? "IF=H" : "IF=D";
  if (argument != "D" && argument != "H") return std::string(kRefusal);
  session.hexadecimal = argument == "H";
  return {};
}

std::string Conditions(TextSession& session, Text argument) {
  if (!argument.empty()) return std::string(kRefusal);
  const int status = Motor(session).StatusWord() | session.WaitBits();
  std::string text;
  const std::pair<int, char> letters[] = {{kStatusFault, 'E'},
                                          {StatusMask("Motion"), 'M'},
                                          {StatusMask("Wait Time"), 'T'},
                                          {StatusMask("Wait Input"), 'W'}};
  for (const auto& [mask, letter] : letters)
    if ((status & mask) != 0) text += letter;
  return "RS=" + (text.empty() ? "R" : text);
}

/// A reading that takes no argument.
template <std::string (*Tell)(const TextSession&)>
std::string Plain(TextSession& session, Text argument) {
  return argument.empty() ? Tell(session) : std::string(kRefusal);
}

std::string Amperes(const TextSession& s) {
  return Reading(s, "IC", Motor(s).Enabled() ? s.works.registers["CC"] : 0.0, 2, 4);
}
std::string Alarms(const TextSession& s) { return "AL=" + Hexadecimal(Motor(s).AlarmWord(), 4); }
std::string Status(const TextSession& s) {
  return "SC=" + Hexadecimal(Motor(s).StatusWord() | s.WaitBits(), 4);
}
std::string Volts(const TextSession& s) { return Reading(s, "IA", s.works.terminals.Volts(Now(s)), 2, 4); }
std::string Moved(const TextSession& s) { return Reading(s, "ID", Motor(s).MovedSteps(), 0, 8); }
std::string Encoder(const TextSession& s) { return Reading(s, "IE", Motor(s).EncoderCount(), 0, 8); }
std::string Position(const TextSession& s) { return Reading(s, "IP", Motor(s).CommandedSteps(), 0, 8); }
std::string Missing(const TextSession& s) { return Reading(s, "IX", Motor(s).MissingSteps(), 0, 8); }
std::string Temperature(const TextSession& s) {
  return Reading(s, "IT", DriveTerminals::Celsius(Now(s)), 1, 4);
}
std::string Supply(const TextSession& s) {
  return Reading(s, "IU", DriveTerminals::SupplyVolts(Now(s)), 1, 4);
}
std::string FreePlaces(const TextSession& s) { return "BS=" + std::to_string(s.FreePlaces()); }
std::string Revision(const TextSession& s) {
  return "RV=" + FormatNumber(1 + s.works.revision / 100.0, "0.00") + s.works.letter;
}

// A character for the model. An end would come while the next answer is awaited, and be taken for its end.
std::string Model(const TextSession& s) { return std::string(1, static_cast<char>('0' + s.works.model)); }

constexpr TextCommand kReadings[] = {
    {"AL", false, Plain<Alarms>},
    {"BS", false, Plain<FreePlaces>},
    {"IA", false, Plain<Volts>},
    {"IC", false, Plain<Amperes>},
    {"ID", false, Plain<Moved>},
    {"IE", false, Plain<Encoder>},
    {"IF", false, Format},
    {"IO", false, Outputs},
    {"IP", false, Plain<Position>},
    {"IS", false, Inputs},
    {"IT", false, Plain<Temperature>},
    {"IU", false, Plain<Supply>},
    {"IV", false, Velocity},
    {"IX", false, Plain<Missing>},
    {"RS", false, Conditions},
    {"MN", false, Plain<Model>, ""},
    {"RV", false, Plain<Revision>},
    {"SC", false, Plain<Status>},
};

}  // namespace

std::span<const TextCommand> TextReadings() { return kReadings; }

}  // namespace kavr6
