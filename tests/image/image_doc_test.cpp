#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <regex>

#include <gtest/gtest.h>

#include "image/image_layout.h"

namespace kavr6 {
namespace {

constexpr const char* kFile = KAVR6_DOCS "/image.md";

std::string RowOf(const ImageField& field) {
  const int last = field.position + field.width - 1;
  std::string row = "| " + std::to_string(field.position);
  if (field.width > 1) row += "-" + std::to_string(last);
  row += " | " + std::to_string(field.width);
  for (const std::string_view text : {field.name, field.written, field.read, field.why})
    row += " | " + std::string(text);
  return row + " |";
}

TEST(ImagePage, HasTheRowsOfTheTable) {
  std::vector<std::string> rows, page;
  for (const ImageField& field : ImageLayout()) rows.push_back(RowOf(field));
  std::ifstream text(kFile);
  for (std::string line; std::getline(text, line);) page.push_back(line);
  const auto isRow = [](const std::string& line) { return std::regex_match(line, std::regex("\\| \\d.*")); };
  const auto place = std::find_if(page.begin(), page.end(), isRow);
  const auto end = std::find_if_not(place, page.end(), isRow);
  if (std::getenv("KAVR6_REWRITE_DOCS") == nullptr) {
    EXPECT_EQ(std::vector(place, end), rows);
    return;
  }
  page.insert(page.erase(place, end), rows.begin(), rows.end());
  std::ofstream file(kFile);
  for (const std::string& line : page) file << line << '\n';
}

}  // namespace
}  // namespace kavr6
