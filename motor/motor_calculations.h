// Current limits, resonance and load inertia of the selected motor on the selected drive.
#pragma once

#include <functional>
#include <optional>

#include "core/drive_state.h"
#include "core/settings.h"
#include "motor/motor_table.h"

namespace kavr6 {

/// Largest idle current that a drive is given by itself, percent.
inline constexpr Long kIdlePercentLimit = 90;

/// The anti-resonance words of the image. `row` counts while CustomMotor is false; a column of it that is
/// needed and empty is a RuntimeError.
Long ARgain();
Long ARfreq(const Settings& settings, const MotorRow& row);
/// The inverse of ARfreq: sets InertiaRatio or LoadInertia from a resonance frequency. No result is limited,
/// so a frequency of 0 gives a ratio of -1 or a negative inertia.
void CalcLoadInertia(Settings& settings, const MotorRow& row, Long frequency);

/// How much current the selected motor may be given.
class CurrentLimits {
 public:
  CurrentLimits(Settings& settings, const DriveState& state, const MotorTable& table)
      : settings_(settings), state_(state), table_(table) {}

  /// Continuous limit of the selected model, A; 0 without a selected model.
  float MaxDriveCurrent() const;
  /// Limit of the selected motor on the selected model, A.
  float MotorCurrentLimit() const;
  /// Pull the settings back within the limits; neither ever raises a value.
  void LimitContCurrent();
  void LimitIdleCurrent();

  /// Whether the motor dialog shows the custom motor, while that dialog is the front window; nothing
  /// otherwise, and CustomMotor decides. Set by the dialog.
  std::function<std::optional<bool>()> CustomOnShow;

 private:
  bool CustomIsMeant() const;

  Settings& settings_;
  const DriveState& state_;
  const MotorTable& table_;
};

}  // namespace kavr6
