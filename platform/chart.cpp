#include "platform/chart.h"

#include <utility>

namespace kavr6 {

void Chart::Add(double time, std::vector<double> values) {
  rows_.push_back({time, std::move(values)});
  while (rows_.front().time < time - span_) rows_.pop_front();
  if (!held_) ShownChanged();
}

void Chart::Clear() {
  rows_.clear();
  held_.reset();
  ShownChanged();
}

void Chart::SetHeld(bool held) {
  if (held == Held()) return;
  if (held) {
    held_ = rows_;
  } else {
    held_.reset();
  }
  ShownChanged();
}

void Chart::ShownChanged() {
  ++revision_;
  Refresh();
}

}  // namespace kavr6
