#include "core/news.h"

#include <array>
#include <cstdio>

namespace kavr6 {
namespace {

constexpr int kMinute = 60;
constexpr int kDay = 24 * 60 * kMinute;

std::string TwoDigits(int number) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%02d", number);
  return text.data();
}

}  // namespace

std::string ShownMinute(int minute) { return TwoDigits(minute / 60) + ":" + TwoDigits(minute % 60); }

int News::Second() const { return Clock ? static_cast<int>(Clock()) % kDay : 0; }

void News::Tell(const std::string& words, const std::string& rest) {
  const int now = Second();
  lines_.push_back(words + " at " + ShownMinute(now / kMinute) + ":" + TwoDigits(now % kMinute) + rest);
  if (lines_.size() > kKept) lines_.pop_front();
  Changed.Raise();
}

}  // namespace kavr6
