// The examples of the text language are what the simulated drive answers.
#include <QRegularExpression>

#include <gtest/gtest.h>

#include "tests/help_pages/page.h"
#include "tests/support/text_terminal.h"

namespace kavr6 {
namespace {

std::vector<std::string> Split(const std::string& text, const std::string& mark) {
  std::vector<std::string> parts;
  for (std::size_t at = 0, end = 0; end != std::string::npos; at = end + mark.size()) {
    end = text.find(mark, at);
    parts.push_back(text.substr(at, end - at));
  }
  return parts;
}

/// A step in brackets as an order to the simulated drive; an empty one if it is none.
std::string OrderOf(const std::string& step) {
  const auto part =
      QRegularExpression(R"(^\((close|wait) ([\w.]+)( s)?\)$)").match(QString::fromStdString(step));
  if (!part.hasMatch()) return {};
  const std::string what = part.captured(2).toStdString();
  return part.captured(1) == "close" ? "@ " + what + " low" : "@ later " + what;
}

/// The example as it came out, in the words of the page. An answer that the page leaves open stays open.
std::string Played(const std::string& example) {
  TextTerminal terminal;
  terminal.Do("HR");
  std::string played;
  for (const std::string& step : Split(example, "; ")) {
    const std::vector<std::string> parts = Split(step, " → ");
    const std::string order = OrderOf(step);
    std::string answer = terminal.Do(order.empty() ? parts[0] : order);
    if (answer.ends_with('|')) answer.pop_back();
    const std::size_t open = step.find("…");
    if (open != std::string::npos && (parts[0] + " → " + answer).starts_with(step.substr(0, open)))
      answer = parts[1];
    played += (played.empty() ? "" : "; ") + parts[0] + (answer.empty() ? "" : " → " + answer);
  }
  return played;
}

TEST(HelpExamples, AreWhatTheSimulatedDriveAnswers) {
  std::size_t examples = 0;
  for (const char* table : {"commands", "servo", "more"})
    for (const auto& row : TableRows("text_language.html", table)) {
      ASSERT_EQ(row.size(), 4U);
      EXPECT_EQ(Played(row[3]), row[3]) << row[0];
      EXPECT_NE(row[3].find(row[0]), std::string::npos)
          << "the example shows another command than " << row[0];
      ++examples;
    }
  EXPECT_GE(examples, 77U);
}

}  // namespace
}  // namespace kavr6
