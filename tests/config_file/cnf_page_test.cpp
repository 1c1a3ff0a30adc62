#include <fstream>

#include <gtest/gtest.h>

#include "config_file/cnf_layout.h"
#include "config_file/settings_file.h"

namespace kavr6 {
namespace {

constexpr const char* kForms[] = {"number", "single", "long", "integer", "switch", "text"};

/// The lines of the page, from the one that begins with `first` up to the one that does not fit.
template <class Fits>
std::vector<std::string> Section(const std::string& first, const Fits& fits) {
  std::vector<std::string> section;
  std::ifstream page(KAVR6_DOCS "/cnf.md");
  for (std::string line; std::getline(page, line);)
    if (section.empty() ? line.starts_with(first) : fits(line))
      section.push_back(line);
    else if (!section.empty())
      break;
  return section;
}

/// Line, since, field and form.
std::string RowOf(int line, const CnfLine& content, const SettingsField& field, bool ofRow) {
  std::string form = kForms[field.index()];
  if (ofRow && form != "text") form += ", print";
  return "| " + std::to_string(line) + " | " + (content.since == 0 ? "all" : std::to_string(content.since)) +
         (ofRow ? " | Row: " : " | ") + std::string(NameOf(field)) + " | " + form + " |";
}

TEST(CnfPage, HasTheLinesOfTheLayout) {
  std::vector<std::string> rows{"| 2 | all | drive model | integer |"};
  int line = 2;
  for (const CnfBlock& block : CnfLayout()) {
    for (const CnfLine& content : block.lines) {
      if (!content.continues) ++line;
      for (const SettingsField& field : content.fields)
        rows.push_back(RowOf(line, content, field, block.of == CnfBlock::Of::Row));
    }
    if (block.of == CnfBlock::Of::Port)
      rows.push_back("| " + std::to_string(++line) + " | all | port | integer |");
  }
  std::vector<std::string> page = Section("| 2 |", [](const std::string& row) { return row[0] == '|'; });
  ASSERT_EQ(page.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(page[i].substr(0, rows[i].size()), rows[i]);
}

TEST(CnfPage, ShowsTheFileOfTheStartValues) {
  std::string shown;
  for (const std::string& line : Section("1.0", [](const std::string& text) { return text != "```"; }))
    shown += line + "\r\n";
  Settings s;
  InitVars(s);
  const MotorRecord row{1.5, 62.3, 57, 79, 2.7, 4.8, "KM17-2P-150", 750, 4, 0, 1, 120, 32};
  EXPECT_EQ(WriteSettingsFile({"1.0", 1, 0}, s, row), shown);
}

}  // namespace
}  // namespace kavr6
