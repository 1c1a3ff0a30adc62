#include "motor/motor_calculations.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/drive_models.h"
#include "core/numbers.h"
#include "motor/motor_units.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr double kPeakFactor = 1.5;  ///< of the rated current
constexpr Long kAntiResonanceGain = 12000;
constexpr Long kFrequencyWithoutInertia = 200;
// The drive works with these very decimals: a better pi would move the results.
constexpr double kStiffness = 50;
constexpr double kPi = 3.1416;
constexpr double kTwoPi = 6.2832;

/// Of the selected motor, in base units.
struct RotorAndTorque {
  double inertia = 0;  ///< kg m2
  double torque = 0;   ///< N m
};

RotorAndTorque SelectedMotor(const Settings& settings, const MotorRow& row) {
  if (settings.CustomMotor)
    return {InertiaToKgM2(settings.RotorInertia, settings.InertiaUnit),
            TorqueToNm(settings.RatedTorque, settings.TorqueUnit)};
  return {InertiaToKgM2(Needed(row.Inertia), NeededWhole(row.InertiaUnit)),
          TorqueToNm(Needed(row.Torque), NeededWhole(row.TorqueUnit))};
}

}  // namespace

float CurrentLimits::MaxDriveCurrent() const {
  const int model = state_.ModelIndex;
  if (model < 0 || model >= static_cast<int>(kDriveModels.size())) return 0;
  return kDriveModels[static_cast<std::size_t>(model)].continuousCurrent;
}

bool CurrentLimits::CustomIsMeant() const {
  const std::optional<bool> shown = CustomOnShow ? CustomOnShow() : std::nullopt;
  return shown.value_or(settings_.CustomMotor);
}

float CurrentLimits::MotorCurrentLimit() const {
  const double rated = CustomIsMeant() ? settings_.RatedCurrent : Needed(table_.Row().Current);
  const double most = std::min(rated * kPeakFactor, static_cast<double>(std::numeric_limits<float>::max()));
  return std::min(static_cast<float>(most), MaxDriveCurrent());
}

void CurrentLimits::LimitContCurrent() {
  const float limit = MotorCurrentLimit();
  if (limit < static_cast<float>(settings_.RunCurrent)) settings_.RunCurrent = static_cast<double>(limit);
}

void CurrentLimits::LimitIdleCurrent() {
  settings_.IdlePercent = std::min(settings_.IdlePercent, kIdlePercentLimit);
}

Long ARgain() { return kAntiResonanceGain; }

Long ARfreq(const Settings& settings, const MotorRow& row) {
  const RotorAndTorque motor = SelectedMotor(settings, row);
  const double total = settings.InertiaIsRatio ? (settings.InertiaRatio + 1) * motor.inertia
                                               : settings.LoadInertia + motor.inertia;
  if (total == 0) return kFrequencyWithoutInertia;
  const double square = motor.torque * kStiffness / total;
  if (square < 0) RaiseInvalidCall();
  return ToLong(std::sqrt(square) / 2 / kPi);
}

void CalcLoadInertia(Settings& settings, const MotorRow& row, Long frequency) {
  const RotorAndTorque motor = SelectedMotor(settings, row);
  double total = 0;
  if (frequency != 0) {
    const double speed = frequency * kTwoPi;
    total = motor.torque * kStiffness / (speed * speed);
  }
  if (!settings.InertiaIsRatio) {
    settings.LoadInertia = total - motor.inertia;
  } else if (motor.inertia != 0) {
    settings.InertiaRatio = total / motor.inertia - 1;
  }
}

}  // namespace kavr6
