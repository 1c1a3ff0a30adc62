// Lists of units in the motor windows.
#pragma once

#include <string>

#include "platform/controls.h"

namespace kavr6 {

/// Fills the list with all words of `name`, which is TorqueUnitName or InertiaUnitName.
inline void FillUnits(ListBox& list, std::string (*name)(int)) {
  // Beyond its last unit `name` repeats itself.
  for (int unit = 0; unit == 0 || name(unit) != name(unit - 1); ++unit) list.AddItem(name(unit));
}

/// Selects the unit; an index beyond the list is the base unit, which is the last one.
inline void SelectUnit(ListBox& list, int unit) {
  list.SetListIndex(unit >= 0 && unit < list.Count() ? unit : list.Count() - 1);
}

}  // namespace kavr6
