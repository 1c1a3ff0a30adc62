#include "config_file/settings_file.h"

#include <algorithm>
#include <fstream>
#include <iomanip>
#include <map>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

#include "core/settings_fields.h"
#include "platform/runtime_error.h"
#include "tests/support/dice.h"

namespace kavr6 {
namespace {

/// A row of the page on configuration files.
struct PageRow {
  int line, since;
  std::string name, form;
};

/// The lines of the page, from the one that begins with `first` up to the next that does not fit.
template <class Fits>
std::vector<std::string> PageSection(const std::string& first, const Fits& fits) {
  std::vector<std::string> section;
  std::ifstream page(KAVR6_SOURCE "/docs/cnf.md");
  for (std::string line; std::getline(page, line) && (section.empty() || fits(line));)
    if (!section.empty() || line.starts_with(first)) section.push_back(line);
  return section;
}

const std::vector<PageRow>& PageRows() {
  static const std::vector<PageRow> rows = [] {
    const std::regex cells(R"(\| (\d+) \| (?:all|(\d+)) \| (Row: )?(?:drive )?(\w+) \| ([a-z, ]+) \|.*)");
    std::vector<PageRow> found;
    for (const std::string& line :
         PageSection("| 2 |", [](const std::string& row) { return row[0] == '|'; })) {
      std::smatch cell;
      if (!std::regex_match(line, cell, cells)) throw std::runtime_error(line);
      found.push_back({std::stoi(cell[1]), cell[2].matched ? std::stoi(cell[2]) : 0,
                       (cell[3].matched ? "row." : "") + cell[4].str(), cell[5]});
    }
    found.push_back({});  // behind the last line
    return found;
  }();
  return rows;
}

constexpr int kNewest = 38;

std::string Replaced(std::string text, const std::string& part, const std::string& by, std::size_t from = 0) {
  for (std::size_t at = from; (at = text.find(part, at)) != std::string::npos; at += by.size())
    text.replace(at, part.size(), by);
  return text;
}

struct Value {
  std::string name, text;
  std::size_t start, end;
};

struct File {
  std::string text;
  std::vector<Value> values;

  /// The lines of newest.cnf, in which each number tells its place, as the page gives them to this build.
  explicit File(int build = kNewest, const std::string& version = "1.0") : text(version) {
    static const std::regex kValue("\"[^\"]*\"|[^ ,]+");
    std::ifstream newest(KAVR6_SOURCE "/tests/config_file/newest.cnf");
    auto row = PageRows().begin();
    std::string line;
    std::getline(newest, line);
    for (int number = 2; std::getline(newest, line); ++number) {
      const std::string whole = line;
      const std::size_t begin = text.size() + 2;
      for (std::sregex_iterator at(whole.begin(), whole.end(), kValue); row->line == number; ++row, ++at) {
        const auto start = static_cast<std::size_t>(at->position());
        if (row->since <= build)
          values.push_back({row->name, at->str(), begin + start, begin + start + at->str().size()});
        else
          line.resize(std::min(line.size(), start == 0 ? 0 : start - 1));
      }
      if (!line.empty()) text += "\r\n" + line;
    }
    text += "\r\n";
    // The model is selected when all of its line has been read.
    values[0].end = text.find("\r\n", values[0].end);
  }
  /// The same with another line; the version's is number 1.
  std::string With(int line, const std::string& content) const {
    std::size_t at = 0;
    while (--line > 0) at = text.find("\r\n", at) + 2;
    return text.substr(0, at) + content + text.substr(text.find("\r\n", at));
  }
};

template <class T>
std::string Shown(const T& value) {
  if constexpr (std::is_same_v<T, bool>) return value ? "#TRUE#" : "#FALSE#";
  if constexpr (std::is_same_v<T, std::string>) return '"' + value + '"';
  std::ostringstream text;
  text << std::setprecision(std::is_same_v<T, float> ? 7 : 15);
  if constexpr (!std::is_same_v<T, std::string>) text << value;
  return text.str();
}

using Values = std::map<std::string, std::string>;

struct Reading {
  Settings settings;
  MotorRecord row;
  int model = -9, port = -9, error = 0;
  std::string text;

