// A control that draws values over time.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/control.h"

namespace kavr6 {

/// Some values that are measured together again and again, each with a strip of its own. It keeps the last
/// `span` seconds, however long it runs.
class Chart : public Control {
 public:
  struct Series {
    std::string name;
    std::string unit;
  };
  struct Row {
    double time;  ///< seconds, on the clock of whoever adds
    std::vector<double> values;
  };
  using Rows = std::deque<Row>;

  Chart(Form& form, std::string name, std::vector<Series> series, double span)
      : Control(form, std::move(name), ControlKind::Chart), series_(std::move(series)), span_(span) {}

  const std::vector<Series>& AllSeries() const { return series_; }
  double Span() const { return span_; }
  /// One value for each series, not-a-number for one that is not known; times do not go back.
  void Add(double time, std::vector<double> values);
  void Clear();
  /// While it is held the chart shows what it showed, and goes on to take rows.
  void SetHeld(bool held);
  bool Held() const { return held_.has_value(); }
  const Rows& Shown() const { return held_ ? *held_ : rows_; }
  /// Grows with every change of what is shown, so that a view knows when to draw.
  int Revision() const { return revision_; }

 private:
  void ShownChanged();

  std::vector<Series> series_;
  double span_;
  Rows rows_;
  std::optional<Rows> held_;
  int revision_ = 0;
};

}  // namespace kavr6
