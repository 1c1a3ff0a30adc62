#include "motor/motor_table.h"

#include <array>
#include <utility>

#include "core/numbers.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr const char* kIndexColumn = "PartNoX";
constexpr std::string_view kNotNeeded = "name";

double NumberOf(const Variant& value) {
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  if (std::holds_alternative<std::monostate>(value)) RaiseInvalidNull();
  RaiseTypeMismatch();
}

}  // namespace

void MotorTable::Open(const std::filesystem::path& directory) {
  access_.Open(directory / kMotorFile, kMotorTableName);
  access_.SetIndex(kIndexColumn);
  access_.MoveFirst();
  if (access_.EndOfTable()) return;
  for (const MotorColumn& column : kMotorColumns)
    if (column.name != kNotNeeded) access_.Read(column.name);
}

bool MotorTable::Seek(std::string_view partNumber) {
  access_.Seek(partNumber);
  return !access_.NoMatch();
}

std::string MotorTable::Text(std::string_view column) const {
  const Variant value = access_.Read(column);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  return std::holds_alternative<std::monostate>(value) ? std::string() : NumberText(NumberOf(value));
}

double MotorTable::Number(std::string_view column) const { return NumberOf(access_.Read(column)); }

Long MotorTable::Whole(std::string_view column) const { return ToLong(Number(column)); }

bool MotorTable::IsEmpty(std::string_view column) const {
  return std::holds_alternative<std::monostate>(access_.Read(column));
}

void MotorTable::Append(const MotorRecord& motor) {
  const auto whole = [](auto number) { return Variant(static_cast<std::int64_t>(number)); };
  const std::array<std::pair<std::string_view, Variant>, 12> columns{{
      {"current", motor.RatedCurrent},
      {"harmonic gain", whole(motor.HarmonicGain)},
      {"harmonic phase", whole(motor.HarmonicPhase)},
      {"inertia", motor.RotorInertia},
      {"part number", motor.MotorName},
      {"Torque", motor.RatedTorque},
      {kIndexColumn, motor.MotorName},
      {"TorqueUnit", whole(motor.TorqueUnit)},
      {"InertiaUnit", whole(motor.InertiaUnit)},
      {"leadangle rps", whole(motor.LeadAngleRps)},
      {"leadangle deg", whole(motor.LeadAngleDeg)},
      {"PWMmaxPct", motor.MaxVoltsPct},
  }};
  access_.AddNew();
  for (const auto& [name, value] : columns) access_.Assign(name, value);
  access_.Update();
}

}  // namespace kavr6
