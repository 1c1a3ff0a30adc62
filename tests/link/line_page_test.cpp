// The page on the line holds the rows of the tables, in their order and none besides, up to the text
// language.
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "core/drive_models.h"
#include "core/numbers.h"
#include "link/wire.h"

namespace kavr6 {
namespace {

std::string Row(std::initializer_list<std::string> cells) {
  std::string row = "|";
  for (const std::string& cell : cells) row += " " + cell + " |";
  return row + "\n";
}

TEST(LinePage, HasTheRowsOfTheTables) {
  std::string expected = Row({"Bytes", "Meaning", "Reply", "Seconds"}) + "|---|---|---|---|\n";
  for (const WireCommand& c : kWireCommands) {
    const std::string argument = c.argument < 0 ? "" : " " + std::to_string(c.argument);
    expected += Row({"\"" + std::string(c.bytes) + "\"" + argument, std::string(c.meaning),
                     std::string(c.reply), c.limit == 0 ? "" : NumberText(c.limit)});
  }
  expected += Row({"Header", "Second byte", "Third byte", "Meaning"}) + "|---|---|---|---|\n";
  for (const WireMessage& m : kWireMessages) {
    std::ostringstream header;
    header << std::hex << std::uppercase << static_cast<int>(m.header);
    expected += Row({header.str(), std::string(m.second), std::string(m.third), std::string(m.meaning)});
  }
  std::ifstream page(KAVR6_DOCS "/line.md");
  std::string rows;
  std::string text;
  for (std::string line; std::getline(page, line) && line != "## The text language"; text += line + " ")
    if (line.starts_with('|')) rows += line + "\n";
  EXPECT_EQ(rows, expected);
  for (const DriveModel& model : kDriveModels) {
    const std::string words = std::to_string(model.code) + " " + std::string(model.name);
    EXPECT_NE(text.find(words), std::string::npos) << words;
  }
}

}  // namespace
}  // namespace kavr6
