// A small motor catalogue in memory.
#pragma once

#include "motor/memory_table.h"

namespace kavr6 {

/// Three motors with round values; "KM17-1S-170" is the first in the order of the table.
inline MemoryTable CatalogueTable() {
  MemoryTable table;
  table.AddMotor("KM23-2S-300", 3.0, 180.0, 300.0);
  table.AddMotor("KM17-1S-170", 1.7, 60.0, 57.0);
  table.AddMotor("KM34-3S-670", 6.7, 1200.0, 4000.0);
  return table;
}

}  // namespace kavr6
