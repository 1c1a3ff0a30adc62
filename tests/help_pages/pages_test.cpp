// Every page of the help: there, whole, tied to the others, and spelled right.
#include <QRegularExpression>
#include <QUrl>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include <gtest/gtest.h>

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
  return place.empty() || HelpPage(to).fragments.contains(place) ? "" : to + " has no place " + place;
}

TEST(HelpPages, AreThereForEveryButtonHotSpotMenuAndKey) {
  const char* asked[] = {"index.html",
                         "contact us.html",
                         "website.html",
                         "ConnectingACPower.html",
                         "ConnectingEncoder.html",
                         "Connecting_IO_to_InOut1.html",
                         "Connecting_IO_to_InOut2.html",
                         "ErrorCodes.html",
                         "Hardware_RS485.html",
                         "Overview_Bx.html",
                         "Overview_Wy.html",
                         "Overview_Zu.html",
                         "ConfigSoftware_Motor.html",
                         "ConfigSoftware_Motor.html#DefineMotor",
                         "Connecting_the_Motor.html",
                         "ConfigSoftware_InputsOutputs.html",
                         "DigitalPosn.html",
                         "velocity.html",
                         "velocity.html#AdvancedAnalog",
                         "regen.html",
                         "VTLdialog.html",
                         "motion.html",
                         "smoothing.html",
                         "status_monitor.html",
                         "alarms.html",
                         "self_test.html",
                         "terminal.html",
                         "text_language.html",
                         "codes.html",
                         "messages.html",
                         "configuration_files.html",
                         "report.html"};
  for (const char* page : asked) EXPECT_EQ(FaultOf("", page), "");
}

TEST(HelpPages, AreWellFormedAndNamedAsTheirHeading) {
  // What the viewer can draw.
  const Names drawn{"html", "head", "meta", "title", "link",  "body", "h1", "h2",  "h3",
                    "p",    "ol",   "ul",   "li",    "table", "tr",   "th", "td",  "b",
                    "i",    "code", "pre",  "a",     "img",   "br",   "hr", "div", "span"};
  for (const std::string& name : PageNames()) {
    const Page& page = HelpPage(name);
    EXPECT_EQ(page.fault, "") << name;
    EXPECT_TRUE(page.styled) << name;
    EXPECT_NE(page.title, "") << name;
    EXPECT_EQ(page.title, page.heading) << name;
    for (const std::string& element : page.elements)
      EXPECT_TRUE(drawn.contains(element)) << name << " has <" << element << ">";
  }
}

TEST(HelpPages, LinksAndPicturesLeadSomewhere) {
  for (const std::string& name : PageNames()) {
    const Page& page = HelpPage(name);
    for (const std::string& link : page.links)
      EXPECT_EQ(LeadsOutside(link) ? "" : FaultOf(name, link), "") << name;
    for (const std::string& picture : page.pictures)
      EXPECT_TRUE(fs::exists(fs::path(KAVR6_HELP) / Decoded(picture))) << name << ": " << picture;
    EXPECT_TRUE(page.untold.empty()) << name << " has a picture without words: " << page.untold.front();
  }
}

TEST(HelpPages, CanAllBeReachedFromTheIndex) {
  Names reached;
  std::vector<std::string> open{"index.html"};
  while (!open.empty()) {
    const std::string name = open.back();
    open.pop_back();
    if (std::ranges::count(PageNames(), name) == 0 || !reached.insert(name).second) continue;
    for (const std::string& link : HelpPage(name).links)
      if (!LeadsOutside(link)) open.push_back(TargetOf(name, link).first);
  }
  for (const std::string& name : PageNames()) EXPECT_TRUE(reached.contains(name)) << name;
}

TEST(HelpPages, PicturesAreAllShownSomewhere) {
  Names shown;
  for (const std::string& name : PageNames())
    for (const std::string& picture : HelpPage(name).pictures) shown.insert(Decoded(picture));
  for (const auto& entry : fs::recursive_directory_iterator(KAVR6_HELP)) {
    const std::string file = fs::relative(entry.path(), KAVR6_HELP);
    EXPECT_TRUE(entry.path().extension() != ".svg" || shown.contains(file)) << file;
  }
}

/// The words that neither the speller nor our own list knows.
std::vector<std::string> Misspelled(const std::string& words) {
  const std::string text = testing::TempDir() + "help_words.txt";
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
  std::vector<std::string> misspelled;
  for (std::string word; std::getline(lines, word);) misspelled.push_back(word);
  return misspelled;
}

TEST(HelpPages, AreSpelledRight) {
  EXPECT_EQ(Misspelled("The drvie turns the motor"), std::vector<std::string>{"drvie"}) << "no speller";
  std::string all;
  for (const std::string& name : PageNames()) all += HelpPage(name).words + "\n";
  for (const std::string& word : Misspelled(all)) {
    std::string pages;
    for (const std::string& name : PageNames())
      if (HelpPage(name).words.find(word) != std::string::npos) pages += " " + name;
    ADD_FAILURE() << word << " in" << pages;
  }
}

}  // namespace
}  // namespace kavr6
