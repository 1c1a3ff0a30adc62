#include "config_file/settings_file.h"

#include <array>
#include <fstream>
#include <map>

#include <gtest/gtest.h>

#include "config_file/cnf_layout.h"
#include "platform/runtime_error.h"
#include "tests/support/dice.h"

namespace kavr6 {
namespace {

using S = Settings;
using Fields = std::vector<CnfField>;

/// By line number; the catalogue motor of lines 10 to 13 has the fields of lines 6 to 9.
const std::map<int, Fields> kFields = {
    {3, {&S::Speed, &S::Speed2, &S::Accel, &S::Decel, &S::AnalogVelocity, &S::TwoSpeeds, &S::RunStop}},
    {4, {&S::RunCurrent, &S::IdlePercent, &S::IdleDelay}},
    {5, {&S::CustomMotor}},
    {6,
     {&S::MotorName, &S::RatedCurrent, &S::RatedTorque, &S::TorqueUnit, &S::RotorInertia, &S::InertiaUnit,
      &S::HarmonicGain, &S::HarmonicPhase}},
    {7, {&S::MotorR, &S::MotorL}},
    {8, {&S::LeadAngleRps, &S::LeadAngleDeg}},
    {9, {&S::MaxVoltsPct}},
    {14, {&S::LoadInertia, &S::LoadInertiaUnit, &S::InertiaIsRatio, &S::InertiaRatio}},
    {15, {&S::MaxSpeed, &S::MaxAccel, &S::SmoothingOn, &S::DampingOn}},
    {16, {&S::EncoderCW, &S::EncoderSingleEnded, &S::EncoderCounts, &S::MaxTorquePct}},
    {17,
     {&S::StallDetect, &S::StallPrevent, &S::StallFaultOn, &S::StallFaultMs, &S::StallSpeed, &S::StallAccel}},
    {18, {&S::BrakeDelay, &S::BrakeEngage}},
    {19, {&S::ControlMode, &S::OpMode, &S::PulseType, &S::DirIsCW, &S::StepsPerRev, &S::StepFilterFreq}},
    {20, {}},
    {21,
     {&S::EnableMode, &S::AlarmResetMode, &S::LimitMode, &S::AlarmOutMode, &S::MotionOutMode, &S::BrakeMode,
      &S::NoiseFilter}},
    {22, {&S::AnalogRange, &S::AnalogTypeFlag, &S::AnalogDeadband}},
    {23, {&S::AnalogFilter, &S::AnalogGain, &S::CmdScale, &S::CmdOffset}},
    {24, {&S::RegenOhms, &S::RegenWatts, &S::RegenSecs, &S::RegenExternal}},
    {25, {&S::RS485Addr, &S::TxDelay, &S::BitRateCode, &S::ProtocolFlags, &S::PowerUpMode}}};

/// Lines of a file; line 1 is the first.
struct Lines : std::vector<std::string> {
  using std::vector<std::string>::vector;
  explicit Lines(const std::string& text) {
    for (std::size_t at = 0; at < text.size(); at += back().size() + 2)
      push_back(text.substr(at, text.find("\r\n", at) - at));
  }
  std::string Joined(const std::string& end = "\r\n") const {
    std::string text;
    for (const std::string& line : *this) text += line + end;
    return text;
  }
};

/// A file in which every value tells its place, and what it holds. Booleans are told apart in three passes.
struct Sample {
  struct Value {
    std::size_t start, end;
    CnfField field;
  };
  Lines lines{"1.0", "4,\"; drive model\""};
  Settings settings;
  Settings row;
  std::vector<Value> values;  // those of `settings`

  explicit Sample(int pass = 0) {
    for (int line = 3; line <= 25; ++line) {
      const bool ofRow = line >= 10 && line <= 13;
      const std::size_t start = lines.Joined().size();
      std::string text = line == 20 ? "6" : "";
      for (const CnfField& field : kFields.at(ofRow ? line - 4 : line)) {
        if (!text.empty()) text += ',';
        const std::size_t at = text.size();
        const int place = static_cast<int>(std::count(text.begin(), text.end(), ',')) + 1;
        std::visit(
            [&](auto m) { text += Give((ofRow ? row : settings).*m, line * 100 + place, place >> pass & 1); },
            field);
        if (!ofRow) values.push_back({start + at, start + text.size(), field});
      }
      lines.push_back(text);
    }
  }
  static std::string Give(bool& value, int, int bit) { return (value = bit != 0) ? "#TRUE#" : "#FALSE#"; }
  static std::string Give(std::string& value, int number, int) {
    return '"' + (value = std::to_string(number)) + '"';
  }
  template <class T>
  static std::string Give(T& value, int number, int) {
    value = static_cast<T>(number);
    return std::to_string(number);
  }
  std::string With(std::size_t line, const std::string& text) const {
    Lines other = lines;
    other[line - 1] = text;
    return other.Joined();
  }
};

struct Reading {
  Settings settings;
  MotorRecord row;
  int model = -9, port = -9, error = 0;
  std::string text;

