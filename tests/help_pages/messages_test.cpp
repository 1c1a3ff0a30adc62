// Every message box is explained in the help, with all its buttons.
#include <QRegularExpression>
#include <QString>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/help_pages/page.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

std::string Simplified(const std::string& text) {
  return QString::fromStdString(text).simplified().toStdString();
}

std::string ContentOf(const fs::path& file) {
  std::ostringstream content;
  content << std::ifstream(file).rdbuf();
  return content.str();
}

/// The files below a folder with this ending, as one text.
std::string AllOf(const fs::path& folder, const std::string& ending) {
  std::string all;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(KAVR6_SOURCE) / folder))
    if (entry.path().string().ends_with(ending)) all += ContentOf(entry.path()) + "\n";
  return all;
}

/// Whether the text is the pattern with something for each "…".
bool Fits(const std::string& text, const std::string& pattern) {
  const QString form = QRegularExpression::escape(QString::fromStdString(pattern)).replace("\\…", ".+");
  return QRegularExpression("^" + form + "$").match(QString::fromStdString(text)).hasMatch();
}

struct Box {
  std::string words;  // title and text, as a cell of the page has them
  std::string buttons;
  bool operator<(const Box& other) const { return words < other.words; }
};

/// All boxes that stand in the scenarios' transcripts, each once.
std::set<Box> BoxesOfScenarios() {
  std::set<Box> boxes;
  const QRegularExpression form(
      R"re(box (?:without title|"(.*?)"), [a-z ]+, (OK|OK Cancel|Yes No)(?:, Enter \w+, Esc \w+)?: "(.*?)"(?: -> \w+)?$)re",
      QRegularExpression::MultilineOption);
  const QString transcripts = QString::fromStdString(AllOf("tests", ".txt"));
  for (auto found = form.globalMatch(transcripts); found.hasNext();) {
    const auto box = found.next();
    const QString words = box.captured(1) + " " + box.captured(3).replace("\\x0A", " ");
    boxes.insert({words.simplified().toStdString(), box.captured(2).toStdString()});
  }
  // Boxes that the scenarios themselves put up.
  boxes.erase({"something else", ""});
  boxes.erase({"over the terminal", ""});
  boxes.erase({"What now?", ""});
  // Those of a computer without a browser, and of a program that is broken.
  boxes.insert({"No program of this computer opens https://www.velmardrives.example/.", "OK"});
  boxes.insert({"Internal error: The window has no design.", "OK"});
  boxes.insert({"Run-time error '53': File not found", "OK"});
  return boxes;
}

Rows RowsOfMessages() {
  Rows all;
  for (const char* table : {"port", "transfer", "alarm", "firmware", "files", "errors"})
    for (const auto& row : TableRows("messages.html", table)) all.push_back(row);
  return all;
}

TEST(HelpMessages, EveryBoxOfTheScenariosIsExplained) {
  const Rows rows = RowsOfMessages();
  std::set<std::string> used;
  const std::set<Box> boxes = BoxesOfScenarios();
  EXPECT_GT(boxes.size(), 40U) << "the transcripts were not read";
  for (const Box& box : boxes) {
    const std::vector<std::string>* best = nullptr;
    for (const auto& row : rows)
      if (Fits(box.words, row[0]) && (best == nullptr || row[0].size() > best->at(0).size())) best = &row;
    if (best == nullptr) {
      ADD_FAILURE() << "not explained: " << box.words;
      continue;
    }
    used.insert(best->at(0));
    std::istringstream buttons(box.buttons == "OK" ? "" : box.buttons);
    for (std::string button; buttons >> button;)
      EXPECT_NE(best->at(2).find(button), std::string::npos) << button << " of " << box.words;
  }
  for (const auto& row : rows) EXPECT_TRUE(used.contains(row[0])) << "no such box: " << row[0];
}

/// What stands between quotes in the boxes of a source; literals side by side are one.
std::vector<std::string> LiteralsOfBoxes(const std::string& source) {
  static const QRegularExpression box(R"(\.text\s*\+?=([^;]*);)");
  static const QRegularExpression joint(R"("\s*\n\s*")");
  static const QRegularExpression literal(R"re("((?:[^"\\]|\\.)+)")re");
  std::vector<std::string> literals;
  const QString code = QString::fromStdString(source);
  for (auto found = box.globalMatch(code); found.hasNext();) {
    const QString joined = found.next().captured(1).replace(joint, "");
    for (auto part = literal.globalMatch(joined); part.hasNext();)
      literals.push_back(
          part.next().captured(1).replace("\\n", " ").replace("\\\"", "\"").simplified().toStdString());
  }
  return literals;
}

TEST(HelpMessages, EveryBoxOfTheSourcesIsExplained) {
  std::string page;
  for (const auto& row : RowsOfMessages()) page += row[0] + "\n";
  std::size_t literals = 0;
  for (const char* folder : {"adapters", "apps/configurator", "config_file", "core", "dialogs", "help",
                             "image", "link", "motor", "platform", "reports", "tools"})
    for (const std::string& text : LiteralsOfBoxes(AllOf(folder, ".cpp"))) {
      EXPECT_NE(page.find(text), std::string::npos) << folder << ": " << text;
      ++literals;
    }
  EXPECT_GT(literals, 50U) << "the sources were not read";
}

TEST(HelpMessages, WordsOfTheSystemAreThoseOfThePort) {
  const std::string source =
      QString::fromStdString(AllOf("adapters/qt/serial", ".cpp")).replace("\\\"", "\"").toStdString();
  for (const auto& row : TableRows("messages.html", "causes")) {
    std::string pattern = row[0];
    for (std::size_t end; !pattern.empty(); pattern.erase(0, end == std::string::npos ? end : end + 3)) {
      end = pattern.find("…");
      const std::string piece = Simplified(pattern.substr(0, end));
      EXPECT_NE(source.find(piece), std::string::npos) << piece;
    }
  }
}

}  // namespace
}  // namespace kavr6
