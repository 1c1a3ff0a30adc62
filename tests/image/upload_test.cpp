#include "image/image_layout.h"
#include "tests/image/image_fixture.h"

namespace kavr6 {
namespace {

TEST_F(ImageTest, BytesOfADriveBecomeSettings) {
  const std::tuple<int, int, Field, double> cases[] = {{2, 0, &S::NoiseFilter, 2000},
                                                       {5, 25, &S::StepFilterFreq, 2},
                                                       {14, 126, &S::IdlePercent, 90},
                                                       {14, 129, &S::IdlePercent, 90},
                                                       {20, 0xFBFA, &S::StallPrevent, 1},
                                                       {24, 6000, &S::StallSpeed, 25},
                                                       {26, 120, &S::StallAccel, 20},
                                                       {32, 0xFFFD, &S::CmdOffset, -2},
                                                       {38, 0x83, &S::AnalogRange, 3},
                                                       {44, 10, &S::RunStop, 1},
                                                       {44, 17, &S::RunStop, 0},
                                                       {44, 17, &S::TwoSpeeds, 1},
                                                       {44, 19, &S::ControlMode, 19},
                                                       {46, 0xFB, &S::PulseType, 3},
                                                       {50, 0, &S::EnableMode, 1},
                                                       {51, 4, &S::AlarmResetMode, 3},
                                                       {54, 12, &S::MotionOutMode, 8},
                                                       {55, 255, &S::LimitMode, 3},
                                                       {58, 0x3852, &S::AnalogFilter, 500},
                                                       {58, 0, &S::AnalogFilter, 0},
                                                       {58, 65535, &S::AnalogFilter, -1273},
                                                       {62, 65535, &S::ProtocolFlags, 55},
                                                       {64, 0, &S::BitRateCode, 1},
                                                       {64, 258, &S::BitRateCode, 5},
                                                       {66, 50, &S::RegenExternal, 0},
                                                       {66, 51, &S::RegenExternal, 1},
                                                       {68, 41, &S::RegenExternal, 1},
                                                       {70, 1251, &S::RegenExternal, 1},
                                                       {106, 6000, &S::MotorR, 60},
                                                       {108, 120, &S::MotorL, 1.2},
                                                       {123, 2, &S::CustomMotor, 0},
                                                       {124, 1, &S::HarmonicGain, 0}};
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
