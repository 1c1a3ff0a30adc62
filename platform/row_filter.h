// Finding rows of a list by a few words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kavr6 {

/// The rows that have all words of a search. A row is a text and a note with figures, such as "4.2 a, 1.26 n
/// m". Search and rows are in small letters.
///
/// A word may stand anywhere in the text; in the note a word has to begin with it, so that 4.2 is not found
/// in 14.2. A number with a unit of the note behind it counts as one word: "4.2 a" asks for a current, and a
/// torque of 4.2 does not do.
class RowFilter {
 public:
  explicit RowFilter(std::string_view search);
  /// Nothing is searched for: every row fits.
  bool Empty() const { return words_.empty(); }
  bool Fits(std::string_view text, std::string_view note) const;

 private:
  std::vector<std::string> words_;
};

}  // namespace kavr6
