#include <cstdlib>
#include <fstream>

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

bool IsFieldRow(const std::string& line) {
  return line.size() > 2 && line[0] == '|' && std::isdigit(line[2]) != 0;
}

std::vector<std::string> Lines() {
  std::ifstream file(kFile);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

/// Puts the rows in the place of those that the page has.
void RewritePage() {
  const std::vector<std::string> lines = Lines();
  std::ofstream file(kFile);
  bool written = false;
  for (const std::string& line : lines) {
    if (!IsFieldRow(line)) file << line << '\n';
    if (written || !IsFieldRow(line)) continue;
    for (const ImageField& field : ImageLayout()) file << RowOf(field) << '\n';
    written = true;
  }
}

TEST(ImagePage, HasTheRowsOfTheTable) {
  if (std::getenv("KAVR6_REWRITE_DOCS") != nullptr) RewritePage();
  std::vector<std::string> rows = Lines();
  std::erase_if(rows, [](const std::string& line) { return !IsFieldRow(line); });
  ASSERT_EQ(rows.size(), ImageLayout().size());
  for (std::size_t i = 0; i < rows.size(); ++i) ASSERT_EQ(rows[i], RowOf(ImageLayout()[i]));
}

}  // namespace
}  // namespace kavr6
