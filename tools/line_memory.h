// The lines that a person has sent, to be sent again.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kavr6 {

class LineMemory {
 public:
  static constexpr std::size_t kMostLines = 40;

  /// The newest first.
  const std::vector<std::string>& Lines() const { return lines_; }
  /// Takes in each line of a text whose lines end in CR LF, but for empty ones. One that is known already
  /// becomes the newest.
  void Remember(std::string_view text);
  /// Goes one line up to older ones, -1, or down to newer ones, 1, and gives what stands there: behind the
  /// newest line what the way up began with, `draft`. Nothing where there is no way on.
  std::optional<std::string> Step(int direction, const std::string& draft);

 private:
  void RememberLine(const std::string& line);

  std::vector<std::string> lines_;
  std::size_t at_ = 0;  // 0: the draft; n: line n - 1
  std::string draft_;
};

}  // namespace kavr6
