#include "tools/chart_csv.h"

#include <cmath>

#include "core/numbers.h"

namespace kavr6 {

std::string CsvOf(const Chart& chart) {
  std::string text = "time (s)";
  for (const Chart::Series& series : chart.AllSeries()) text += "," + series.name + " (" + series.unit + ")";
  text += "\r\n";
  for (const Chart::Row& row : chart.Shown()) {
    text += FormatNumber(row.time - chart.Shown().front().time, "0.00");
    for (const double value : row.values) text += "," + (std::isfinite(value) ? NumberText(value) : "");
    text += "\r\n";
  }
  return text;
}

}  // namespace kavr6
