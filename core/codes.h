// Integers of the settings, and tables whose rows are found by a code.
#pragma once

#include <cstdint>

namespace kavr6 {

using Long = std::int32_t;
using Integer = std::int16_t;

/// The row of a table whose member `code` is this one; nullptr for a code that the table does not know.
template <class Table>
constexpr const typename Table::value_type* RowOfCode(const Table& rows, Long code) {
  for (const auto& row : rows)
    if (row.code == code) return &row;
  return nullptr;
}

}  // namespace kavr6
