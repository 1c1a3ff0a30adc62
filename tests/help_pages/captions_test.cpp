// What a page names in italics or in cells for captions is written on the program, in these words.
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <cctype>
#include <filesystem>
#include <set>

#include <gtest/gtest.h>

#include "core/alarms.h"
#include "core/motion_codes.h"
#include "tests/help_pages/page.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

/// As the screen shows it, without the mark of a mnemonic.
std::string Shown(const std::string& caption) {
  return QString::fromStdString(caption).replace(QRegularExpression("&(&?)"), "\\1").toStdString();
}

/// Of all designs, and what the program writes into lists and windows by itself.
std::set<std::string> Captions() {
  std::set<std::string> captions;
  for (const auto& entry : fs::directory_iterator(KAVR6_FORMS)) {
    QFile file(entry.path());
    if (entry.path().extension() != ".ui" || !file.open(QFile::ReadOnly)) continue;
    for (QXmlStreamReader xml(&file); !xml.atEnd(); xml.readNext())
      if (xml.isStartElement() && xml.name() == QLatin1String("string"))
        captions.insert(Shown(xml.readElementText().toStdString()));
  }
  for (const Alarm& alarm : kAlarms)
    for (const std::string_view words : {alarm.monitored, alarm.fault, alarm.history})
      captions.emplace(words);
  for (const OperatingMode& mode : kOperatingModes) captions.emplace(mode.name);
  for (const PulseKind& kind : kPulseKinds)
    for (const std::string_view words : {kind.name, kind.listed}) captions.insert(Shown(std::string(words)));
  for (const char* words : {"Velocity Mode", "Wy Configuration", "Load Inertia Not Set", "closed", "open",
                            "not used", "Done", "Yes", "No"})
    captions.insert(words);
  return captions;
}

/// A caption or the first words of one.
bool IsCaption(const std::set<std::string>& captions, const std::string& words) {
  for (auto at = captions.lower_bound(words); at != captions.end() && at->starts_with(words); ++at)
    if (at->size() == words.size() || std::isalnum(static_cast<unsigned char>((*at)[words.size()])) == 0)
      return true;
  return false;
}

TEST(HelpCaptions, ItalicsAndCellsForCaptionsAreWordsOfTheProgram) {
  const std::set<std::string> captions = Captions();
  EXPECT_GT(captions.size(), 200U) << "the designs were not read";
  EXPECT_FALSE(IsCaption(captions, "Downloa"));
  for (const std::string& name : PageNames()) {
    for (const QDomElement& cell : Elements(name, "td"))
      EXPECT_TRUE(cell.attribute("class") != "caption" || captions.contains(TextOf(cell)))
          << name << ": " << TextOf(cell);
    for (const QDomElement& italics : Elements(name, "i")) {
      std::string rest = TextOf(italics);  // menu > command
      for (std::size_t at; (at = rest.find(" > ")) != std::string::npos; rest.erase(0, at + 3))
        EXPECT_TRUE(captions.contains(rest.substr(0, at))) << name << ": " << rest;
      EXPECT_TRUE(IsCaption(captions, rest)) << name << ": " << rest;
    }
  }
}

}  // namespace
}  // namespace kavr6
