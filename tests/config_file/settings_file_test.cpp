#include "config_file/settings_file.h"

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

/// A file as the program writes it, from which build on it has the line, and the names of its values. Each
/// number tells its place.
struct Line {
  int since;
  const char *text, *names;
};
constexpr Line kLines[] = {
    {0, "4,\"; drive model\"", "model -"},
    {0, "3.1,3.2,3.3,3.4,#FALSE#,#FALSE#,#FALSE#",
     "Speed Speed2 Accel Decel AnalogVelocity TwoSpeeds RunStop"},
    {0, "4.1,402,4.3", "RunCurrent IdlePercent IdleDelay"},
    {0, "#FALSE#", "CustomMotor"},
    {0, "\"6.1\",6.2,6.3,604,6.5,606,607,-608",
     "MotorName RatedCurrent RatedTorque TorqueUnit RotorInertia InertiaUnit HarmonicGain HarmonicPhase"},
    {0, "7.1,7.2", "MotorR MotorL"},
    {23, "801,802", "LeadAngleRps LeadAngleDeg"},
    {38, "9.1", "MaxVoltsPct"},
    // A zone has 14 columns: the second number fills its own, and the first of the next line takes two.
    {0, "\"10.1\", 10.2   10.300000001  1004         -10.5          1006          1007         -1008 ",
     "row.MotorName row.RatedCurrent row.RatedTorque row.TorqueUnit row.RotorInertia row.InertiaUnit "
     "row.HarmonicGain row.HarmonicPhase"},
    {0, " 11.1234567890123            11.2 ", "row.MotorR row.MotorL"},
    {23, " 1201          1202 ", "row.LeadAngleRps row.LeadAngleDeg"},
    {38, " 13.1 ", "row.MaxVoltsPct"},
    {0, "14.1,1402,#FALSE#,14.4", "LoadInertia LoadInertiaUnit InertiaIsRatio InertiaRatio"},
    {0, "15.1,15.2,#FALSE#,#FALSE#", "MaxSpeed MaxAccel SmoothingOn DampingOn"},
    {0, "#FALSE#,#FALSE#,1603,1604", "EncoderCW EncoderSingleEnded EncoderCounts MaxTorquePct"},
    {0, "#FALSE#,#FALSE#,#FALSE#,1704,17.50001,17.6",
     "StallDetect StallPrevent StallFaultOn StallFaultMs StallSpeed StallAccel"},
    {0, "1801,1802", "BrakeDelay BrakeEngage"},
    {0, "1901,1902,1903,#FALSE#,1905,1906",
     "ControlMode OpMode PulseType DirIsCW StepsPerRev StepFilterFreq"},
    {0, "20", "port"},
    {0, "2101,2102,2103,2104,2105,2106,2107",
     "EnableMode AlarmResetMode LimitMode AlarmOutMode MotionOutMode BrakeMode NoiseFilter"},
    {0, "2201,#FALSE#,2203", "AnalogRange AnalogTypeFlag AnalogDeadband"},
    {0, "23.1,2302,23.3,2304", "AnalogFilter AnalogGain CmdScale CmdOffset"},
    {0, "24.1,24.2,24.3,#FALSE#", "RegenOhms RegenWatts RegenSecs RegenExternal"},
    {0, "\"25.1\",2502,2503,2504", "RS485Addr TxDelay BitRateCode ProtocolFlags"},
    {20, ",2505", "PowerUpMode"}};
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

  explicit File(int build = kNewest, const std::string& version = "1.0") : text(version) {
    for (const Line& line : kLines) {
      if (line.since > build) continue;
      const std::string content = line.text;
      if (content[0] != ',') text += "\r\n";
      std::istringstream names(line.names);
      static const std::regex kValue("\"[^\"]*\"|[^ ,]+");
      for (std::sregex_iterator at(content.begin(), content.end(), kValue), end; at != end; ++at) {
        const std::size_t start = text.size() + static_cast<std::size_t>(at->position());
        values.push_back({"", at->str(), start, start + static_cast<std::size_t>(at->length())});
        names >> values.back().name;
      }
      text += content;
    }
    text += "\r\n";
    // The model is selected when all of its line has been read.
    values[0].end = values[1].end;
    values.erase(values.begin() + 1);
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
  for (const char* text : {"", "1.", "x.0.1", "0.0.40000", "1.0.2b", "1.0 beta", "1.0,1"})
    EXPECT_EQ(Reading(File().With(1, text)).text, "Line 1: there is no version number") << text;
}

