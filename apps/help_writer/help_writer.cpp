#include "apps/help_writer/help_writer.h"

#include <algorithm>
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

std::string HelpWriter::Answer(const std::string& instruction) {
  std::istringstream words(instruction);
  std::string kind, table, key;
  std::getline(words >> kind >> table >> std::ws, key);
  const FactTable& rows = facts_.at(table);
  shown_.insert(table);
  if (kind == "rows" && key.empty()) return TableRows(rows);
  const auto row = std::ranges::find(rows, key, &FactRow::key);
  if (row == rows.end() || (kind != "cells" && kind != "text")) throw std::out_of_range(instruction);
  keys_[table].insert(key);
  std::string cells;
  for (const std::string& cell : row->cells) cells += kind == "text" ? cell : Element("td", cell);
  return cells;
}

void HelpWriter::CheckKeys(const std::string& page) {
  for (const auto& [table, keys] : keys_)
    for (const FactRow& row : facts_.at(table))
      if (const std::size_t times = keys.count(row.key); times != 1)
        faults_ << page << " shows " << table << " " << row.key << " " << times << " times\n";
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
      faults_ << page << " asks for what is not there: " << instruction << "\n";
    }
  }
  CheckKeys(page);
  return filled.append(source);
}

std::string HelpWriter::Faults() {
  for (const auto& [table, rows] : facts_)
    if (!shown_.contains(table)) faults_ << "No page shows the facts of " << table << "\n";
  return faults_.str();
}

}  // namespace kavr6
