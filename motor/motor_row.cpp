#include "motor/motor_row.h"

#include "core/numbers.h"
#include "platform/runtime_error.h"

namespace kavr6 {

double Needed(const std::optional<double>& column) {
  if (!column) RaiseInvalidNull();
  return *column;
}

Long NeededWhole(const std::optional<double>& column) { return ToLong(Needed(column)); }

std::string ColumnText(const std::optional<double>& column) {
  return column ? NumberText(*column) : std::string();
}

std::string RatingText(const MotorRow& row) {
  std::string current = row.Current ? NumberText(*row.Current) + " A" : std::string();
  if (!row.Torque || !row.TorqueUnit) return current;
  const std::string torque = NumberText(*row.Torque) + " " + TorqueUnitName(ToLong(*row.TorqueUnit));
  return current.empty() ? torque : current + ", " + torque;
}

MotorRecord RecordOf(const MotorRow& row) {
  return {.RatedCurrent = row.Current.value_or(0),
          .RatedTorque = row.Torque.value_or(0),
          .RotorInertia = row.Inertia.value_or(0),
          .MaxVoltsPct = row.PWMmaxPct.value_or(0),
          .MotorR = row.R.value_or(0),
          .MotorL = row.L.value_or(0),
          .MotorName = row.PartNumber,
          .HarmonicGain = ToLong(row.HarmonicGain.value_or(0)),
          .HarmonicPhase = ToLong(row.HarmonicPhase.value_or(0)),
          .TorqueUnit = ToInteger(row.TorqueUnit.value_or(0)),
          .InertiaUnit = ToInteger(row.InertiaUnit.value_or(0)),
          .LeadAngleDeg = ToLong(row.LeadAngleDeg.value_or(0)),
          .LeadAngleRps = ToLong(row.LeadAngleRps.value_or(0))};
}

MotorRow RowOf(const MotorRecord& motor) {
  return {.PartNumber = motor.MotorName,
          .PartNoX = motor.MotorName,
          .Current = motor.RatedCurrent,
          .Torque = motor.RatedTorque,
          .TorqueUnit = motor.TorqueUnit,
          .Inertia = motor.RotorInertia,
          .InertiaUnit = motor.InertiaUnit,
          .HarmonicGain = motor.HarmonicGain,
          .HarmonicPhase = motor.HarmonicPhase,
          .LeadAngleRps = motor.LeadAngleRps,
          .LeadAngleDeg = motor.LeadAngleDeg,
          .PWMmaxPct = motor.MaxVoltsPct,
          .R = {},
          .L = {}};
}

}  // namespace kavr6
