// Finding rows of a list by a few words.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kavr6 {

/// The rows that have all words of a search. A row is a text and a note with figures, such as "4.2 a, 1.26 n
/// m". Search and rows are in small letters.
///
/// A word may stand anywhere in the text; in the note a word has to begin with it, so that 4.2 is not found
/// in 14.2. A number with a unit behind it is looked for as a whole: "4.2 a" asks for a current, and a torque
/// of 4.2 does not do.
class RowFilter {
 public:
  /// `units`: as CollectUnits has found them in all notes.
  RowFilter(std::string_view search, const std::set<std::string>& units);
  /// Nothing is searched for: every row fits.
  bool Empty() const { return sought_.empty(); }
  bool Fits(std::string_view text, std::string_view note) const;

  /// Adds the words that stand behind a number of the note.
  static void CollectUnits(std::string_view note, std::set<std::string>& units);

 private:
  struct Sought {
    std::string words;
    bool figure;
  };
  std::vector<Sought> sought_;
};

}  // namespace kavr6
