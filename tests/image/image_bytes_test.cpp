// The bytes of an image: their codes, settings to bytes, bytes to settings.
#include <array>
#include <cmath>
#include <limits>
#include <tuple>

#include "image/byte_codec.h"
#include "image/image_layout.h"
#include "tests/image/image_fixture.h"

namespace kavr6 {
namespace {

TEST(ByteCodec, FloatsKeep23BitsAndEndInOverflowBeyondTheirFormat) {
  using Row = std::pair<double, std::uint32_t>;
  const Row cases[] = {{16777215.0, 0x00FFFFFF},
                       {0.0, 0},
                       {16777216.0, 0x00100000},
                       {0.3, 0x184CCCCD},
                       {4194303.9999, 0x01800000},
                       {118.0, 0x10760000},
                       {2147483647.0, 0x007FFFFF},
                       {4194304.0, 0x00400000},
                       {std::ldexp(1.0, 22 - 255), 0xFF400000},
                       {4194303.0, 0x017FFFFE}};
  std::array<Byte, 4> bytes{};
  for (const auto& [value, expected] : cases) {
    FloatBytes(value, bytes[0], bytes[1], bytes[2], bytes[3]);
    EXPECT_EQ(std::uint32_t{bytes[0]} << 24 | bytes[1] << 16 | bytes[2] << 8 | bytes[3], expected) << value;
    if (value >= 16777216.0) continue;  // from the seventh hexadecimal digit on, digits are cut at the end
    EXPECT_NEAR(ImageReader(bytes).Str2Float(), value, value / (1 << 23));
  }
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double value : {2147483648.0, std::ldexp(1.0, 21 - 255), -5e-324, infinity, std::nan("")})
    EXPECT_EQ(ErrorOf([&] { FloatBytes(value, bytes[0], bytes[1], bytes[2], bytes[3]); }), 6) << value;
}

using Bytes = std::vector<int>;

TEST_F(ImageTest, StartValuesGiveTheWorkedBytes) {
  const ParameterImage image = Written();
  const std::pair<std::size_t, Bytes> cases[] = {
      {0, {0x00, 0x64, 15, 0x09, 0x60, 0x27, 0x10, 0x87}},
      {8, {0, 0, 0, 0, 0x00, 0x8C, 0x00, 0x46, 0x04, 0xB0, 0x46, 0x50, 0, 0, 0x0F, 0xA0}},
      {24, {0x17, 0x70, 0x00, 0x78, 0x00, 20, 0x09, 0x60, 0, 0, 0x02, 0x58, 0x02, 0x58}},
      {38, {1, 5, 0, 200, 0, 200, 7, 3, 0, 0x61, 0xA8, '!', 3, 3, 3, 3, 3, 1}},
      {56, {0x1F, 0x40, 0x38, 0x52, 0, 0, 0, 1, 0, 1, 0x00, 0x32, 0x00, 0x28, 0x04, 0xE2, 0x01, 0x90}},
      {74, {0x2E, 0xE0, 0x00, 217, 0x02, 0x71, 0x00, 0x1E, 0x13, 0x88, 0x00, 0xFA, 0x00, 0xFA}},
      {88, {0, 0, 0, 0, 0, 200, 0, 1, 0x10, 0x76, 0, 0, 0x0E, 0x4B, 0, 0, 0x03, 0xAD, 0x17, 0x70, 0, 120}},
      {110, {'c', 'u', 's', 't', 'o', 'm', ' ', 'm', 'o', 't', 'o', 'r', ' ', 0}},
      {124, {0, 0, 0, 0, 0, 170, 0, 1, 0x11, 0x78, 0, 0, 0x11, 0x72, 0, 0, 0x03, 0xAD, 0x17, 0x70, 0, 120}},
      {146, {'K', 'M', '1', '7', '-', '1', 'S', '-', '1', '7', '0', ' ', ' '}}};
  for (const auto& [position, bytes] : cases)
    EXPECT_EQ(Part(image, position, bytes.size()), bytes) << position;
}

TEST_F(ImageTest, SettingsReachTheirBytes) {
  const std::tuple<Changes, std::size_t, Bytes> cases[] = {
      // A half goes to the even neighbour.
      {{{&S::NoiseFilter, 2000}}, 2, {8}},
      {{{&S::NoiseFilter, 59}}, 2, {254}},
      // A long word keeps its first digits.
      {{{&S::StepFilterFreq, 10000}}, 5, {0x18, 0x6A}},
      // Bits.
      {{{&S::DampingOn, 0}, {&S::EncoderCW, 1}, {&S::LoadInertiaUnit, 11}, {&S::InertiaIsRatio, 0}}, 7, {46}},
      {{{&S::ControlMode, 2}, {&S::StallPrevent, 1}, {&S::EncoderSingleEnded, 1}}, 20, {4, 2}},
      {{{&S::StallDetect, 1}, {&S::StallPrevent, 1}, {&S::StallFaultOn, 1}}, 20, {0, 5}},
      {{{&S::AnalogTypeFlag, 0}, {&S::AnalogRange, 3}}, 38, {131}},
      {{{&S::PulseType, 2}, {&S::DirIsCW, 1}}, 46, {6}},
      // The motor in use, and the standard motor whatever is in use.
      {{{&S::CustomMotor, 1}, {&S::HarmonicGain, 300}, {&S::HarmonicPhase, -2}}, 8, {1, 0x2C, 0xFF, 0xFE}},
      {{{&S::CustomMotor, 1}, {&S::LeadAngleRps, 9}, {&S::LeadAngleDeg, 90}}, 24, {8, 0x70, 0, 90}},
      {{{&S::CustomMotor, 1}}, 123, {1, 0, 0, 0, 0, 0, 170}},
      // Packed control byte, in OpMode 3 only.
      {{{&S::ControlMode, 11}, {&S::TwoSpeeds, 1}, {&S::RunStop, 0}, {&S::AnalogVelocity, 0}}, 44, {17}},
      {{{&S::OpMode, 2}, {&S::ControlMode, 11}}, 44, {11, 2}},
      // A hub has 3 for everything but the limits.
      {{{&S::OpMode, 4}, {&S::EnableMode, 1}, {&S::BrakeMode, 9}, {&S::LimitMode, 2}},
       50,
       {3, 3, 3, 3, 3, 2}},
      {{{&S::RegenExternal, 1}, {&S::RegenWatts, 80.5}, {&S::RegenOhms, 21.5}}, 66, {0, 80, 0, 22, 4, 0xE2}},
  };
  for (const auto& [changes, position, bytes] : cases) {
    Start(changes);
    EXPECT_EQ(Part(Written(), position, bytes.size()), bytes) << position;
  }
  table.AddMotor("A", 3.13499999, 60.0, 57.0);
  table.MoveFirst();
  EXPECT_EQ(Part(Written(), 128, 2), (Bytes{1, 58})) << "313 in double precision";
}

TEST_F(ImageTest, TextsGoAsCharacterCodes) {
  settings.MotorName = "ABCDEFGHIJK\xC3\xA9MNOPQR";
  settings.RS485Addr = "\xC3\xA9x";
  EXPECT_EQ(Part(Written(), 120, 4), (Bytes{'K', 0xE9, 'M', 0}));
  EXPECT_EQ(Written()[49], 0xE9);
  settings.MotorName = settings.RS485Addr = "";
  EXPECT_EQ(ErrorOf([&] { Written(); }), 5);
}

TEST_F(ImageTest, StallPreventionIsClearedInTheSettingsWithPulsesOnly) {
  const std::tuple<Changes, int, bool> cases[] = {
      {{}, 0, false},
      {{{&S::ControlMode, 11}}, 0, true},
      {{{&S::NoiseFilter, 0}}, 11, true},     // ends before that place
      {{{&S::AnalogFilter, 0}}, 11, false}};  // ends behind it
  for (const auto& [changes, error, kept] : cases) {
    Start(changes);
    settings.StallPrevent = true;
    EXPECT_EQ(ErrorOf([&] { Written(); }), error);
    EXPECT_EQ(settings.StallPrevent, kept);
  }
}

TEST_F(ImageTest, WhatDoesNotFitEndsInItsError) {
  const double infinity = std::numeric_limits<double>::infinity();
  const std::tuple<Field, double, int> cases[] = {
      {&S::NoiseFilter, 58, 6},       {&S::Speed, infinity, 6},     {&S::StepFilterFreq, 214748365, 6},
      {&S::CmdScale, 273.07, 6},      {&S::CmdOffset, 32768, 6},    {&S::AnalogDeadband, 256, 6},
      {&S::AnalogRange, -1, 6},       {&S::ControlMode, 256, 6},    {&S::OpMode, -1, 6},
      {&S::PulseType, 2147483647, 6}, {&S::MotionOutMode, 256, 6},  {&S::TorqueUnit, 256, 6},
      {&S::RatedTorque, -1, 6},       {&S::RotorInertia, 1e-80, 6}, {&S::LeadAngleRps, 1 << 30, 6}};
  for (const auto& [field, value, error] : cases) {
    Start({{field, value}, {&S::DirIsCW, 1}});
    EXPECT_EQ(ErrorOf([&] { Written(); }), error) << value;
  }
  Start({});
  while (!table.EndOfTable()) table.MoveNext();
  EXPECT_EQ(ErrorOf([&] { Written(); }), 3021);
}

TEST_F(ImageTest, BytesOfADriveBecomeSettings) {
  using Row = std::tuple<int, int, Field, double>;
  const Row cases[] = {{5, 25, &S::StepFilterFreq, 2},       {44, 10, &S::RunStop, 1},
                       {14, 126, &S::IdlePercent, 90},       {44, 17, &S::RunStop, 0},
                       {14, 129, &S::IdlePercent, 90},       {44, 17, &S::TwoSpeeds, 1},
                       {24, 6000, &S::StallSpeed, 25},       {50, 0, &S::EnableMode, 1},
                       {38, 0x83, &S::AnalogRange, 3},       {55, 255, &S::LimitMode, 3},
                       {51, 4, &S::AlarmResetMode, 3},       {64, 0, &S::BitRateCode, 1},
                       {54, 12, &S::MotionOutMode, 8},       {106, 6000, &S::MotorR, 60},
                       {66, 50, &S::RegenExternal, 0},       {108, 120, &S::MotorL, 1.2},
                       {66, 51, &S::RegenExternal, 1},       {46, 0xFB, &S::PulseType, 3},
                       {68, 41, &S::RegenExternal, 1},       {58, 0, &S::AnalogFilter, 0},
                       {32, 0xFFFD, &S::CmdOffset, -2},      {123, 2, &S::CustomMotor, 0},
                       {70, 1251, &S::RegenExternal, 1},     {2, 0, &S::NoiseFilter, 2000},
                       {20, 0xFBFA, &S::StallPrevent, 1},    {26, 120, &S::StallAccel, 20},
                       {62, 65535, &S::ProtocolFlags, 55},   {44, 19, &S::ControlMode, 19},
                       {58, 0x3852, &S::AnalogFilter, 500},  {64, 258, &S::BitRateCode, 5},
                       {58, 65535, &S::AnalogFilter, -1273}, {124, 1, &S::HarmonicGain, 0}};
  const ParameterImage image = Written();
  for (const auto& [position, number, member, expected] : cases) {
    ParameterImage changed = image;
    auto place = static_cast<std::size_t>(position);
    for (const ImageField& field : ImageLayout())
      if (field.position == position && field.width == 2) changed[place++] = static_cast<Byte>(number / 256);
    changed[place] = static_cast<Byte>(number % 256);
    Start({});
    DecodeImage(changed, settings);
    EXPECT_EQ(Get(settings, member), expected) << position << ' ' << number;
  }
}

TEST_F(ImageTest, NamesLoseWhatCannotBeShown) {
  const std::tuple<std::string, const char*, const char*> cases[] = {
      {std::string(13, '\0'), "custom motor", ""}, {"A\x01 B\x7F\xE9\xFF  ~  ", "A B  ~", "A B  ~"}};
  for (const auto& [bytes, custom, standard] : cases) {
    ParameterImage image = Written();
    for (const int position : {110, 146}) {
      std::fill_n(image.begin() + position, 13, ' ');
      std::copy(bytes.begin(), bytes.end(), image.begin() + position);
    }
    EXPECT_EQ(DecodeImage(image, settings).Motor.MotorName, standard);
    EXPECT_EQ(settings.MotorName, custom);
  }
}

TEST_F(ImageTest, ARunningCurrentOf0EndsTheUploadInTheMiddle) {
  ParameterImage image = Written();
  image[3] = 0, image[4] = 240;
  image[12] = image[13] = 0;
  image[16] = 0, image[17] = 240;
  EXPECT_EQ(ErrorOf([&] { DecodeImage(image, settings); }), 11);
  EXPECT_EQ(settings.IdlePercent, 50);
  EXPECT_EQ(settings.Speed2, 5.0);
}

}  // namespace
}  // namespace kavr6
