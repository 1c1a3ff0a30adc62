// The facts that the build has filled into the pages.
#include <QTemporaryDir>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "tests/help_pages/page.h"

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

TEST(HelpFacts, StandInThePages) {
  const std::tuple<const char*, const char*, std::size_t, Texts> facts[] = {
      {"ConfigSoftware_Motor.html", "limits-motor", 0, {"Running Current", "amps", "0.5", "6"}},
      {"velocity.html", "limits-velocity", 4, {"Speed", "rev/sec at +10V", "-100", "100"}},
      {"VTLdialog.html", "limits-vtl", 2, {"Step Smoothing Filter", "Hz", "1", "2500"}},
      {"ErrorCodes.html", "alarms", 7, {"7", "overcurrent", "motor short", "over current", "red", "yes"}},
      {"ErrorCodes.html", "alarms", 14, {"14", "", "", "reserved", "", "yes"}},
      {"text_language.html", "commands", 42, {"SK", "stop & kill buffer"}},
      {"text_language.html", "servo", 13, {"ISX", "input status, extended I/O"}},
      {"codes.html", "RScodes", 4, {"W", "waiting for input"}},
      {"report.html", "words", 9, {"Enable: Open to enable", "Enable motor when Enable input is closed."}}};
  for (const auto& [page, table, row, words] : facts) {
    Texts cells = TableRows(page, table).at(row);
    cells.resize(words.size());  // prose follows
    EXPECT_EQ(cells, words);
  }
}

/// Whether the pages are written if one more source says this.
bool Written(const std::string& page, const std::string& content) {
  const QTemporaryDir temporary;
  const std::string folder = temporary.path().toStdString();
  fs::copy(KAVR6_SOURCE "/resources/help", folder + "/in");
  std::ofstream(folder + "/in/" + page) << content;
  return std::system((KAVR6_HELP_WRITER " " + folder + "/in " + folder + "/out").c_str()) == 0;
}

TEST(HelpFacts, NoneIsLeftOut) {
  EXPECT_TRUE(Written("more.html", "<?rows models?>"));
  EXPECT_FALSE(Written("regen.html", "")) << "the fields of a dialog";
  EXPECT_FALSE(Written("more.html", "<?cells models KAVR6-Zu?>")) << "rows of a table";
  EXPECT_FALSE(Written("more.html", "<?rows colors?>")) << "an unknown table";
  const std::string units =
      "<?cells inertia-units oz in sec2?><?cells inertia-units g cm2?><?cells inertia-units kg cm2?>";
  EXPECT_TRUE(Written("more.html", units + "<?cells inertia-units kg m2?>"));
  EXPECT_FALSE(Written("more.html", units + "<?text inertia-units g cm2?><?cells inertia-units kg m2?>"))
      << "a row twice";
}

TEST(HelpFacts, FillTheWidthOfTheirTables) {
  for (const std::string& page : PageNames())
    for (const QDomElement& row : Elements(page, "tr")) {
      const auto widthOf = [](const QDomElement& cells) {
        int width = 0;
        for (QDomElement cell = cells.firstChildElement(); !cell.isNull(); cell = cell.nextSiblingElement())
          width += cell.attribute("colspan", "1").toInt();
        return width;
      };
      EXPECT_EQ(widthOf(row), widthOf(row.parentNode().firstChildElement("tr"))) << page << TextOf(row);
    }
}

}  // namespace
}  // namespace kavr6
