#include "motor/motor_table.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "core/numbers.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr const char* kIndexColumn = "PartNoX";

double NumberOf(const Variant& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  RaiseTypeMismatch();
}

bool IsEmpty(const Variant& value) { return std::holds_alternative<std::monostate>(value); }

std::string TextOf(const Variant& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  return IsEmpty(value) ? std::string() : NumberText(NumberOf(value));
}

}  // namespace

void MotorTable::Open(const std::filesystem::path& directory) {
  access_.Open(directory / kMotorFile, kMotorTableName);
  access_.SetIndex(kIndexColumn);
  MoveFirst();
  if (access_.EndOfTable()) return;
  for (const MotorColumn& column : kMotorColumns)
    if (!std::holds_alternative<std::monostate>(column.member)) access_.Read(column.name);
}

void MotorTable::MoveFirst() {
  current_.reset();
  access_.MoveFirst();
}

bool MotorTable::Seek(std::string_view partNumber) {
  access_.Seek(partNumber);
  if (!access_.NoMatch()) {
    current_.reset();
    return true;
  }
  const auto kept = std::ranges::find(kept_, partNumber, &MotorRow::PartNoX);
  if (kept != kept_.end()) current_ = *kept;
  return kept != kept_.end();
}

const MotorRow& MotorTable::Row() const {
  if (current_) return *current_;
  MotorRow row;
  for (const MotorColumn& column : kMotorColumns) {
    if (const auto* text = std::get_if<MotorText>(&column.member)) {
      row.*(*text) = TextOf(access_.Read(column.name));
    } else if (const auto* number = std::get_if<MotorNumber>(&column.member)) {
      const Variant value = access_.Read(column.name);
      if (!IsEmpty(value)) row.*(*number) = NumberOf(value);
    }
  }
  return current_.emplace(std::move(row));
}

std::optional<MotorRow> MotorTable::RowIfAny() const {
  try {
    return Row();
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

std::vector<MotorRow> MotorTable::Overview() {
  std::vector<MotorRow> rows;
  const auto number = [this](std::string_view column) -> std::optional<double> {
    const Variant value = access_.Read(column);
    if (IsEmpty(value) || std::holds_alternative<std::string>(value)) return std::nullopt;
    return NumberOf(value);
  };
  for (MoveFirst(); !access_.EndOfTable(); access_.MoveNext())
    rows.push_back({.PartNumber = TextOf(access_.Read("Part Number")),
                    .Current = number("current"),
                    .Torque = number("Torque"),
                    .TorqueUnit = number("TorqueUnit")});
  for (const MotorRow& row : kept_)
    rows.insert(std::ranges::upper_bound(rows, row.PartNumber, {}, &MotorRow::PartNumber), row);
  return rows;
}

AppendedMotor MotorTable::Append(const MotorRecord& motor) {
  const MotorRow row = RowOf(motor);
  try {
    return {{}, Write(row)};
  } catch (const RuntimeError& error) {
    kept_.push_back(row);
    return {error.what(), {}};
  }
}

std::filesystem::path MotorTable::Write(const MotorRow& row) {
  // The order in which a motor's columns have always been given.
  static constexpr std::string_view kOrder[] = {
      "current",    "harmonic gain", "harmonic phase", "inertia",       "part number",   "Torque",
      kIndexColumn, "TorqueUnit",    "InertiaUnit",    "leadangle rps", "leadangle deg", "PWMmaxPct"};
  access_.AddNew();
  for (const std::string_view name : kOrder) {
    const auto column = std::ranges::find(kMotorColumns, name, &MotorColumn::name);
    if (const auto* text = std::get_if<MotorText>(&column->member)) {
      access_.Assign(name, row.*(*text));
    } else if (const double number = Needed(row.*std::get<MotorNumber>(column->member));
               column->type == ColumnType::Whole) {
      access_.Assign(name, static_cast<std::int64_t>(number));
    } else {
      access_.Assign(name, number);
    }
  }
  return access_.Update();
}

}  // namespace kavr6
