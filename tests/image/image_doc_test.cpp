#include <algorithm>
#include <cstdlib>
#include <fstream>

#include <gtest/gtest.h>

#include "image/image_layout.h"

namespace kavr6 {
namespace {

constexpr const char* kFile = KAVR6_SOURCE "/docs/image.md";

std::string RowOf(const ImageField& field) {
  const int last = field.position + field.width - 1;
  std::string row = "| " + std::to_string(field.position);
  if (field.width > 1) row += "-" + std::to_string(last);
  row += " | " + std::to_string(field.width);
  for (const std::string_view text : {field.name, field.written, field.read, field.why})
    row += " | " + std::string(text);
  return row + " |";
}

bool IsFieldRow(const std::string& line) {
  return line.size() > 2 && line[0] == '|' && std::isdigit(line[2]) != 0;
}

TEST(ImagePage, HasTheRowsOfTheTable) {
  std::vector<std::string> rows;
  for (const ImageField& field : ImageLayout()) rows.push_back(RowOf(field));
  std::vector<std::string> page;
  std::ifstream text(kFile);
  for (std::string line; std::getline(text, line);) page.push_back(line);
  const auto place = std::find_if(page.begin(), page.end(), IsFieldRow);
  const auto end = std::find_if_not(place, page.end(), IsFieldRow);
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