TEST(SettingsFile, RandomRecordsComeBack) {
  Dice dice;
  for (int i = 0; i < 3000; ++i) {
    Settings written = dice.Record();
    written.NoiseFilter = dice.Roll(100, 15000);
    written.StepFilterFreq = dice.Roll(1, 20000);
    const MotorRecord row = dice.Record();
    const std::string file = WriteSettingsFile({"1.0", -1, 32767}, written, row);
    const Reading reading(file);
    ASSERT_EQ(reading.settings, written) << reading.text << file;
    ASSERT_EQ(reading.row, row) << file;
  }
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
  const std::tuple<int, const char*, int, std::string> cases[] = {
      {2, ",4", 13, "Line 2, value 1: the value is missing"},
      {2, "40000,\"\"", 6, "Line 2, value 1: the number is too large"},
      {2, "4,\"a\"b\"", 13, "Line 2, value 2: a comma is expected behind the closing quote"},
      {3, "1,,3,4,#TRUE#,#TRUE#,#TRUE#", 13, "Line 3, value 2: the value is missing"},
      {3, "1,1e999", 6, "Line 3, value 2: the number is too large"},
      {3, "1,1.5x", 13, "Line 3, value 2: a number is expected"},
      {3, "1,2,3,4,#TRUE#,#TRUE#", 13, "Line 4, value 1: #TRUE# or #FALSE# is expected"},
      {3, "1,2,3,4,#TRUE#,#TRUE#,#TRUE#,8", 13, "Line 4, value 3: #TRUE# or #FALSE# is expected"},
      {4, "1,2147483647.5", 6, "Line 4, value 2: the number is too large"},
      {5, "1", 13, "Line 5, value 1: #TRUE# or #FALSE# is expected"},
      {6, "motor,2", 13, "Line 6, value 1: a text in quotes is expected"},
      {6, "\"6.1\",a", 13, "Line 6, value 2: a number is expected"},
      {17, "#TRUE#,#TRUE#,#TRUE#,1,-1e39,1", 6, "Line 17, value 5: the number is too large"},
      {25, "\"!\",0,1,1", 62, "Line 25, value 5: the file ends here"},
      {25, "\"!\",0,1,\r\n ", 62, "Line 26, value 1: the file ends here"},
      {25, "\"", 13, "Line 25, value 1: the closing quote is missing"},
      {25, "\"!\r\n\"", 13, "Line 25, value 1: the closing quote is missing"},
      {25, "\"a\"\",0", 13, "Line 25, value 1: the closing quote is missing"},
      {25, "\"\"\"\"\",0", 13, "Line 25, value 1: the closing quote is missing"},
      {25, "\"\"a\",0", 13, "Line 25, value 1: a comma is expected behind the closing quote"}};
  for (const auto& [line, content, error, words] : cases) {
    const Reading reading(File().With(line, content));
    EXPECT_EQ(reading.text, words);
    EXPECT_EQ(reading.error, error) << words;
  }
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
                                                         {"\xC0\x80", "\u00C0\u0080"},
                                                         {"\xE0\x80\x80", "\u00E0\u0080\u0080"},
                                                         {"\xF0\x80\x80\x80", "\u00F0\u0080\u0080\u0080"},
                                                         {"\xED\xA0\x80", "\u00ED\u00A0\u0080"},
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

TEST(SettingsFile, ValuesOutOfTheirLimitsAreMendedAsTheyAreRead) {
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"99", "2000", "0", "1"},
      {"100", "100", "1", "1"},
      {"15000", "15000", "-5", "-5"},
      {"15001", "15000", "7", "7"}};
  for (const auto& [noise, noiseRead, step, stepRead] : cases) {
    std::string file = Replaced(Replaced(File().text, "2107", noise), "1906", step);
    Values expected = Reading(File().text).Everything();
    expected["NoiseFilter"] = noiseRead;
    expected["StepFilterFreq"] = stepRead;
    EXPECT_EQ(Reading(file).Everything(), expected);
    // At once, not at the end.
    const Settings cut = Reading(file.substr(0, file.find("2201"))).settings;
    EXPECT_EQ(Shown(cut.NoiseFilter) + Shown(cut.StepFilterFreq), std::string(noiseRead) + stepRead);
  }
}

}  // namespace
}  // namespace kavr6
