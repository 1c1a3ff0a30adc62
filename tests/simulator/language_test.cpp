// Sessions in the text language, as texts that a person can hold against what a drive would say.
#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/support/text_terminal.h"

namespace kavr6 {
namespace {

// The rows of the page on the line: what is said, what it means, the answer.
TEST(LinePage, TellsWhatADriveAnswers) {
  std::ifstream page(KAVR6_SOURCE "/docs/line.md");
  std::string line;
  while (line != "## The text language") ASSERT_TRUE(std::getline(page, line));
  TextTerminal terminal;
  const std::regex row(R"(\| (.+) \| .+ \| (.*) \|)");
  int rows = 0;
  for (std::smatch cells; std::getline(page, line);) {
    if (!std::regex_match(line, cells, row) || cells[1] == "Line") continue;
    const std::string answer = std::regex_replace(terminal.Do(cells[1]), std::regex(R"(\|)"), R"(\|)");
    EXPECT_EQ(answer, cells[2]) << cells[1];
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
