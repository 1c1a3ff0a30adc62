#include <array>
#include <random>

#include "core/numbers.h"
#include "image/image_layout.h"
#include "tests/image/image_fixture.h"

namespace kavr6 {
namespace {

/// What comes back within half a step, or as it was where there is no step.
struct Survivor {
  Field field;
  double least, most, step;
};
const Survivor kSurvivors[] = {  // in the order of the image
    {&S::MaxTorquePct, 0, 65535, 0},    {&S::Speed, 0, 270, 1 / 240.0},
    {&S::StepFilterFreq, 0, 6553, 0},   {&S::DampingOn, 0, 1, 0},
    {&S::SmoothingOn, 0, 1, 0},         {&S::LoadInertiaUnit, 0, 7, 0},
    {&S::EncoderCW, 0, 1, 0},           {&S::InertiaIsRatio, 0, 1, 0},
    {&S::RunCurrent, 0.1, 10, 0.01},    {&S::Speed2, 0, 270, 1 / 240.0},
    {&S::MaxAccel, 0, 10900, 1 / 6.0},  {&S::StallDetect, 0, 1, 0},
    {&S::StallPrevent, 0, 1, 0},        {&S::StallFaultOn, 0, 1, 0},
    {&S::EncoderSingleEnded, 0, 1, 0},  {&S::EncoderCounts, 0, 65535, 0},
    {&S::StallFaultMs, 0, 65535, 0},    {&S::CmdScale, -136, 136, 1 / 240.0},
    {&S::CmdOffset, -16384, 16383, 0},  {&S::Accel, 0, 10900, 1 / 6.0},
    {&S::Decel, 0, 10900, 1 / 6.0},     {&S::AnalogRange, 0, 127, 0},
    {&S::AnalogTypeFlag, 0, 1, 0},      {&S::AnalogDeadband, 0, 255, 0},
    {&S::BrakeDelay, 0, 65535, 0},      {&S::BrakeEngage, 0, 65535, 0},
    {&S::PulseType, 0, 3, 0},           {&S::DirIsCW, 0, 1, 0},
    {&S::StepsPerRev, 0, 65535, 0},     {&S::LimitMode, 1, 3, 0},
    {&S::AnalogGain, -32768, 32767, 0}, {&S::TxDelay, 0, 65535, 0},
    {&S::BitRateCode, 1, 5, 0},         {&S::RegenExternal, 0, 1, 0},
    {&S::IdleDelay, 0, 65, 0.001},      {&S::TuneWord1, 0, 65535, 0},
    {&S::TuneWord2, 0, 65535, 0},       {&S::TuneWord3, 0, 65535, 0},
    {&S::TuneWord4, 0, 65535, 0},       {&S::TuneWord5, 0, 65535, 0},
    {&S::HarmonicGain, 0, 65535, 0},    {&S::HarmonicPhase, -32768, 32767, 0},
    {&S::RatedCurrent, 0, 655, 0.01},   {&S::TorqueUnit, 0, 255, 0},
    {&S::InertiaUnit, 0, 255, 0},       {&S::RatedTorque, 1, 300, 1e-4},
    {&S::RotorInertia, 10, 20000, .01}, {&S::MaxVoltsPct, 0, 6553, 0.1},
    {&S::CustomMotor, 0, 1, 0}};
/// Nothing but 3 for a hub.
const Survivor kHubCodes[] = {{&S::EnableMode, 1, 3, 0},
                              {&S::AlarmResetMode, 1, 3, 0},
                              {&S::AlarmOutMode, 1, 3, 0},
                              {&S::BrakeMode, 1, 3, 0},
                              {&S::MotionOutMode, 1, 8, 0}};
const Survivor kRegen[] = {
    {&S::RegenWatts, 0, 65535, 1}, {&S::RegenOhms, 0, 65535, 1}, {&S::RegenSecs, 0, 16, 1 / 4000.0}};
/// Sent in a way of their own.
const Survivor kOthers[] = {
    {&S::TwoSpeeds, 0, 1, 0},         {&S::RunStop, 0, 1, 0},           {&S::AnalogVelocity, 0, 1, 0},
    {&S::NoiseFilter, 100, 15000, 0}, {&S::IdlePercent, 0, 100, 0},     {&S::LeadAngleRps, 0, 273, 0},
    {&S::LeadAngleDeg, 0, 65535, 0},  {&S::ProtocolFlags, 0, 65535, 0}, {&S::AnalogFilter, 10, 2000, 0}};
const Survivor kNotInTheImage[] = {
    {&S::PowerUpMode, 0, 21, 0}, {&S::MaxSpeed, 0, 80, 0}, {&S::InertiaRatio, 0, 10, 0}};

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

Settings RandomSettings(Dice& dice) {
  Settings s;
  for (const std::span<const Survivor> fields :
       {std::span<const Survivor>(kSurvivors), {kHubCodes}, {kRegen}, {kOthers}, {kNotInTheImage}})
    for (const auto& [field, least, most, step] : fields) {
      const bool whole = !std::holds_alternative<double S::*>(field);
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

void ExpectSurvivors(std::span<const Survivor> fields, const Settings& sent, const Settings& decoded) {
  for (const Survivor& f : fields)
    EXPECT_NEAR(Get(decoded, f.field), Get(sent, f.field), f.step / 2 * (1 + 1e-9)) << &f - fields.data();
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
  for (int i = 0; i < 10000; ++i) {
    SCOPED_TRACE(i);
    Settings sent = RandomSettings(dice);
    MemoryTable table = RandomRow(dice, dice.Text(20));
    const MotorRow row = MotorTable(table).Row();
    ParameterImage image{};
    DownloadString(image, sent, row);
    const Settings before = RandomSettings(dice);
    Settings decoded = before;
    const UploadedMotor uploaded = DecodeImage(image, decoded);
    ExpectSurvivors(kSurvivors, sent, decoded);
    ExpectSurvivors(kNotInTheImage, before, decoded);
    if (sent.OpMode != 4) ExpectSurvivors(kHubCodes, sent, decoded);
    if (sent.RegenExternal) ExpectSurvivors(kRegen, sent, decoded);
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
