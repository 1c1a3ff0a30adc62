// The program's own tables as the help shows them.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace kavr6 {

struct FactRow {
  std::string key;                 ///< by which a page asks for this row
  std::vector<std::string> cells;  ///< as markup
};
using FactTable = std::vector<FactRow>;

/// By name. The limits of number entry go by the name of their dialog, its fields are the keys; the codes go
/// by the name of their window. In all other tables the first cell is the key, unless noted where they are
/// made.
std::map<std::string, FactTable> AllFacts();

}  // namespace kavr6
