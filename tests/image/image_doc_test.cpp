// The page on the image holds the rows of its table, in their order and none besides.
#include <cctype>
#include <fstream>

#include <gtest/gtest.h>

#include "image/image_layout.h"

namespace kavr6 {
namespace {

TEST(ImagePage, HasTheRowsOfTheTable) {
  std::string rows;
  for (const ImageField& field : ImageLayout()) {
    const int last = field.position + field.width - 1;
    rows += "| " + std::to_string(field.position) + (field.width > 1 ? "-" + std::to_string(last) : "") +
            " | " + std::to_string(field.width);
    for (const std::string_view text : {field.name, field.written, field.read, field.why})
      rows += " | " + std::string(text);
    rows += " |\n";
  }
  std::string page;
  std::ifstream text(KAVR6_SOURCE "/docs/image.md");
  for (std::string line; std::getline(text, line);)
    if (line.size() > 2 && line[0] == '|' && std::isdigit(line[2]) != 0) page += line + "\n";
  EXPECT_EQ(page, rows);
}

}  // namespace
}  // namespace kavr6
