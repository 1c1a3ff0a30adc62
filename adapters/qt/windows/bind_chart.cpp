#include <cmath>
#include <utility>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/bind_kinds.h"
#include "adapters/qt/windows/widgets/strip_chart.h"
#include "platform/chart.h"

namespace kavr6 {
namespace {

QVector<widgets::StripChart::Strip> StripsOf(const Chart& chart) {
  QVector<widgets::StripChart::Strip> strips;
  for (std::size_t i = 0; i < chart.AllSeries().size(); ++i) {
    const Chart::Series& series = chart.AllSeries()[i];
    strips.push_back({ToQt(series.name), ToQt(series.unit), {}});
    for (const Chart::Row& row : chart.Shown())
      if (std::isfinite(row.values[i])) strips.back().values.push_back({row.time, row.values[i]});
  }
  return strips;
}

}  // namespace

RefreshView BindChart(Control& control, QObject& target, const UserAction& /*act*/) {
  auto* const view = qobject_cast<widgets::StripChart*>(&target);
  if (view == nullptr) return {};
  return [&chart = static_cast<const Chart&>(control), view, shown = -1]() mutable {
    if (std::exchange(shown, chart.Revision()) != chart.Revision())
      view->setContent(StripsOf(chart), chart.Span(), chart.Held());
  };
}

}  // namespace kavr6
