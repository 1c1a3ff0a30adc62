// Pairs of records that differ in settings which are known, because the test has changed them.
#include "comparison/comparison.h"

#include <map>
#include <set>

#include <gtest/gtest.h>

#include "config_file/settings_file.h"
#include "core/io_modes.h"
#include "motor/motor_table.h"
#include "motor/small_catalogue.h"
#include "tests/support/dice.h"

namespace kavr6 {
namespace {

using Names = std::set<std::string>;

Names Differing(const ComparedSide& left, const ComparedSide& right) {
  const Comparison comparison = Compare(left, right);
  Names names;
  for (const ComparedSetting& setting : comparison.settings) {
    if (setting.likeness != Likeness::Differs) continue;
    EXPECT_NE(setting.left, setting.right) << setting.name;
    EXPECT_TRUE(names.insert(setting.section + ": " + setting.name).second) << setting.name;
  }
  EXPECT_EQ(comparison.differing, static_cast<int>(names.size()));
  return names;
}

const Names kInNoFile{"SpareLong", "TuneWord1", "TuneWord2", "TuneWord3", "TuneWord4", "TuneWord5"};

/// One place where a value can be changed.
struct Place {
  std::string field;
  std::function<void(HeldSettings&, Dice&)> change;
};

/// Within what a file leaves as it is.
void ThrowForFile(const std::string& name, Settings& record, const SettingsField& field, Dice& dice) {
  const Settings before = record;
  do {
    std::visit([&](auto member) { dice.Throw(record.*member); }, field);
    if (name == "NoiseFilter") record.NoiseFilter = dice.Roll(100, 15000);
    if (name == "StepFilterFreq") record.StepFilterFreq = dice.Roll(1, 9999);
  } while (record == before);
}

std::vector<Place> AllPlaces() {
  std::vector<Place> places;
  for (const NamedField& named : SettingsFields())
    places.push_back({std::string(named.name), [&named](HeldSettings& held, Dice& dice) {
                        ThrowForFile(std::string(named.name), held.settings, named.member, dice);
                      }});
  constexpr std::size_t kOfMotor = 13;  // they are the first
  for (const NamedField& named : SettingsFields().first(kOfMotor))
    places.push_back({"standard " + std::string(named.name), [&named](HeldSettings& held, Dice& dice) {
                        ThrowForFile(std::string(named.name), held.standard, named.member, dice);
                      }});
  places.push_back({"model", [](HeldSettings& held, Dice&) { held.model = held.model == 5 ? 0 : 5; }});
  places.push_back({"port", [](HeldSettings& held, Dice&) { held.port = held.port == 7 ? -1 : 7; }});
  return places;
}

ComparedSide RandomSide(Dice& dice) {
  ComparedSide side;
  for (const Place& place : AllPlaces()) place.change(side.held, dice);
  return side;
}

ComparedSide InFile(const ComparedSide& side, const std::string& version = "1.0") {
  const HeldSettings& held = side.held;
  return SideOfFile(WriteSettingsFile({.version = version, .model = held.model, .port = held.port},
                                      held.settings, held.standard),
                    Settings());
}

/// Under which name the change of each place shows: alone, and no other place under the same.
std::map<std::string, std::string> NamesOfPlaces() {
  Dice dice;
  std::map<std::string, std::string> names;
  Names found;
  for (const Place& place : AllPlaces()) {
    const ComparedSide left = RandomSide(dice);
    ComparedSide right = left;
    place.change(right.held, dice);
    const Names differing = Differing(left, right);
    EXPECT_EQ(differing.size(), 1U) << place.field;
    EXPECT_TRUE(!differing.empty() && found.insert(*differing.begin()).second) << place.field;
    names[place.field] = differing.empty() ? "" : *differing.begin();
  }
  return names;
}

/// Of those that share their words: in a table of all rows they could stand for each other.
TEST(Comparison, CallsEachFlagByItsOwnName) {
  const std::map<std::string, bool Settings::*> flags{
      {"Motor: Waveform smoothing", &Settings::SmoothingOn},
      {"Motor: Electronic damping", &Settings::DampingOn},
      {"Motion: X1 is run/stop", &Settings::RunStop},
      {"Motion: X5 changes the speed", &Settings::TwoSpeeds},
      {"Motion: Speed follows the analog input", &Settings::AnalogVelocity},
      {"Analog input: Type flag", &Settings::AnalogTypeFlag},
      {"Encoder: Stall detection", &Settings::StallDetect},
      {"Encoder: Stall prevention", &Settings::StallPrevent},
      {"Encoder: Fault after a stall", &Settings::StallFaultOn}};
  for (const auto& [name, flag] : flags) {
    ComparedSide changed;
    changed.held.settings.*flag = true;
    EXPECT_EQ(Differing({}, changed), Names{name});
  }
}

TEST(Comparison, FindsExactlyWhatWasChangedInAHundredPairs) {
  const std::vector<Place> places = AllPlaces();
  std::map<std::string, std::string> names = NamesOfPlaces();
  Dice dice;
  Names touched;
  for (int pair = 0; pair < 100; ++pair) {
    SCOPED_TRACE(pair);
    const ComparedSide left = RandomSide(dice);
    ComparedSide right = left;
    Names expected;
    for (const Place& place : places) {
      if (dice.Roll(0, 9) != 0) continue;
      place.change(right.held, dice);
      touched.insert(place.field);
      expected.insert(names.at(place.field));
    }
    EXPECT_EQ(Differing(left, right), expected);
    for (const std::string& field : kInNoFile) expected.erase(names.at(field));
    EXPECT_EQ(Differing(left, InFile(right)), expected);
    EXPECT_EQ(Differing(InFile(left), InFile(right)), expected);
  }
  EXPECT_EQ(touched.size(), places.size());
}

/// Values that come back from an image as they went, for a drive in velocity mode with an external resistor.
struct Range {
  double least;
  double most;
  double step;
};
const std::map<std::string, Range> kRanges{
    {"RatedCurrent", {1, 9, .01}},  {"RatedTorque", {50, 900, 1}},    {"RotorInertia", {50, 900, 1}},
    {"MaxVoltsPct", {10, 100, .1}}, {"HarmonicGain", {0, 9999, 1}},   {"HarmonicPhase", {-99, 99, 1}},
    {"TorqueUnit", {0, 4, 1}},      {"InertiaUnit", {0, 3, 1}},       {"LeadAngleDeg", {0, 360, 1}},
    {"LeadAngleRps", {0, 250, 1}},  {"CmdScale", {0, 99, .25}},       {"AnalogGain", {-9999, 9999, 1}},
    {"PulseType", {0, 2, 1}},       {"MaxTorquePct", {10, 100, 1}},   {"EncoderCounts", {200, 60000, 1}},
    {"StallFaultMs", {1, 9999, 1}}, {"StepsPerRev", {200, 50000, 1}}, {"RegenOhms", {41, 99, 1}},
    {"RegenWatts", {10, 999, 1}},   {"RegenSecs", {0, 9, .25}},       {"AnalogFilter", {50, 500, 1}},
    {"IdleDelay", {0, 9, .001}},    {"StepFilterFreq", {1, 5000, 1}}, {"IdlePercent", {0, 90, 1}},
    {"RunCurrent", {1, 9, 1}},      {"LoadInertiaUnit", {0, 3, 1}},   {"InertiaRatio", {0, 99, 3}},
    {"MaxAccel", {10, 9000, 10}},   {"Speed", {0, 99, .25}},          {"Speed2", {0, 99, .25}},
    {"Accel", {10, 9000, 10}},      {"Decel", {10, 9000, 10}},        {"CmdOffset", {-999, 999, 1}},
    {"AnalogRange", {0, 3, 1}},     {"AnalogDeadband", {0, 255, 1}},  {"BrakeDelay", {0, 9999, 1}},
    {"BrakeEngage", {0, 9999, 1}},  {"EnableMode", {1, 3, 1}},        {"AlarmResetMode", {1, 3, 1}},
    {"AlarmOutMode", {1, 3, 1}},    {"BrakeMode", {1, 3, 1}},         {"MotionOutMode", {1, 8, 1}},
    {"LimitMode", {1, 3, 1}},       {"TxDelay", {0, 9999, 1}},        {"ProtocolFlags", {1, 7, 1}},
    {"BitRateCode", {1, 5, 1}},     {"TuneWord1", {0, 9999, 1}},      {"TuneWord2", {0, 9999, 1}},
    {"TuneWord3", {0, 9999, 1}},    {"TuneWord4", {0, 9999, 1}},      {"TuneWord5", {0, 9999, 1}}};
const Names kStayOnTheScreen{"PowerUpMode", "StallSpeed", "StallAccel", "SpareLong",
                             "MaxSpeed",    "MotorR",     "MotorL",     "LoadInertia"};
/// Held still: they decide what the rest of an image means. NoiseFilter goes by its own steps.
const Names kDeciding{"OpMode", "ControlMode", "RegenExternal", "InertiaIsRatio", "NoiseFilter"};

void ThrowForImage(const NamedField& named, Settings& record, Dice& dice) {
  const Settings before = record;
  const auto range = kRanges.find(std::string(named.name));
  const auto assign = [&](auto member) {
    using Value = std::decay_t<decltype(record.*member)>;
    if constexpr (std::is_same_v<Value, std::string>) {
      record.*member = std::string(1, static_cast<char>(dice.Roll('!', '~')));
    } else if (range != kRanges.end()) {
      const auto& [least, most, step] = range->second;
      record.*member =
          static_cast<Value>(least + step * dice.Roll(0, static_cast<int>((most - least) / step)));
    } else {
      dice.Throw(record.*member);
    }
  };
  do std::visit(assign, named.member);
  while (record == before);
}

Settings VelocitySettings() {
  Settings settings;
  InitVars(settings);
  settings.ControlMode = kControlVelocity;
  settings.RegenExternal = true;
  settings.RegenOhms = 50;
  settings.RunCurrent = 2;
  return settings;
}

MotorRow StandardMotor() {
  MemoryTable catalogue = CatalogueTable();
  catalogue.MoveFirst();
  return MotorTable(catalogue).Row();
}

ComparedSide InDrive(const Settings& settings) {
  return SideOfDrive(*ImageOf(SideOfScreen(settings, StandardMotor(), 0, 0)));
}

/// The ratio travels as a whole number of a frequency: two that make the same image are the same to a drive.
bool RatioShows(const ComparedSide& left, const Settings& right) {
  Settings other = right;
  other.InertiaRatio = left.held.settings.InertiaRatio;
  const auto image = [](const Settings& settings) {
    return *ImageOf(SideOfScreen(settings, StandardMotor(), 0, 0));
  };
  return image(other) != image(right);
}

TEST(Comparison, FindsExactlyWhatADriveHoldsOtherwise) {
  const std::map<std::string, std::string> names = NamesOfPlaces();
  Dice dice;
  Names touched;
  for (int pair = 0; pair < 100; ++pair) {
    SCOPED_TRACE(pair);
    Settings left = VelocitySettings();
    for (const NamedField& named : SettingsFields())
      if (kRanges.contains(std::string(named.name))) ThrowForImage(named, left, dice);
    Settings right = left;
    Names expected;
    for (const NamedField& named : SettingsFields()) {
      const std::string name(named.name);
      if (dice.Roll(0, 7) != 0 || kDeciding.contains(name)) continue;
      ThrowForImage(named, right, dice);
      touched.insert(name);
      if (!kStayOnTheScreen.contains(name) && name != "InertiaRatio") expected.insert(names.at(name));
    }
    const ComparedSide screen = SideOfScreen(left, StandardMotor(), 1, 1);
    for (const ComparedSide& side : {screen, InDrive(left)}) {
      Names all = expected;
      if (RatioShows(side, right)) all.insert(names.at("InertiaRatio"));
      EXPECT_EQ(Differing(side, InDrive(right)), all);
    }
    EXPECT_EQ(Differing(screen, InDrive(left)), Names());
  }
  EXPECT_EQ(touched.size() + kDeciding.size(), SettingsFields().size());
}

TEST(Comparison, ShowsEveryByteThatDiffers) {
  const ComparedSide screen = SideOfScreen(VelocitySettings(), StandardMotor(), 0, 0);
  const ParameterImage image = *ImageOf(screen);
  for (std::size_t at = 0; at + 2 < image.size(); ++at)
    for (const int bit : {0, 1, 6, 7}) {
      ParameterImage other = image;
      other[at] ^= static_cast<Byte>(1 << bit);
      StoreChecksum(other);
      EXPECT_GT(Compare(screen, SideOfDrive(other)).differing, 0) << at << ", bit " << bit;
      EXPECT_GT(Compare(SideOfDrive(other), SideOfDrive(image)).differing, 0) << at << ", bit " << bit;
    }
}

/// The rows of that name as "left | right | words".
std::string RowNamed(const std::string& name, const ComparedSide& left, const ComparedSide& right) {
  const Comparison comparison = Compare(left, right);
  std::string rows;
  for (const ComparedSetting& setting : comparison.settings)
    if (setting.section + ": " + setting.name == name)
      rows += setting.left + " | " + setting.right + " | " + LikenessWords(setting, comparison.store);
  return rows;
}

TEST(Comparison, TellsWhatIsStoredOtherwiseOrNotAtAll) {
  Settings hub = VelocitySettings();
  hub.OpMode = kOpHub;
  hub.EnableMode = kEnableOpen;
  hub.Speed = 10.001;
  hub.RegenExternal = false;
  const ComparedSide screen = SideOfScreen(hub, StandardMotor(), 0, 0);
  const auto row = [&](const std::string& name) { return RowNamed(name, screen, InDrive(hub)); };
  EXPECT_EQ(Differing(screen, InDrive(hub)), Names());
  EXPECT_EQ(row("Inputs and outputs: Enable"), "Open to enable | not used | same, as stored in the drive");
  EXPECT_EQ(row("Motion: Speed"), "10.001 rev/sec | 10 rev/sec | same, as stored in the drive");
  EXPECT_EQ(row("Regen resistor: Resistance"), "50 ohms | 40 ohms | same, as stored in the drive");
  EXPECT_EQ(row("Motion: Max speed"), "50 rev/sec | \u2014 | not stored in the drive");
  EXPECT_EQ(row("Motor: Load inertia, value"), "0 kg m2 | \u2014 | not stored in the drive");
  EXPECT_EQ(row("Motor: Load inertia, ratio"), "1 x rotor inertia | 1 x rotor inertia | same");

  ParameterImage odd = *ImageOf(screen);
  odd[75] += 5;  // the gain that this program never sends
  odd[50] = 1;   // what a hub never holds
  ParameterImage coarse = *ImageOf(screen);
  coarse[58] = 5;  // a word that this program would not make of the hertz that it stands for
  coarse[59] = 0;
  EXPECT_EQ(Differing(screen, SideOfDrive(coarse)), Names{"Analog input: Filter"});
  EXPECT_EQ(RowNamed("Other data: Byte 75", screen, SideOfDrive(odd)), "224 | 229 | differs");
  EXPECT_EQ(RowNamed("Inputs and outputs: Enable", screen, SideOfDrive(odd)),
            "not used | Open to enable | differs");
}

TEST(Comparison, KeepsApartWhatReadsAlike) {
  Settings one = VelocitySettings();
  Settings other = one;
  other.Accel = 100.00000000000001;
  other.Decel = 100.0001;
  other.TorqueUnit = 1;
  const auto row = [&](const std::string& name) {
    return RowNamed(name, SideOfScreen(one, {}, 0, 0), SideOfScreen(other, {}, 0, 0));
  };
  EXPECT_EQ(row("Motion: Acceleration"), "100 rev/s/s | 100.00000000000001 rev/s/s | differs");
  EXPECT_EQ(row("Motion: Deceleration"), "100 rev/s/s | 100.0001 rev/s/s | differs");
  EXPECT_EQ(row("Custom motor: Holding torque"), "118 oz in | 118 lb in | same number");
  EXPECT_EQ(row("Custom motor: Unit of torque"), "oz in | lb in | differs");
}

TEST(Comparison, WordsTheControlMode) {
  const auto row = [](Long one, Long other) {
    ComparedSide left;
    ComparedSide right;
    left.held.settings.ControlMode = left.held.settings.PowerUpMode = one;
    right.held.settings.ControlMode = right.held.settings.PowerUpMode = other;
    return RowNamed("Motion: Control mode", left, right) + "; " +
           RowNamed("Host commands: Control mode at power-up", left, right);
  };
  EXPECT_EQ(row(11, 15), "Velocity | Fixed Velocity | differs; Analog Velocity | Fixed Velocity | differs");
  EXPECT_EQ(row(2, 3), "Analog torque | code 3 | differs; code 2 | code 3 | differs");
}

TEST(Comparison, FindsNothingBetweenTheScreenAndTheFileOfIt) {
  Settings settings = VelocitySettings();
  settings.NoiseFilter = 50;                // a reader mends it
  settings.Speed = 10.0000000000000017764;  // more digits than a file has
  const ComparedSide screen = SideOfScreen(settings, StandardMotor(), 0, 0);
  const ComparedSide file = InFile(screen);
  EXPECT_EQ(Differing(screen, file), Names());
  EXPECT_EQ(RowNamed("Inputs and outputs: Input noise filter", screen, file),
            "50 kHz | 2000 kHz | same, as stored in the file");
}

TEST(Comparison, LeavesOutWhatAnOldFileDoesNotHold) {
  Dice dice;
  const ComparedSide screen = RandomSide(dice);
  ComparedSide old = InFile(screen);
  const VersionTriple version{0, 0, 22};
  old.inFile = [&](const SettingRow& row) {
    const auto* const field = std::get_if<SettingsField>(&row.member);
    return field == nullptr || FileHolds(version, *field);
  };
  old.held.settings.LeadAngleDeg += 1;
  EXPECT_EQ(Differing(screen, old), Names());
  EXPECT_TRUE(
      RowNamed("Custom motor: Max lead angle", screen, old).ends_with(" | \u2014 | not stored in the file"));
  EXPECT_FALSE(RowNamed("Host commands: Control mode at power-up", screen, old).ends_with("file"));
}

}  // namespace
}  // namespace kavr6
