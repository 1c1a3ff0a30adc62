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

}  // namespace

float MotorCalculations::MaxDriveCurrent() const {
  const int model = screen_.ModelList.ListIndex();
  if (model < 0 || model >= static_cast<int>(kDriveModels.size())) return 0;
  return kDriveModels[static_cast<std::size_t>(model)].continuousCurrent;
}

bool MotorCalculations::CustomIsMeant() const {
  if (DialogShowsCustom && screen_.Desk().ActiveFormName() == "MotorDialog") return DialogShowsCustom();
  return settings_.CustomMotor;
}

float MotorCalculations::MotorCurrentLimit() const {
  const double rated = CustomIsMeant() ? settings_.RatedCurrent : table_.Number("current");
  const double most = std::min(rated * kPeakFactor, static_cast<double>(std::numeric_limits<float>::max()));
  return std::min(static_cast<float>(most), MaxDriveCurrent());
}

void MotorCalculations::LimitContCurrent() {
  const float limit = MotorCurrentLimit();
  if (limit < static_cast<float>(settings_.RunCurrent)) settings_.RunCurrent = static_cast<double>(limit);
}

void MotorCalculations::LimitIdleCurrent() {
  settings_.IdlePercent = std::min(settings_.IdlePercent, kIdlePercentLimit);
}

MotorCalculations::RotorAndTorque MotorCalculations::SelectedMotor() const {
  if (settings_.CustomMotor)
    return {InertiaToKgM2(settings_.RotorInertia, settings_.InertiaUnit),
            TorqueToNm(settings_.RatedTorque, settings_.TorqueUnit)};
  return {InertiaToKgM2(table_.Number("inertia"), table_.Whole("InertiaUnit")),
          TorqueToNm(table_.Number("Torque"), table_.Whole("TorqueUnit"))};
}

Long MotorCalculations::ARgain() const { return kAntiResonanceGain; }

Long MotorCalculations::ARfreq() const {
  const RotorAndTorque motor = SelectedMotor();
  const double total = settings_.InertiaIsRatio ? (settings_.InertiaRatio + 1) * motor.inertia
                                                : settings_.LoadInertia + motor.inertia;
  if (total == 0) return kFrequencyWithoutInertia;
  const double square = motor.torque * kStiffness / total;
  if (square < 0) RaiseInvalidCall();
  return ToLong(std::sqrt(square) / 2 / kPi);
}

void MotorCalculations::CalcLoadInertia(Long frequency) {
  const RotorAndTorque motor = SelectedMotor();
  double total = 0;
  if (frequency != 0) {
    const double speed = frequency * kTwoPi;
    total = motor.torque * kStiffness / (speed * speed);
  }
  if (!settings_.InertiaIsRatio) {
    settings_.LoadInertia = total - motor.inertia;
  } else if (motor.inertia != 0) {
    settings_.InertiaRatio = total / motor.inertia - 1;
  }
}

}  // namespace kavr6
