#include "simulator/drive_terminals.h"

#include <cmath>
#include <numbers>

namespace kavr6 {
namespace {

double Wave(double time, double period) { return std::sin(2 * std::numbers::pi * time / period); }

/// Number of a terminal from `first` to `last` behind a prefix, counted from 0.
std::optional<std::size_t> Numbered(std::string_view name, std::string_view prefix, char first, char last) {
  if (!name.starts_with(prefix) || name.size() != prefix.size() + 1) return {};
  const char digit = name.back();
  if (digit < first || digit > last) return {};
  return static_cast<std::size_t>(digit - first);
}

}  // namespace

std::optional<std::size_t> DriveTerminals::InputOf(std::string_view name) {
  if (const auto x = Numbered(name, "X", '0', '7')) return kX + *x;
  return Numbered(name, name.starts_with("IN") ? "IN" : "", '1', '8');
}

std::optional<std::size_t> DriveTerminals::OutputOf(std::string_view name) {
  if (const auto y = Numbered(name, "Y", '1', '3')) return kY + *y;
  return Numbered(name, name.starts_with("OUT") ? "OUT" : "", '1', '4');
}

double DriveTerminals::Volts(double time) const {
  return volts_.value_or(2.5 + 0.4 * Wave(time, 20) + 0.03 * Wave(time, 1.7));
}

double DriveTerminals::Celsius(double time) { return 38.0 + 2.5 * Wave(time, 300) + 0.2 * Wave(time, 11); }

double DriveTerminals::SupplyVolts(double time) { return 48.0 + 0.3 * Wave(time, 13); }

std::optional<InputCondition> InputCondition::Of(std::string_view text) {
  if (text.empty() || std::string_view("LHFR").find(text.back()) == std::string_view::npos) return {};
  const auto input = DriveTerminals::InputOf(text.substr(0, text.size() - 1));
  if (!input) return {};
  return InputCondition{*input, text.back()};
}

bool InputCondition::Holds(const DriveTerminals& terminals, bool changed) const {
  const bool level = kind == 'L' || kind == 'H';
  const bool wantsHigh = kind == 'H' || kind == 'R';
  return terminals.High(input) == wantsHigh && (level || changed);
}

}  // namespace kavr6
