#include "motor/motor_units.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "core/numbers.h"

namespace kavr6 {
namespace {

// What one unit is in the base unit. The factors are the drive's own and are not derived from one another;
// whether a unit multiplies or divides is part of them, since the two differ in the last digit.
constexpr double kOzInPerNm = 141.6;
constexpr double kNmPerLbIn = 0.113;
constexpr double kNmPerGCm = 0.000098066;
constexpr double kNmPerKgCm = 0.098066;
constexpr double kKgM2PerOzInSec2 = 0.0070616;
constexpr double kGCm2PerKgM2 = 10000000;
constexpr double kKgCm2PerKgM2 = 10000;

struct Magnitude {
  double from;
  std::string_view picture;
};

constexpr std::array<Magnitude, 11> kMagnitudes{{
    {1000000, "#######"},
    {100000, "######"},
    {10000, "#####"},
    {1000, "####"},
    {100, "###"},
    {10, "##.0"},
    {1, "#.0##"},
    {0.1, ".0###"},
    {0.01, ".00###"},
    {0.001, ".000###"},
    {0.0001, ".0000###"},
}};
constexpr std::string_view kSmallest = ".00000###";

}  // namespace

double TorqueToNm(double value, int unit) {
  switch (unit) {
    case 0:
      return value / kOzInPerNm;
    case 1:
      return value * kNmPerLbIn;
    case 2:
      return value * kNmPerGCm;
    case 3:
      return value * kNmPerKgCm;
    default:
      return value;
  }
}

double InertiaToKgM2(double value, int unit) {
  switch (unit) {
    case 0:
      return value * kKgM2PerOzInSec2;
    case 1:
      return value / kGCm2PerKgM2;
    case 2:
      return value / kKgCm2PerKgM2;
    default:
      return value;
  }
}

double InertiaFromKgM2(double value, int unit) {
  switch (unit) {
    case 0:
      return value / kKgM2PerOzInSec2;
    case 1:
      return value * kGCm2PerKgM2;
    case 2:
      return value * kKgCm2PerKgM2;
    default:
      return value;
  }
}

std::string FormatByMagnitude(double value) {
  const auto found = std::find_if(kMagnitudes.begin(), kMagnitudes.end(),
                                  [value](const Magnitude& m) { return value >= m.from; });
  return FormatNumber(value, found == kMagnitudes.end() ? kSmallest : found->picture);
}

}  // namespace kavr6
