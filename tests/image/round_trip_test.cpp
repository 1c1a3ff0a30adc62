#include <array>
#include <map>
#include <random>

#include "core/numbers.h"
#include "image/image_layout.h"
#include "tests/image/image_fixture.h"

namespace kavr6 {
namespace {

struct Survivor {
  SettingsField field;
  double least, most, halfStep;
};
using Survivors = std::map<std::string, std::vector<Survivor>>;

/// The settings of round_trip.md by what their last column says.
Survivors ReadSurvivors() {
  Survivors survivors;
  for (const Row& row : RowsOf("round_trip.md")) {
    const double steps = std::stod(row[3]);
    survivors[row[4]].push_back(
        {FieldOf(row[0]), std::stod(row[1]), std::stod(row[2]), steps == 0 ? 0.0 : 0.5 / steps});
  }
  return survivors;
}

struct Dice {
  std::mt19937 random{161};
  Long Number(Long least, Long most) { return std::uniform_int_distribution<Long>(least, most)(random); }
  double Real(double least, double most) { return std::uniform_real_distribution<>(least, most)(random); }
  std::string Text(Long most) {
    std::string text(static_cast<std::size_t>(Number(0, most)), ' ');
    for (char& c : text) c = static_cast<char>(Number(0, 3) == 0 ? ' ' : Number(' ', '~'));
    return text;
  }
};

Settings RandomSettings(Dice& dice, const Survivors& survivors) {
  Settings s;
  for (const auto& [when, fields] : survivors)
    for (const auto& [field, least, most, halfStep] : fields) {
      const bool whole = !std::holds_alternative<double Settings::*>(field);
      Set(s, field,
          whole ? dice.Number(static_cast<Long>(least), static_cast<Long>(most)) : dice.Real(least, most));
    }
  s.OpMode = std::array{1, 2, 3, 3, 3, 4, 5, 7}[static_cast<std::size_t>(dice.Number(0, 7))];
  s.ControlMode = std::array{2, 7, 11, 21}[static_cast<std::size_t>(dice.Number(0, 3))];
  s.RS485Addr = CharacterOf(static_cast<Byte>(dice.Number(0, 255)));
  s.MotorName = dice.Text(20);
  return s;
}

MemoryTable RandomRow(Dice& dice, const std::string& name) {
  const auto whole = [&](Long least, Long most) { return Variant(std::int64_t{dice.Number(least, most)}); };
  MemoryTable table;
  table.Add({name, name, dice.Real(0, 655), dice.Real(1, 300), whole(0, 255), dice.Real(10, 20000),
             whole(0, 255), whole(0, 65535), whole(-32768, 32767), whole(0, 273), whole(0, 65535),
             dice.Real(0, 100)});
  table.MoveFirst();
  return table;
}

void ExpectSurvivors(const std::vector<Survivor>& fields, const Settings& sent, const Settings& decoded) {
  for (const Survivor& f : fields)
    EXPECT_NEAR(Get(decoded, f.field), Get(sent, f.field), f.halfStep * (1 + 1e-9)) << NameOf(f.field);
}

void ExpectStandardMotor(const MotorRow& row, const MotorRecord& motor) {
  EXPECT_NEAR(motor.RatedCurrent, *row.Current, 0.0051);  // through a float
  EXPECT_NEAR(motor.RatedTorque, *row.Torque, 1e-4);
  EXPECT_NEAR(motor.MaxVoltsPct, *row.PWMmaxPct, 0.0501);
  EXPECT_EQ(motor.HarmonicPhase, NeededWhole(row.HarmonicPhase));
  EXPECT_EQ(motor.InertiaUnit, NeededWhole(row.InertiaUnit));
}

TEST(RoundTrip, RandomSettingsComeBackButForTheKnownDifferences) {
  Dice dice;
  const Survivors survivors = ReadSurvivors();
  for (int i = 0; i < 10000; ++i) {
    SCOPED_TRACE(i);
    Settings sent = RandomSettings(dice, survivors);
    MemoryTable table = RandomRow(dice, dice.Text(20));
    const MotorRow row = MotorTable(table).Row();
    ParameterImage image{};
    DownloadString(image, sent, row);
    const Settings before = RandomSettings(dice, survivors);
    Settings decoded = before;
    const UploadedMotor uploaded = DecodeImage(image, decoded);
    ExpectSurvivors(survivors.at("always"), sent, decoded);
    ExpectSurvivors(survivors.at("kept"), before, decoded);
    if (sent.OpMode != 4) ExpectSurvivors(survivors.at("hub"), sent, decoded);
    if (sent.RegenExternal) ExpectSurvivors(survivors.at("regen"), sent, decoded);
    EXPECT_EQ(std::tie(decoded.ControlMode, decoded.OpMode), std::tie(sent.ControlMode, sent.OpMode));
    EXPECT_EQ(decoded.RS485Addr, sent.RS485Addr);
    EXPECT_EQ(uploaded.ARfreq, ARfreq(sent, row));
    ExpectStandardMotor(row, uploaded.Motor);

    // What was read is written the same way again, but for the fields that say why not.
    ParameterImage again{};
    DownloadString(again, decoded, row);
    for (const ImageField& field : ImageLayout()) {
      if (!field.why.empty()) continue;
      const auto* bytes = image.data() + field.position;
      EXPECT_TRUE(std::equal(bytes, bytes + field.width, again.data() + field.position)) << field.name;
    }
    ASSERT_FALSE(testing::Test::HasFailure());
  }
}

}  // namespace
}  // namespace kavr6
