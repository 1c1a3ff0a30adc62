// One row of the motor table as a value.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "core/settings.h"

namespace kavr6 {

/// A catalogue motor as the table holds it. Torque and inertia are in the unit of their unit column, current
/// in A, R in ohm, L in mH, the lead angle in degrees at rev/sec. Any column of numbers may be empty.
struct MotorRow {
  std::string PartNumber = {};  ///< shown to people
  std::string PartNoX = {};     ///< orders and finds the rows
  std::optional<double> Current = {};
  std::optional<double> Torque = {};
  std::optional<double> TorqueUnit = {};
  std::optional<double> Inertia = {};
  std::optional<double> InertiaUnit = {};
  std::optional<double> HarmonicGain = {};
  std::optional<double> HarmonicPhase = {};
  std::optional<double> LeadAngleRps = {};
  std::optional<double> LeadAngleDeg = {};
  std::optional<double> PWMmaxPct = {};
  std::optional<double> R = {};
  std::optional<double> L = {};

  bool operator==(const MotorRow&) const = default;
};

using MotorNumber = std::optional<double> MotorRow::*;
using MotorText = std::string MotorRow::*;

enum class ColumnType { Text, Real, Whole };

struct MotorColumn {
  std::string_view name;  ///< compared without regard to case
  ColumnType type;
  std::variant<std::monostate, MotorText, MotorNumber> member;  ///< none: nothing reads it
};

/// The columns of the table. The last one serves people only and may be missing.
inline constexpr std::array<MotorColumn, 15> kMotorColumns{{
    {"part number", ColumnType::Text, &MotorRow::PartNumber},
    {"PartNoX", ColumnType::Text, &MotorRow::PartNoX},
    {"current", ColumnType::Real, &MotorRow::Current},
    {"Torque", ColumnType::Real, &MotorRow::Torque},
    {"TorqueUnit", ColumnType::Whole, &MotorRow::TorqueUnit},
    {"inertia", ColumnType::Real, &MotorRow::Inertia},
    {"InertiaUnit", ColumnType::Whole, &MotorRow::InertiaUnit},
    {"harmonic gain", ColumnType::Whole, &MotorRow::HarmonicGain},
    {"harmonic phase", ColumnType::Whole, &MotorRow::HarmonicPhase},
    {"leadangle rps", ColumnType::Whole, &MotorRow::LeadAngleRps},
    {"leadangle deg", ColumnType::Whole, &MotorRow::LeadAngleDeg},
    {"PWMmaxPct", ColumnType::Real, &MotorRow::PWMmaxPct},
    {"R", ColumnType::Real, &MotorRow::R},
    {"L", ColumnType::Real, &MotorRow::L},
    {"name", ColumnType::Text, std::monostate{}},
}};

/// What a column that is needed holds. An empty one is a RuntimeError.
double Needed(const std::optional<double>& column);
/// As Needed, rounded half to even to a 32-bit integer.
Long NeededWhole(const std::optional<double>& column);
/// For people: empty for an empty column.
std::string ColumnText(const std::optional<double>& column);

/// Rated current and torque for people: "4.2 A, 1.26 N m". What is not known is left out.
std::string RatingText(const MotorRow& row);

/// The row as files keep it. A motor that came from a file or a drive has no winding: what is empty counts 0.
MotorRecord RecordOf(const MotorRow& row);
/// The row that a motor named by a file or a drive becomes. R and L stay empty.
MotorRow RowOf(const MotorRecord& motor);

}  // namespace kavr6
