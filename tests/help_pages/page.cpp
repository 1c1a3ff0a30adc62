#include "tests/help_pages/page.h"

#include <QDomDocument>
#include <QFile>
#include <filesystem>
#include <map>

#include <gtest/gtest.h>

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

std::map<std::string, QDomDocument> ReadAll() {
  std::map<std::string, QDomDocument> pages;
  for (const auto& entry : fs::directory_iterator(KAVR6_HELP)) {
    if (entry.path().extension() != ".html") continue;
    QFile file(entry.path());
    QString fault;
    int line = 0;
    if (!file.open(QFile::ReadOnly) || !pages[entry.path().filename()].setContent(&file, &fault, &line))
      ADD_FAILURE() << entry.path() << " line " << line << ": " << fault.toStdString();
  }
  return pages;
}

const std::map<std::string, QDomDocument>& Pages() {
  static const std::map<std::string, QDomDocument> pages = ReadAll();
  return pages;
}

std::vector<QDomElement> ListOf(const QDomNodeList& nodes) {
  std::vector<QDomElement> elements;
  elements.reserve(static_cast<std::size_t>(nodes.size()));
  for (int i = 0; i < nodes.size(); ++i) elements.push_back(nodes.at(i).toElement());
  return elements;
}

}  // namespace

const Texts& PageNames() {
  static const Texts names = [] {
    Texts all;
    for (const auto& [name, page] : Pages()) all.push_back(name);
    return all;
  }();
  return names;
}

std::vector<QDomElement> Elements(const std::string& page, const char* name) {
  const auto found = Pages().find(page);
  if (found != Pages().end()) return ListOf(found->second.elementsByTagName(name));
  ADD_FAILURE() << "there is no page " << page;
  return {};
}

Texts Attributes(const std::string& page, const char* element, const char* attribute) {
  Texts values;
  for (const QDomElement& one : Elements(page, element))
    if (one.hasAttribute(attribute)) values.push_back(one.attribute(attribute).toStdString());
  return values;
}

std::string TextOf(const QDomElement& element) { return element.text().simplified().toStdString(); }

Rows TableRows(const std::string& page, const std::string& table) {
  Rows rows;
  for (const QDomElement& one : Elements(page, "table"))
    if (one.attribute("id").toStdString() == table)
      for (const QDomElement& row : ListOf(one.elementsByTagName("tr"))) {
        Texts cells;
        for (const QDomElement& cell : ListOf(row.elementsByTagName("td"))) cells.push_back(TextOf(cell));
        if (!cells.empty()) rows.push_back(cells);
      }
  EXPECT_FALSE(rows.empty()) << page << " has no table " << table;
  return rows;
}

}  // namespace kavr6
