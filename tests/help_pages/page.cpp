#include "tests/help_pages/page.h"

#include <QFile>
#include <QXmlStreamReader>
#include <algorithm>
#include <filesystem>
#include <utility>

#include <gtest/gtest.h>

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

/// Walks one page and notes what it has.
class Reader {
 public:
  Reader(const fs::path& path, Page& page) : file_(path), page_(page) {
    if (!file_.open(QFile::ReadOnly)) {
      page_.fault = "cannot be opened";
      return;
    }
    xml_.setDevice(&file_);
    while (!xml_.atEnd()) {
      xml_.readNext();
      if (xml_.isStartElement()) Begin(xml_.name().toString());
      if (xml_.isCharacters()) Say(xml_.text().toString());
      if (xml_.isEndElement()) End(xml_.name().toString());
    }
    if (xml_.hasError())
      page_.fault = xml_.errorString().toStdString() + " in line " + std::to_string(xml_.lineNumber());
  }

 private:
  std::string Attribute(const char* name) const {
    return xml_.attributes().value(QLatin1String(name)).toString().toStdString();
  }
  void Begin(const QString& element) {
    page_.elements.insert(element.toStdString());
    if (element == "a" && xml_.attributes().hasAttribute("href")) page_.links.push_back(Attribute("href"));
    if (element == "a" && xml_.attributes().hasAttribute("name")) Place(Attribute("name"));
    if (element == "link") page_.styled = Attribute("href") == "help.css" && Attribute("type") == "text/css";
    if (element == "img") Picture();
    if (element == "table") table_ = Attribute("id");
    if (element == "tr") row_.clear();
    if (element == "code" || element == "pre") ++code_;
    if (element == "title" || element == "td" || IsHeading(element)) text_.clear();
    if (IsHeading(element)) places_.clear();
    if (element == "i") italic_ = text_.size();
    if (!Inline(element)) page_.words += '\n';
  }
  void Place(const std::string& name) {
    page_.fragments.insert(name);
    places_.push_back(name);
  }
  void Picture() {
    page_.pictures.push_back(Attribute("src"));
    page_.words += '\n' + Attribute("alt") + '\n';
    if (Attribute("alt").empty()) page_.untold.push_back(Attribute("src"));
  }
  void Say(const QString& text) {
    text_ += text;
    if (code_ == 0) page_.words += text.toStdString();
  }
  void End(const QString& element) {
    const std::string said = text_.simplified().toStdString();
    if (element == "title") page_.title = said;
    if (element == "h1" && page_.heading.empty()) page_.heading = said;
    if (element == "td") row_.push_back(said);
    if (element == "i") page_.captions.push_back(text_.mid(italic_).simplified().toStdString());
    if (IsHeading(element))
      for (const std::string& place : std::exchange(places_, {})) page_.headings[place] = said;
    if (element == "tr" && !table_.empty() && !row_.empty()) page_.tables[table_].push_back(row_);
    if (element == "table") table_.clear();
    if (element == "code" || element == "pre") --code_;
    if (!Inline(element)) page_.words += '\n';
  }
  static bool IsHeading(const QString& element) {
    return element == "h1" || element == "h2" || element == "h3";
  }
  static bool Inline(const QString& element) {
    return element == "a" || element == "b" || element == "i" || element == "span" || element == "code";
  }

  QFile file_;
  Page& page_;
  QXmlStreamReader xml_;
  QString text_;  // since the cell or heading began
  qsizetype italic_ = 0;
  std::vector<std::string> places_;  // in the heading that is being read
  std::vector<std::string> row_;
  std::string table_;
  int code_ = 0;
};

std::map<std::string, Page> ReadAll() {
  std::map<std::string, Page> pages;
  for (const auto& entry : fs::directory_iterator(KAVR6_HELP))
    if (entry.path().extension() == ".html") Reader(entry.path(), pages[entry.path().filename()]);
  return pages;
}

const std::map<std::string, Page>& Pages() {
  static const std::map<std::string, Page> pages = ReadAll();
  return pages;
}

}  // namespace

const std::vector<std::string>& PageNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    for (const auto& [name, page] : Pages()) all.push_back(name);
    return all;
  }();
  return names;
}

const Page& HelpPage(const std::string& name) {
  static const Page none;
  const auto found = Pages().find(name);
  if (found != Pages().end()) return found->second;
  ADD_FAILURE() << "there is no page " << name;
  return none;
}

Rows TableRows(const std::string& pageName, const std::string& tableId) {
  const auto& tables = HelpPage(pageName).tables;
  const auto found = tables.find(tableId);
  if (found != tables.end()) return found->second;
  ADD_FAILURE() << pageName << " has no table " << tableId;
  return {};
}

std::string Lines(const Rows& rows) {
  std::string lines;
  for (const auto& row : rows) {
    for (const std::string& cell : row) lines += "| " + cell + ' ';
    lines += "|\n";
  }
  return lines;
}

}  // namespace kavr6
