#include "tools/line_memory.h"

#include <algorithm>

namespace kavr6 {

void LineMemory::Remember(std::string_view text) {
  at_ = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    if (end > 0) RememberLine(std::string(text.substr(0, end)));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

void LineMemory::RememberLine(const std::string& line) {
  std::erase(lines_, line);
  lines_.insert(lines_.begin(), line);
  if (lines_.size() > kMostLines) lines_.pop_back();
}

std::optional<std::string> LineMemory::Step(int direction, const std::string& draft) {
  if (direction < 0 ? at_ == lines_.size() : at_ == 0) return std::nullopt;
  if (at_ == 0) draft_ = draft;
  at_ = direction < 0 ? at_ + 1 : at_ - 1;
  return at_ == 0 ? draft_ : lines_[at_ - 1];
}

}  // namespace kavr6