  explicit Reading(std::string_view content, const Settings& before = {}) : settings(before) {
    try {
      row = ReadSettingsFile(content, settings,
                             {[this](Integer i) { model = i; }, [this](Integer i) { port = i; }});
    } catch (const RuntimeError& failure) {
      error = failure.Number();
      text = failure.what();
    }
  }
  void ExpectIs(const Sample& sample, const std::string& file) const {
    EXPECT_EQ(text, "") << file;
    EXPECT_EQ(settings, sample.settings) << file;
    EXPECT_EQ(row, static_cast<const MotorRecord&>(sample.row)) << file;
    EXPECT_EQ(std::pair(model, port), std::pair(4, 6));
  }
};

TEST(SettingsFile, StartValuesAreWrittenAsTheKeptFile) {
  Settings s;
  InitVars(s);
  const MotorRecord row{1.7, 60, 1e-5, 94.1, 12.3456789012345, 10, "KM17-1S-170", 0, -12, 0, 1, 120, 25};
  std::ifstream kept(KAVR6_CNF_FILES "/start_values", std::ios::binary);
  EXPECT_EQ(WriteSettingsFile({"1.0", 1, 0}, s, row), std::string(std::istreambuf_iterator<char>(kept), {}));
}

TEST(SettingsFile, EveryValueHasItsPlace) {
  for (int pass = 0; pass < 3; ++pass) {
    const Sample sample(pass);
    Reading(sample.lines.Joined()).ExpectIs(sample, "as it is");
    Lines written(WriteSettingsFile({"1.0", 4, 6}, sample.settings, sample.row));
    ASSERT_EQ(written.size(), 25U);
    std::copy_n(sample.lines.begin() + 9, 4, written.begin() + 9);  // in print form
    EXPECT_EQ(written, sample.lines);
  }
}

TEST(SettingsFile, VersionsAreTakenApart) {
  const std::pair<const char*, VersionTriple> good[] = {
      {"3", {3, 0, 0}},        {"2.1", {2, 1, 0}},       {"0.0.19", {0, 0, 19}}, {"1.2.38", {1, 2, 38}},
      {"1.9.95", {1, 10, 95}}, {"1.12.50", {1, 12, 50}}, {"10.2.7", {10, 3, 7}}, {"1..2", {1, 0, 2}}};
  for (const auto& [text, version] : good) EXPECT_EQ(ParseVersion(text), version) << text;
  for (const char* text : {"", "1.", "x.0.1", "0.0.40000", "1.0.2b"})
    EXPECT_THROW(ParseVersion(text), RuntimeError) << text;
}

TEST(SettingsFile, OldFilesLeaveWhatTheyDoNotHold) {
  struct {
    const char* version;
    bool powerUp, leadAngles, volts;
  } const cases[] = {{"0.0.19", false, false, false}, {"0.0.20", true, false, false},
                     {"0.0.22", true, false, false},  {"0.0.23", true, true, false},
                     {"0.0.37", true, true, false},   {"0.0.38", true, true, true},
                     {"0.1.0", true, true, true}};
  for (const auto& c : cases) {
    Sample sample;
    sample.lines[0] = c.version;
    if (!c.powerUp) sample.lines[24].erase(sample.lines[24].rfind(','));
    for (const int line : {13, 12, 9, 8})
      if (!(line % 4 == 0 ? c.leadAngles : c.volts)) sample.lines.erase(sample.lines.begin() + line - 1);
    Settings& s = sample.settings;
    Settings before;
    before.PowerUpMode = before.TuneWord3 = s.TuneWord3 = -1;
    before.LeadAngleDeg = before.LeadAngleRps = before.SpareLong = s.SpareLong = -2;
    if (!c.powerUp) s.PowerUpMode = -1;
    if (!c.leadAngles) s.LeadAngleDeg = s.LeadAngleRps = -2;
    if (!c.leadAngles) sample.row.LeadAngleDeg = sample.row.LeadAngleRps = 0;
    if (!c.volts) s.MaxVoltsPct = sample.row.MaxVoltsPct = 100;
    Reading(sample.lines.Joined(), before).ExpectIs(sample, c.version);
  }
}

TEST(SettingsFile, RandomRecordsComeBack) {
  Dice dice;
  for (int i = 0; i < 10000; ++i) {
    Settings written = dice.Record();
    written.NoiseFilter = dice.Roll(100, 15000);
    written.StepFilterFreq = dice.Roll(1, 20000);
    MotorRecord row = dice.Record();
    if (dice.Roll(0, 3) == 0) row.MotorR = row.MotorL = 0;
    const std::string file = WriteSettingsFile({"1.0", -1, 32767}, written, row);
    const Reading reading(file);
    ASSERT_EQ(reading.text, "") << file;
    ASSERT_EQ(reading.settings, written) << file;
    ASSERT_EQ(reading.row, row) << file;
  }
}

TEST(SettingsFile, ACutFileKeepsWhatStandsBeforeTheCut) {
  const Sample sample;
  const std::string file = sample.lines.Joined();
  const Settings before = Dice().Record();
  for (std::size_t cut = 0; cut <= file.size(); ++cut) {
    const Reading reading(file.substr(0, cut), before);
    ASSERT_EQ(reading.error == 0, cut > sample.values.back().start) << cut;
    for (const auto& [start, end, field] : sample.values) {
      // Within a value the cut can leave another one.
      if (cut > start && cut < end) continue;
      const Settings& expected = cut >= end ? sample.settings : before;
      std::visit([&](auto m) { ASSERT_EQ(reading.settings.*m, expected.*m) << cut << ' ' << start; }, field);
    }
  }
}

TEST(SettingsFile, BadFilesSayWhereAndWhy) {
  using Row = std::tuple<std::size_t, const char*, int, std::string>;
  const Row cases[] = {{1, "", 13, ", value 1: the value is missing"},
                       {1, "\xFF\xFE", 13, ": there is no version number"},
                       {2, "0", 13, ", value 2: the value is missing"},
                       {2, "40000,\"\"", 6, ", value 1: the number is too large"},
                       {3, "1,,3,4,#TRUE#,#TRUE#,#TRUE#", 13, ", value 2: the value is missing"},
                       {3, "1,1e999", 6, ", value 2: the number is too large"},
                       {3, "1,1.5x", 13, ", value 2: a number is expected"},
                       {4, "1,2147483647.5", 6, ", value 2: the number is too large"},
                       {5, "1", 13, ", value 1: #TRUE# or #FALSE# is expected"},
                       {6, "motor,2", 13, ", value 1: a text in quotes is expected"},
                       {6, "\"", 13, ", value 1: the closing quote is missing"},
                       {6, "\"a\"b\",2", 13, ", value 1: a comma is expected behind the closing quote"},
                       {17, "#TRUE#,#TRUE#,#TRUE#,1,-1e39,1", 6, ", value 5: the number is too large"}};
  for (const auto& [line, content, error, words] : cases) {
    const Reading reading(Sample().With(line, content));
    EXPECT_EQ(reading.text, "Line " + std::to_string(line) + words);
    EXPECT_EQ(reading.error, error) << words;
    EXPECT_EQ(std::pair(reading.model, reading.port), std::pair(line > 2 ? 4 : -9, -9)) << words;
  }
  EXPECT_EQ(Reading("\xEF\xBB\xBF").text, "The file is empty");
  EXPECT_EQ(Reading("1.0\r\n").text, "The file ends after line 1");
  EXPECT_EQ(Reading("1.0\r\n4,").text, "Line 2, value 2: the file ends here");
}

TEST(SettingsFile, OtherWritersAreReadAndTextsKeepTheirCharacters) {
  const Sample sample;
  for (const std::string& file :
       {sample.lines.Joined("\n"), sample.lines.Joined("\r"), "\xEF\xBB\xBF" + sample.lines.Joined(" \t\r\n"),
        sample.lines.Joined(",\"new\",#9#\r\n") + "\r\nmore\r\n", sample.With(1, " 1.0 beta"),
        sample.With(2, "4 model"), sample.With(3, "  301 3.02E2 , +303\t304.0,#True# #False#  ,#true#"),
        sample.With(4, "401,402.5,403"), sample.With(10, " \"1001\" 1002 1003,1004   1005 ,1006\t1007 1008")})
    Reading(file).ExpectIs(sample, file);
  // One byte a character, and what is only in part UTF-8 or no character: overlong, half of a pair ...
  const std::pair<const char*, const char*> texts[] = {
      {"M\xFCller", "M\u00FCller"}, {"\xC3\xBC\xE4", "\u00C3\u00BC\u00E4"},
      {"\xC0\x80", "\u00C0\u0080"}, {"\xED\xA0\x80", "\u00ED\u00A0\u0080"},
      {"\xE2\x82", "\u00E2\u0082"}, {"\xF4\x90\x80\x80", "\u00F4\u0090\u0080\u0080"}};
  for (const auto& [bytes, read] : texts)
    EXPECT_EQ(Reading(sample.With(25, '"' + std::string(bytes) + "\",0,1,1,21")).settings.RS485Addr, read);
  Settings s;
  s.MotorName = "5\" \r\n\"x\"";
  EXPECT_EQ(Reading(WriteSettingsFile({"1.0", 0, 0}, s, {})).settings.MotorName, "5'   'x'");
}

TEST(SettingsFile, ValuesOutOfTheirLimitsAreMendedAsTheyAreRead) {
  const std::array<Long, 4> cases[] = {
      {99, 2000, 0, 1}, {100, 100, 1, 1}, {15000, 15000, -5, -5}, {15001, 15000, 7, 7}};
  for (const auto& [noise, noiseRead, step, stepRead] : cases) {
    Sample sample;
    sample.lines[18] = "7,3,0,#TRUE#,1," + std::to_string(step);
    const Settings read = Reading(sample.With(21, "3,3,1,3,3,3," + std::to_string(noise))).settings;
    EXPECT_EQ(std::pair(read.NoiseFilter, read.StepFilterFreq), std::pair(noiseRead, stepRead));
    EXPECT_EQ(Reading(sample.With(20, "x")).settings.StepFilterFreq, stepRead);
  }
}

}  // namespace
}  // namespace kavr6
