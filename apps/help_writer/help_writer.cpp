#include "apps/help_writer/help_writer.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "apps/help_writer/markup.h"

namespace kavr6 {
namespace {

/// A row that has fewer cells than the others ends in a wide one.
std::string TableRows(const FactTable& table) {
  const auto widthOf = [](const FactRow& row) { return row.cells.size(); };
  const std::size_t width = widthOf(std::ranges::max(table, {}, widthOf));
  std::string rows;
  for (const FactRow& row : table) {
    const std::size_t missing = width - row.cells.size();
    std::string cells;
    for (const std::string& cell : row.cells) {
      const bool wide = missing > 0 && &cell == &row.cells.back();
      cells += Element("td", cell, wide ? "colspan=\"" + std::to_string(missing + 1) + "\"" : "");
    }
    rows += (rows.empty() ? "" : "\n") + Element("tr", cells);
  }
  return rows;
}

}  // namespace

std::string HelpWriter::CellsOf(const std::string& kind, const std::string& table, const std::string& key) {
  const FactTable& rows = facts_.at(table);
  const auto row = std::ranges::find(rows, key, &FactRow::key);
  if (row == rows.end()) throw std::out_of_range("row");
  keys_[table].insert(key);
  std::string cells;
  for (const std::string& cell : row->cells) cells += kind == "text" ? cell : Element("td", cell);
  return cells;
}

std::string HelpWriter::Answer(const std::string& instruction) {
  std::istringstream words(instruction);
  std::string kind, table, key;
  words >> kind >> table >> std::ws;
  std::getline(words, key);
  shown_.insert(table);
  if (kind == "rows" && key.empty()) return TableRows(facts_.at(table));
  if (kind == "cells" || kind == "text") return CellsOf(kind, table, key);
  throw std::out_of_range("kind");
}

void HelpWriter::CheckKeys(const std::string& page) {
  for (const auto& [table, keys] : keys_)
    for (const FactRow& row : facts_.at(table))
      if (const std::size_t times = keys.count(row.key); times != 1)
        faults_.push_back(page + " shows " + table + " " + row.key + " " + std::to_string(times) + " times");
}

std::string HelpWriter::Filled(const std::string& page, std::string_view source) {
  keys_.clear();
  std::string filled;
  for (std::size_t begin; (begin = source.find("<?")) != std::string_view::npos;) {
    const std::size_t end = std::min(source.find("?>", begin + 2), source.size() - 2);
    const std::string instruction(source.substr(begin + 2, end - begin - 2));
    filled += source.substr(0, begin);
    source.remove_prefix(end + 2);
    try {
      filled += Answer(instruction);
    } catch (const std::out_of_range&) {
      faults_.push_back(page + " asks for what is not there: " + instruction);
    }
  }
  CheckKeys(page);
  return filled.append(source);
}

const std::vector<std::string>& HelpWriter::Faults() {
  for (const auto& [table, rows] : facts_)
    if (!shown_.contains(table)) faults_.push_back("No page shows the facts of " + table);
  return faults_;
}

}  // namespace kavr6
