// Every page of the help: there, whole, tied to the others, and spelled right.
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QUrl>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "help/help_pages.h"
#include "tests/help_pages/page.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

std::string Decoded(const std::string& address) {
  return QUrl::fromPercentEncoding(QByteArray::fromStdString(address)).toStdString();
}
bool LeadsOutside(const std::string& link) { return link.find("://") != std::string::npos; }

/// Page and place of a link as it stands on `page`.
std::pair<std::string, std::string> TargetOf(const std::string& page, const std::string& link) {
  const std::string to = Decoded(link.substr(0, link.find('#')));
  const std::size_t at = link.find('#');
  return {to.empty() ? page : to, at == std::string::npos ? std::string() : link.substr(at + 1)};
}

/// Why a link leads nowhere, or "".
std::string FaultOf(const std::string& page, const std::string& link) {
  const auto [to, place] = TargetOf(page, link);
  if (std::ranges::count(PageNames(), to) == 0) return "there is no page " + to;
  const Texts places = Attributes(to, "a", "name");
  return place.empty() || std::ranges::count(places, place) == 1 ? "" : to + " has no place " + place;
}

TEST(HelpPages, AreThereForEveryButtonHotSpotMenuAndKey) {
  EXPECT_EQ(FaultOf("", "velocity.html#Advanced"), "velocity.html has no place Advanced");
  for (const HelpCaller& caller : kHelpCallers) EXPECT_EQ(FaultOf("", std::string(caller.page)), "");
  for (const std::string_view page : kOverviewPages) EXPECT_EQ(FaultOf("", std::string(page)), "");
  for (const HelpKeyPage& key : kHelpKeyPages) EXPECT_EQ(FaultOf("", std::string(key.page)), "");
}

TEST(HelpPages, AreDrawnByTheViewerAndNamedAsTheirHeading) {
  const Names drawn{"html", "head", "meta", "title", "link",  "body", "h1", "h2",  "h3",
                    "p",    "ol",   "ul",   "li",    "table", "tr",   "th", "td",  "b",
                    "i",    "code", "pre",  "a",     "img",   "br",   "hr", "div", "span"};
  for (const std::string& name : PageNames()) {
    for (const QDomElement& element : Elements(name, "*"))
      EXPECT_TRUE(drawn.contains(element.tagName().toStdString()))
          << name << " line " << element.lineNumber();
    // The viewer takes no style sheet whose type is not told.
    EXPECT_EQ(Attributes(name, "link", "href"), Texts{"help.css"}) << name;
    EXPECT_EQ(Attributes(name, "link", "type"), Texts{"text/css"}) << name;
    const auto titles = Elements(name, "title");
    const auto headings = Elements(name, "h1");
    ASSERT_TRUE(titles.size() == 1 && !headings.empty()) << name;
    EXPECT_NE(TextOf(titles[0]), "") << name;
    EXPECT_EQ(TextOf(titles[0]), TextOf(headings[0])) << name;
  }
}

TEST(HelpPages, LinksAndPicturesLeadSomewhere) {
  for (const std::string& name : PageNames()) {
    for (const std::string& link : Attributes(name, "a", "href"))
      EXPECT_EQ(LeadsOutside(link) ? "" : FaultOf(name, link), "") << name;
    for (const QDomElement& picture : Elements(name, "img")) {
      const std::string file = Decoded(picture.attribute("src").toStdString());
      EXPECT_TRUE(fs::is_regular_file(fs::path(KAVR6_HELP) / file)) << name << ": " << file;
      EXPECT_FALSE(picture.attribute("alt").isEmpty()) << name << ": no words for " << file;
    }
  }
}

TEST(HelpPages, CanAllBeReachedFromTheIndex) {
  Names reached;
  Texts open{"index.html"};
  while (!open.empty()) {
    const std::string name = open.back();
    open.pop_back();
    if (std::ranges::count(PageNames(), name) == 0 || !reached.insert(name).second) continue;
    for (const std::string& link : Attributes(name, "a", "href"))
      if (!LeadsOutside(link)) open.push_back(TargetOf(name, link).first);
  }
  for (const std::string& name : PageNames()) EXPECT_TRUE(reached.contains(name)) << name;
}

TEST(HelpPages, PicturesAreAllShownSomewhere) {
  Names shown;
  for (const std::string& name : PageNames())
    for (const std::string& picture : Attributes(name, "img", "src")) shown.insert(Decoded(picture));
  for (const auto& entry : fs::recursive_directory_iterator(KAVR6_HELP)) {
    const std::string file = fs::relative(entry.path(), KAVR6_HELP);
    EXPECT_TRUE(entry.path().extension() != ".svg" || shown.contains(file)) << file;
  }
}

/// What a person reads, but for code; in short lines, since the speller breaks long ones.
std::string WordsIn(const QDomNode& node) {
  if (node.isText()) return node.nodeValue().toStdString();
  const QDomElement element = node.toElement();
  if (element.tagName() == "code" || element.tagName() == "pre") return "\n";
  std::string words = "\n" + element.attribute("alt").toStdString() + "\n";
  for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
    words += WordsIn(child);
  return words + "\n";
}

/// The words that neither the speller nor our own list knows.
Texts Misspelled(const std::string& words) {
  const QTemporaryDir folder;
  const std::string text = folder.path().toStdString() + "/words.txt";
  // Names with digits are no words.
  std::ofstream(text)
      << QString::fromStdString(words).replace(QRegularExpression(R"(\w*\d\w*)"), " ").toStdString();
  const std::string command = "hunspell -l -i utf-8 -d en_US -p '" KAVR6_SOURCE
                              "/tests/help_pages/words.txt' '" +
                              text + "' | sort -u";
  const std::unique_ptr<FILE, int (*)(FILE*)> speller(popen(command.c_str(), "r"), pclose);
  std::string told;
  for (int c = std::fgetc(speller.get()); c != EOF; c = std::fgetc(speller.get()))
    told += static_cast<char>(c);
  std::istringstream lines(told);
  Texts misspelled;
  for (std::string word; std::getline(lines, word);) misspelled.push_back(word);
  return misspelled;
}

TEST(HelpPages, AreSpelledRight) {
  EXPECT_EQ(Misspelled("The drvie turns the motor"), Texts{"drvie"}) << "no speller";
  std::map<std::string, std::string> words;
  std::string all;
  for (const std::string& name : PageNames()) all += words[name] = WordsIn(Elements(name, "html").at(0));
  for (const std::string& word : Misspelled(all)) {
    std::string pages;
    for (const auto& [name, text] : words)
      if (text.find(word) != std::string::npos) pages += " " + name;
    ADD_FAILURE() << word << " in" << pages;
  }
}

}  // namespace
}  // namespace kavr6
