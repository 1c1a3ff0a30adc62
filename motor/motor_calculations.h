// Current limits, resonance and load inertia of the selected motor on the selected drive.
#pragma once

#include <functional>

#include "core/main_screen.h"
#include "core/settings.h"
#include "motor/motor_table.h"

namespace kavr6 {

/// Largest idle current that a drive is given by itself, percent.
inline constexpr Long kIdlePercentLimit = 90;

class MotorCalculations {
 public:
  MotorCalculations(Settings& settings, MainScreen& screen, MotorTable& table)
      : settings_(settings), screen_(screen), table_(table) {}

  /// Continuous limit of the selected model, A; 0 without a selected model.
  float MaxDriveCurrent() const;
  /// Limit of the selected motor on the selected model, A. While the motor dialog is the front window the
  /// motor shown there counts, see DialogShowsCustom.
  float MotorCurrentLimit() const;
  /// Pull the settings back within the limits; neither ever raises a value.
  void LimitContCurrent();
  void LimitIdleCurrent();

  /// The anti-resonance words of the image.
  Long ARgain() const;
  Long ARfreq() const;
  /// The inverse of ARfreq: sets InertiaRatio or LoadInertia from a resonance frequency. No result is
  /// limited, so a frequency of 0 gives a ratio of -1 or a negative inertia.
  void CalcLoadInertia(Long frequency);

  /// Says whether the motor dialog shows the custom motor; set by that dialog. Without it CustomMotor
  /// decides.
  std::function<bool()> DialogShowsCustom;

 private:
  struct RotorAndTorque {
    double inertia = 0;  ///< kg m2
    double torque = 0;   ///< N m
  };
  RotorAndTorque SelectedMotor() const;
  bool CustomIsMeant() const;

  Settings& settings_;
  MainScreen& screen_;
  MotorTable& table_;
};

}  // namespace kavr6