  explicit Reading(std::string_view content, const Settings& before = {}, Integer refused = -999)
      : settings(before) {
    const auto take = [refused](int& taken) {
      return [refused, &taken](Integer index) {
        if (index == refused) throw RuntimeError(380, "no such row");
        taken = index;
      };
    };
    try {
      row = ReadSettingsFile(content, settings, {take(model), take(port)});
    } catch (const RuntimeError& failure) {
      error = failure.Number();
      text = failure.what();
    }
  }
  /// All that there is after it.
  Values Everything() const {
    Values values{{"model", Shown(model)}, {"port", Shown(port)}};
    Settings motor;
    static_cast<MotorRecord&>(motor) = row;
    for (const NamedField& field : SettingsFields().first(13)) Show(values, motor, field, "row.");
    for (const NamedField& field : SettingsFields()) Show(values, settings, field, "");
    return values;
  }
  static void Show(Values& values, const Settings& record, const NamedField& field, std::string prefix) {
    std::visit([&](auto m) { values[prefix.append(field.name)] = Shown(record.*m); }, field.member);
  }
  /// The file that the program writes then.
  std::string Written() const { return WriteSettingsFile({"1.0", 4, 20}, settings, row); }
};

/// No field has a value that a file leaves it with.
Settings AnyRecord() {
  Settings record;
  Dice dice;
  for (const NamedField& field : SettingsFields())
    std::visit([&](auto m) { dice.Throw(record.*m); }, field.member);
  return record;
}

TEST(CnfPage, TellsTheFormOfEachField) {
  constexpr const char* kForms[] = {"number", "single", "long", "integer", "switch", "text"};
  Values forms{{"model", "integer"}, {"port", "integer"}};
  for (const NamedField& field : SettingsFields()) {
    const std::string form = forms[std::string(field.name)] = kForms[field.member.index()];
    forms["row." + std::string(field.name)] = form == "text" ? form : form + ", print";
  }
  for (const PageRow& row : PageRows()) EXPECT_EQ(row.form, forms[row.name]) << row.name;
}

TEST(CnfPage, ShowsTheFileOfTheStartValues) {
  std::string shown;
  for (const std::string& line : PageSection("1.0", [](const std::string& text) { return text != "```"; }))
    shown += line + "\r\n";
  Settings s;
  InitVars(s);
  const MotorRecord row{1.5, 62.3, 57, 79, 2.7, 4.8, "KM17-2P-150", 750, 4, 0, 1, 120, 32};
  EXPECT_EQ(WriteSettingsFile({"1.0", 1, 0}, s, row), shown);
}

/// Files of every version; the page on them tells which lines each has, newest.cnf holds the values.
TEST(SettingsFile, EveryVersionHasItsLines) {
  const std::pair<const char*, int> cases[] = {
      {"0.0.19", 19}, {"0.0.20", 20}, {"0.0.22", 22},   {"0.0.23", 23},   {"0.0.37", 37},    {"0.0.38", 38},
      {"0", 0},       {"2.1", 99},    {"0.1", kNewest}, {"1.0", kNewest}, {"1.0.0", kNewest}};
  for (const auto& [version, build] : cases) {
    const File file(build, version);
    Values expected = Reading("", AnyRecord()).Everything();
    expected["row.LeadAngleRps"] = expected["row.LeadAngleDeg"] = "0";
    expected["MaxVoltsPct"] = expected["row.MaxVoltsPct"] = "100";
    for (const Value& value : file.values) expected[value.name] = value.text;
    const Reading reading(file.text, AnyRecord());
    EXPECT_EQ(reading.Everything(), expected) << version << reading.text;
  }
}

TEST(SettingsFile, EverySwitchHasItsPlace) {
  const File file;
  Values expected = Reading(file.text).Everything();
  for (const Value& value : file.values) {
    if (value.text != "#FALSE#") continue;
    std::string text = file.text;
    const Reading reading(text.replace(value.start, 7, "#TRUE#"));
    expected[value.name] = "#TRUE#";
    EXPECT_EQ(reading.Everything(), expected);
    expected[value.name] = "#FALSE#";
    EXPECT_EQ(reading.Written(), text);
  }
}

TEST(SettingsFile, VersionsAreTakenApart) {
  const std::pair<const char*, VersionTriple> good[] = {
      {"3", {3, 0, 0}},        {"2.1", {2, 1, 0}},       {"0.0.19", {0, 0, 19}}, {"1.2.38", {1, 2, 38}},
      {"1.9.95", {1, 10, 95}}, {"1.12.50", {1, 12, 50}}, {"10.2.7", {10, 3, 7}}, {"1..2", {1, 0, 2}}};
  for (const auto& [text, version] : good) EXPECT_EQ(ParseVersion(text), version) << text;
}

TEST(SettingsFile, ACutFileKeepsWhatStandsBeforeTheCut) {
  const File file;
  int line = 1;
  for (std::size_t cut = 0; cut <= file.text.size(); ++cut) {
    const Reading reading(file.text.substr(0, cut), AnyRecord());
    const bool whole = cut > file.values.back().start;
    ASSERT_EQ(reading.text.empty(), whole) << cut;
    const bool atLine = !whole && cut > 0 && file.text[cut - 1] == '\n';
    ASSERT_EQ(reading.text, atLine ? "The file ends after line " + std::to_string(line++) : reading.text);
    Values expected = Reading("", AnyRecord()).Everything();
    Values read = reading.Everything();
    for (const Value& value : file.values) {
      if (value.end <= cut && (whole || !value.name.starts_with("row."))) expected[value.name] = value.text;
      // Within a number the cut leaves another one.
      if (value.start < cut && cut < value.end) read[value.name] = expected[value.name];
    }
    ASSERT_EQ(read, expected) << cut;
  }
}

TEST(SettingsFile, BadFilesSayWhereAndWhy) {
  std::ifstream cases(KAVR6_SOURCE "/tests/config_file/bad_lines.txt");
  int count = 0;
  for (std::string row; std::getline(cases, row);) {
    const std::regex cells("(\\d+) (\\d+) \\|(.*)\\| (.*)");
    std::smatch cell;
    if (!std::regex_match(row, cell, cells)) continue;
    const Reading reading(File().With(std::stoi(cell[1]), Replaced(cell[3], "~", "\r\n")));
    EXPECT_EQ(std::to_string(reading.error) + ": " + reading.text, cell[2].str() + ": " + cell[4].str());
    ++count;
  }
  EXPECT_EQ(count, 27);
  EXPECT_EQ(Reading("\xEF\xBB\xBF").text, "The file is empty");
  const std::string broken = Replaced(File().text, "4,\"", "4\r\n\"");
  EXPECT_EQ(Reading(broken, {}, 4).text, "Line 2: no such row");
  EXPECT_EQ(Reading(broken, {}, 20).text, "Line 21: no such row");
}

TEST(SettingsFile, LinesMayEndAndBreakAsTheyLike) {
  const std::string file = File().text;
  const std::size_t second = file.find('4');
  const std::string same[] = {
      Replaced(file, "\r\n", "\n"), Replaced(file, "\r\n", "\r"), Replaced(file, "\r\n", " \t\r\n\r\n"),
      "\xEF\xBB\xBF" + file, file.substr(0, file.size() - 2),
      file.substr(0, file.size() - 2) + ",\"new\",#9#\r\nmore\r\n",
      // every value on a line of its own, with its comma or without it; all of them on one line
      Replaced(file, ",", ",\r\n"), Replaced(file, ",", "\n"), Replaced(file, ",", " "),
      Replaced(file, ",", "\t, "), Replaced(file, "\r\n", ",", second), Replaced(file, "\r\n", " ", second),
      Replaced(file, "#FALSE#", "#False#"), File().With(1, " 1.0\t"), File().With(2, "4 model"),
      File().With(2, "4,; drive model"),
      File().With(3, "  +3.1 .32E1 , 33e-1\t3.4,#FALSE# #false#  ,#FALSE#"), File().With(4, "4.1,402.5,4.3")};
  const Values expected = Reading(file).Everything();
  for (const std::string& other : same) {
    const Reading reading(other);
    EXPECT_EQ(reading.Everything(), expected) << reading.text << '\n' << other;
  }
}

TEST(SettingsFile, TextsKeepTheirCharacters) {
  // What stands between the quotes of a file, and the text that it is.
  constexpr const char* kFirstAndLast =
      "\u0080\u07FF\u0800\u0FFF\u1000\uCFFF\uD000\uD7FF\uE000\uFFFF\U00010000\U00040000\U000FFFFF\U0010FFFF";
  const std::pair<const char*, const char*> own[] = {
      {"", ""},           {"\"\"", "\""},     {"\"\"\"\"", "\"\""},          {"\"\"a", "\"a"},
      {"a\"\"", "a\""},   {"a\"\"b", "a\"b"}, {"a\"\",b", "a\",b"},          {"\"\",", "\","},
      {"\"\" x", "\" x"}, {"','", "','"},     {kFirstAndLast, kFirstAndLast}};
  // From programs that did not double a quote or wrote one byte a character; then overlong ones, half of a
  // pair, one cut, and one behind the last character of all.
  const std::pair<const char*, const char*> foreign[] = {{"\"", "\""},
                                                         {"M\xFCller", "M\u00FCller"},
                                                         {"\xC3\xBC\xE4", "\u00C3\u00BC\u00E4"},
                                                         {"M\x80", "M\u0080"},
                                                         {"\xC0\x80", "\u00C0\u0080"},
                                                         {"\xE0\x80\x80", "\u00E0\u0080\u0080"},
                                                         {"\xF0\x80\x80\x80", "\u00F0\u0080\u0080\u0080"},
                                                         {"\xED\xA0\x80", "\u00ED\u00A0\u0080"},
                                                         {"\xE2\x82x", "\u00E2\u0082x"},
                                                         {"\xE2\x82", "\u00E2\u0082"},
                                                         {"\xF4\x90\x80\x80", "\u00F4\u0090\u0080\u0080"}};
  const Reading plain(File().text);
  const auto check = [&](const char* inFile, const char* text, bool isOwn) {
    const std::string file = Replaced(Replaced(File().text, "6.1", inFile), "25.1", inFile);
    Values expected = plain.Everything();
    expected["MotorName"] = expected["RS485Addr"] = Shown(std::string(text));
    const Reading reading(file);
    EXPECT_EQ(reading.Everything(), expected) << reading.text;
    EXPECT_EQ(WriteSettingsFile({"1.0", 4, 20}, reading.settings, plain.row) == file, isOwn) << inFile;
    expected["row.MotorName"] = expected["MotorName"];
    EXPECT_EQ(Reading(Replaced(file, "10.1", inFile)).Everything(), expected) << inFile;
  };
  for (const auto& [inFile, text] : own) check(inFile, text, true);
  for (const auto& [inFile, text] : foreign) check(inFile, text, false);
}

TEST(SettingsFile, WritesLineEndsAsBlanksZonesOfCharactersAndAllDigits) {
  Reading plain(File().text);
  plain.row.MotorName = "M\u00FC\"";  // six columns, as "10.1" has
  plain.settings.RS485Addr = "5\r\n'";
  plain.settings.RunCurrent = static_cast<double>(3.2F);
  plain.settings.IdleDelay = 1e-5;
  EXPECT_EQ(plain.Written(),
            Replaced(Replaced(File().With(4, "3.20000004768372,402,1E-05"), "\"10.1\"", "\"M\u00FC\"\"\""),
                     "25.1", "5  '"));
}

}  // namespace
}  // namespace kavr6
