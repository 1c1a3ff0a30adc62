// What a chart shows as a table for other programs.
#pragma once

#include <string>

#include "platform/chart.h"

namespace kavr6 {

/// Comma-separated values, a line for each row of the chart, below a line with names and units. Times are
/// seconds from the first row, with two decimals. Decimals follow a point whatever the system writes; a value
/// that is not known is left empty.
std::string CsvOf(const Chart& chart);

}  // namespace kavr6
