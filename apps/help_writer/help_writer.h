// Fills the program's facts into the pages of the help.
#pragma once

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

#include "apps/help_writer/facts.h"

namespace kavr6 {

/// A page asks for facts by instructions of XML:
///
///     <?rows TABLE?>       all rows of a table, each a tr
///     <?cells TABLE KEY?>  the cells of one row, each a td
///     <?text TABLE KEY?>   the cells of one row, bare
///
/// A page that asks for one row of a table has to ask for each once, and every table has to be asked for
/// somewhere, so that no fact of the program is left out.
class HelpWriter {
 public:
  /// The page with its facts. What is wrong with it, Faults tells.
  std::string Filled(const std::string& page, std::string_view source);
  /// After the last page: all that is wrong, a line each with the name of the page; "" if nothing is.
  std::string Faults();

 private:
  /// What stands in the place of an instruction; std::out_of_range if there is no such thing.
  std::string Answer(const std::string& instruction);
  void CheckKeys(const std::string& page);

  const std::map<std::string, FactTable> facts_ = AllFacts();
  std::set<std::string> shown_;                             // tables, on any page
  std::map<std::string, std::multiset<std::string>> keys_;  // asked for on this page, by table
  std::ostringstream faults_;
};

}  // namespace kavr6
