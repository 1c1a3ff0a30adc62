#include "comparison/setting_words.h"

#include "core/analog_ranges.h"
#include "core/drive_models.h"
#include "core/drive_state.h"
#include "core/motion_codes.h"
#include "core/serial_protocol.h"

namespace kavr6::setting_words {
namespace {

std::string Unknown(Long code) { return "code " + std::to_string(code); }

/// The row at `index` of a table, by one of its texts.
template <class Table, class Text>
std::string At(const Table& table, Long index, Text text) {
  if (index < 0 || index >= static_cast<Long>(table.size())) return Unknown(index);
  return std::string(text(table[static_cast<std::size_t>(index)]));
}

/// Beyond its last unit `name` repeats itself.
std::string UnitOf(std::string (*name)(int), Long index) {
  const bool known = index == 0 || (index > 0 && name(index) != name(index - 1));
  return known ? name(index) : Unknown(index);
}

}  // namespace

std::string OperatingModeOf(Long code) {
  if (code == kOpPulseOrVelocity) return "Pulses or velocity";
  const OperatingMode* const mode = RowOfCode(kOperatingModes, code);
  return mode == nullptr ? Unknown(code) : std::string(mode->name);
}

std::string ControlModeOf(Long code) {
  if (code == kControlTorque) return "Analog torque";
  // The options beside it tell which kind.
  return code == kControlVelocity ? "Velocity" : PowerUpModeOf(code);
}

std::string PowerUpModeOf(Long code) {
  const ControlModeWords* const mode = RowOfCode(kPowerUpModes, code);
  return mode == nullptr ? Unknown(code) : std::string(mode->words);
}

std::string PulseKindOf(Long code) {
  return At(kPulseKinds, code, [](const PulseKind& kind) { return kind.listed; });
}

std::string RangeOf(Long code) {
  return At(kAnalogRanges, code, [](const AnalogRange& range) { return range.listed; });
}

std::string BitRateOf(Long code) {
  const bool known = code >= 1 && code <= static_cast<Long>(kBitRates.size());
  return known ? std::to_string(kBitRates[static_cast<std::size_t>(code - 1)]) + " bits/s" : Unknown(code);
}

std::string ProtocolOf(Long flags) {
  std::string words;
  const auto add = [&words](std::string_view more) {
    words += (words.empty() ? "" : "; ") + std::string(more);
  };
  for (const ProtocolBit& bit : kProtocolBits)
    if ((flags & bit.code) != 0) add(bit.reported);
  if ((flags & ~kKnownProtocolBits) != 0) add(Unknown(flags & ~kKnownProtocolBits));
  if ((flags & kProtocolAlways) == 0) add("without " + Unknown(kProtocolAlways));
  return words.empty() ? "none" : words;
}

std::string TorqueUnitOf(Long index) { return UnitOf(TorqueUnitName, index); }

std::string InertiaUnitOf(Long index) { return UnitOf(InertiaUnitName, index); }

std::string ModelOf(Long row) {
  if (row == -1) return "none";
  return At(kDriveModels, row, [](const DriveModel& model) { return model.name; });
}

std::string PortOf(Long row) {
  if (row == -1) return "none";
  return row >= 0 && row < kPortCount ? "COM" + std::to_string(row + 1) : Unknown(row);
}

std::string IoModeOf(const IoFunction& function, Long mode) {
  if (mode == kNotUsed) return "not used";
  if (mode >= 1 && mode <= static_cast<Long>(function.shown.size()))
    return std::string(function.shown[static_cast<std::size_t>(mode - 1)]);
  const bool tach = function.mode == &Settings::MotionOutMode && mode >= kFirstTach && mode <= kLastTach;
  return tach ? TachText(mode) : Unknown(mode);
}

}  // namespace kavr6::setting_words
