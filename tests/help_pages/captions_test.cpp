// What a page prints in bold is what the program has written on its buttons.
#include <QFile>
#include <QXmlStreamReader>
#include <cctype>
#include <filesystem>
#include <regex>

#include <gtest/gtest.h>

#include "tests/help_pages/page.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

/// Texts of all designs, without the marks of their mnemonics.
std::set<std::string> Captions() {
  std::set<std::string> captions;
  for (const auto& entry : fs::directory_iterator(KAVR6_FORMS)) {
    QFile file(entry.path());
    if (entry.path().extension() != ".ui" || !file.open(QFile::ReadOnly)) continue;
    for (QXmlStreamReader xml(&file); !xml.atEnd(); xml.readNext())
      if (xml.isStartElement() && xml.name() == QLatin1String("string"))
        captions.insert(std::regex_replace(xml.readElementText().toStdString(), std::regex("&(&?)"), "$1"));
  }
  // Set by the program, or of the system.
  for (const char* caption : {"Codes", "Save", "Done", "Cancel", "OK", "Yes", "No"}) captions.insert(caption);
  return captions;
}

/// A warning or a stress, not a caption.
bool IsStress(const std::string& words) {
  return words.ends_with('.') || words.ends_with(':') ||
         std::islower(static_cast<unsigned char>(words[0])) != 0;
}

TEST(HelpCaptions, BoldWordsAreThoseOfTheProgram) {
  const std::set<std::string> captions = Captions();
  EXPECT_GT(captions.size(), 200U) << "the designs were not read";
  for (const std::string& name : PageNames())
    for (const std::string& words : HelpPage(name).bold) {
      if (IsStress(words)) continue;
      std::string rest = words;
      for (std::size_t at; (at = rest.find(" > ")) != std::string::npos; rest.erase(0, at + 3))
        EXPECT_TRUE(captions.contains(rest.substr(0, at))) << name << ": " << words;
      EXPECT_TRUE(captions.contains(rest)) << name << ": " << words;
    }
}

}  // namespace
}  // namespace kavr6
