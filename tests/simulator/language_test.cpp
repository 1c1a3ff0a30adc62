// Sessions in the text language, as texts that a person can hold against what a drive would say.
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/text_terminal.h"

namespace kavr6 {
namespace {

/// What stands in a row of a table of the page.
std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  if (!line.starts_with("| ") || !line.ends_with(" |")) return cells;
  const std::string row = line.substr(2) + " ";
  for (std::size_t at = 0, end = 0; (end = row.find(" | ", at)) != std::string::npos; at = end + 3)
    cells.push_back(row.substr(at, end - at));
  return cells;
}

// The rows of the page on the line: what is said, what it means, the answer.
TEST(LinePage, TellsWhatADriveAnswers) {
  std::ifstream page(KAVR6_SOURCE "/docs/line.md");
  std::string line;
  while (line != "## The text language") ASSERT_TRUE(std::getline(page, line));
  TextTerminal terminal;
  int rows = 0;
  while (std::getline(page, line)) {
    const std::vector<std::string> cells = CellsOf(line);
    if (cells.size() != 3 || cells[0] == "Line" || cells[0] == "---") continue;
    std::string answer = terminal.Do(cells[0]);
    for (std::size_t at = 0; (at = answer.find('|', at)) != std::string::npos; at += 2)
      answer.insert(at, 1, '\\');
    EXPECT_EQ(answer, cells[2]) << cells[0];
    ++rows;
  }
  EXPECT_EQ(rows, 40);
}

// What is said stands before "->", the answer behind it; a heading begins with a new drive.
TEST(Language, IsSpokenAsInTheSessionsWrittenDown) {
  const std::string path = KAVR6_SOURCE "/tests/simulator/language.txt";
  std::ifstream file(path);
  ASSERT_TRUE(file) << path;
  std::optional<TextTerminal> terminal;
  std::string expected, got;
  for (std::string line; std::getline(file, line); expected += line + "\n") {
    const std::string said = line.substr(0, line.find(" ->"));
    if (line.starts_with('#')) terminal.emplace();
    if (line.empty() || line.starts_with('#')) {
      got += line + "\n";
      continue;
    }
    const std::string answer = terminal->Do(said);
    got += said + (answer.empty() ? "" : " -> " + answer) + "\n";
  }
  EXPECT_EQ(got, expected);
  if (got != expected && std::getenv("KAVR6_WRITE_TRANSCRIPTS") != nullptr)
    std::ofstream(KAVR6_SOURCE "/tests/simulator/language.got") << got;
}

}  // namespace
}  // namespace kavr6
