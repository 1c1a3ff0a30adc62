// The help's pages as a test reads them: strictly, as XML.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace kavr6 {

/// The cells of each row, in order; blanks run together, none at the ends.
using Rows = std::vector<std::vector<std::string>>;

struct Page {
  /// Why it could not be read to its end, with the line; "" if it could.
  std::string fault;
  bool styled = false;  // has the style sheet, told in the way that the viewer understands
  std::string title;
  std::string heading;  // of the first h1
  /// What a person reads, block by block, but for code and pre.
  std::string words;
  std::vector<std::string> links;     // href, as it stands
  std::vector<std::string> pictures;  // src, as it stands
  std::vector<std::string> untold;    // pictures without a text of their own
  std::vector<std::string> captions;  // what stands in i
  std::set<std::string> fragments;
  std::map<std::string, std::string> headings;  // by the fragments in them
  std::set<std::string> elements;
  std::map<std::string, Rows> tables;  // by id; rows of td alone
};

/// Names of all pages, such as "contact us.html".
const std::vector<std::string>& PageNames();

/// Fails the test if there is no such page.
const Page& HelpPage(const std::string& name);

/// Rows of a table without its headings. Fails the test if there is no such page or table.
Rows TableRows(const std::string& pageName, const std::string& tableId);

/// `rows` as a picture for a failing comparison: one row a line.
std::string Lines(const Rows& rows);

}  // namespace kavr6
