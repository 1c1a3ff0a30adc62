// Units of torque and inertia, and the text of a value by its magnitude.
#pragma once

#include <string>

namespace kavr6 {

/// Unit indexes are those of TorqueUnitName and InertiaUnitName; an index beyond the list is the base unit.
double TorqueToNm(double value, int unit);
double InertiaToKgM2(double value, int unit);
double InertiaFromKgM2(double value, int unit);

/// 12.34 gives "12.3", 0.5 gives ".5".
std::string FormatByMagnitude(double value);

}  // namespace kavr6
