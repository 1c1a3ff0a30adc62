// Searching the rows of a list.
#include "platform/row_filter.h"

#include <gtest/gtest.h>

namespace kavr6 {
namespace {

TEST(RowFilter, LeavesTheRowsThatHaveAllWords) {
  struct Row {
    const char* text;
    const char* note;
  };
  const Row rows[] = {{"nema 17 a", "4.2 a, 60 oz in"},
                      {"nema 23 b", "14.2 a, 180 oz in"},
                      {"nema 23 c", "3 a, 4.2 n m"},
                      {"km23-3p", "4 a"},
                      {"plain", ""}};
  const std::pair<const char*, const char*> cases[] = {{"", "01234"},
                                                       {"  ", "01234"},
                                                       {"nema 23", "12"},
                                                       {"23 nema", "12"},
                                                       {"4.2", "02"},
                                                       {"4.2 a", "0"},
                                                       {"4.2 n m", "2"},
                                                       {"4.2 n", "2"},
                                                       {"3 a", "2"},
                                                       {"23 4 a", "3"},
                                                       {"4.2 a, 60 oz in", "0"},
                                                       {"a 17", "0"},
                                                       {"oz in nema", "01"},
                                                       {"km 3", "3"},
                                                       {"60", "0"},
                                                       {"0", ""},
                                                       {"in", "014"},
                                                       {"4.2 lb", ""},
                                                       {"4 a nema", ""}};
  for (const auto& [search, expected] : cases) {
    std::set<std::string> units;
    for (const Row& row : rows) RowFilter::CollectUnits(row.note, units);
    const RowFilter filter(search, units);
    std::string left;
    for (const Row& row : rows)
      if (filter.Fits(row.text, row.note)) left += static_cast<char>('0' + (&row - rows));
    EXPECT_EQ(left, expected) << search;
  }
}

}  // namespace
}  // namespace kavr6
