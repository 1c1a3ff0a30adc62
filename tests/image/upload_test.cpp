#include "image/image_layout.h"
#include "tests/image/image_fixture.h"

namespace kavr6 {
namespace {

using Image = std::vector<Byte>;

TEST_F(ImageTest, BytesOfADriveBecomeSettings) {
  struct Case {
    std::size_t position;
    int number;
    Field field;
    double expected;
  };
  const Case cases[] = {// the analog filter's formula has a pole below 32769
                        {2, 0, &S::NoiseFilter, 2000},        {2, 15, &S::NoiseFilter, 1000},
                        {5, 25, &S::StepFilterFreq, 2},       {7, 0x5C, &S::LoadInertiaUnit, 7},
                        {14, 126, &S::IdlePercent, 90},       {14, 129, &S::IdlePercent, 90},
                        {14, 1, &S::IdlePercent, 1},          {20, 0xFBFA, &S::EncoderSingleEnded, 0},
                        {20, 0xFBFA, &S::StallPrevent, 1},    {24, 6000, &S::StallSpeed, 25},
                        {26, 120, &S::StallAccel, 20},        {32, 0xFFFD, &S::CmdOffset, -2},
                        {38, 0x83, &S::AnalogRange, 3},       {44, 17, &S::ControlMode, 11},
                        {44, 17, &S::TwoSpeeds, 1},           {44, 17, &S::RunStop, 0},
                        {44, 17, &S::AnalogVelocity, 0},      {44, 19, &S::ControlMode, 19},
                        {46, 0xFB, &S::PulseType, 3},         {50, 0, &S::EnableMode, 1},
                        {51, 4, &S::AlarmResetMode, 3},       {54, 12, &S::MotionOutMode, 8},
                        {55, 255, &S::LimitMode, 3},          {58, 0x3852, &S::AnalogFilter, 500},
                        {58, 0, &S::AnalogFilter, 0},         {58, 32769, &S::AnalogFilter, -25487000},
                        {58, 65535, &S::AnalogFilter, -1273}, {62, 65535, &S::ProtocolFlags, 0x37},
                        {64, 0, &S::BitRateCode, 1},          {64, 258, &S::BitRateCode, 5},
                        {66, 50, &S::RegenExternal, 0},       {66, 51, &S::RegenExternal, 1},
                        {68, 41, &S::RegenExternal, 1},       {70, 1251, &S::RegenExternal, 1},
                        {106, 6000, &S::MotorR, 60},          {108, 120, &S::MotorL, 1.2},
                        {123, 2, &S::CustomMotor, 0},         {123, 1, &S::CustomMotor, 1},
                        {124, 1, &S::HarmonicGain, 0}};
  const ParameterImage image = Written();
  for (const Case& c : cases) {
    ParameterImage changed = image;
    auto position = c.position;
    for (const ImageField& field : ImageLayout())
      if (static_cast<std::size_t>(field.position) == c.position && field.width == 2)
        changed[position++] = static_cast<Byte>(c.number / 256);
    changed[position] = static_cast<Byte>(c.number % 256);
    Start({{&S::AnalogVelocity, 1}});
    DecodeImage(changed, settings);
    EXPECT_EQ(Get(settings, c.field), c.expected) << c.position << ' ' << c.number;
  }
}

TEST_F(ImageTest, NamesLoseWhatCannotBeShown) {
  const std::tuple<std::string, const char*, const char*> cases[] = {
      {std::string(13, ' '), "custom motor", ""},
      {std::string(13, '\0'), "custom motor", ""},
      {"A\x01 B\x7F\xE9\xFF  ~  ", "A B  ~", "A B  ~"},
      {" x \x1F \x80      ", " x", " x"},
  };
  for (const auto& [bytes, custom, standard] : cases) {
    ParameterImage image = Written();
    for (const int position : {110, 146}) {
      std::fill_n(image.begin() + position, 13, ' ');
      std::copy(bytes.begin(), bytes.end(), image.begin() + position);
    }
    EXPECT_EQ(DecodeImage(image, settings).Motor.MotorName, standard);
    EXPECT_EQ(settings.MotorName, custom);
  }
  ParameterImage image = Written();
  image[49] = 0xE9;
  DecodeImage(image, settings);
  EXPECT_EQ(settings.RS485Addr, "\xC3\xA9");
}

TEST_F(ImageTest, ARunningCurrentOf0EndsTheUploadInTheMiddle) {
  for (const auto& [idle, error] : {std::pair{70, 11}, {0, 6}}) {
    InitVars(settings);
    ParameterImage image = Written();
    image[3] = 0, image[4] = 240;
    image[13] = 0, image[15] = static_cast<Byte>(idle);
    image[16] = 0, image[17] = 240;
    EXPECT_EQ(ErrorOf([&] { DecodeImage(image, settings); }), error);
    EXPECT_EQ(settings.Speed, 1.0);
    EXPECT_EQ(settings.RunCurrent, 0.0);
    EXPECT_EQ(settings.IdlePercent, 50);
    EXPECT_EQ(settings.Speed2, 5.0);
  }
}

TEST_F(ImageTest, ABufferWithoutAllFieldsIsASubscriptError) {
  const ParameterImage image = Written();
  for (std::size_t size = 0; size <= image.size(); ++size) {
    const Image part(image.begin(), image.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_EQ(ErrorOf([&] { DecodeImage(part, settings); }), size < 159 ? 9 : 0) << size;
  }
}

}  // namespace
}  // namespace kavr6
