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
  const std::pair<double, std::uint32_t> cases[] = {{16777215.0, 0x00FFFFFF},
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
    std::uint32_t all = 0;
    for (const Byte byte : bytes) all = all << 8 | byte;
    EXPECT_EQ(all, expected) << value;
    if (value >= 16777216.0) continue;  // from the seventh hexadecimal digit on, digits are cut at the end
    EXPECT_NEAR(ImageReader(bytes).Str2Float(), value, value / (1 << 23));
  }
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double value : {2147483648.0, std::ldexp(1.0, 21 - 255), -5e-324, infinity, std::nan("")})
    EXPECT_EQ(ErrorOf([&] { FloatBytes(value, bytes[0], bytes[1], bytes[2], bytes[3]); }), 6) << value;
}

using Bytes = std::vector<int>;

/// Numbers, and texts behind a ' with _ for a blank.
Bytes BytesOf(const std::string& words) {
  Bytes bytes;
  std::istringstream in(words);
  for (std::string word; in >> word;)
    if (word[0] == '\'')
      for (const char c : word.substr(1)) bytes.push_back(c == '_' ? ' ' : c);
    else
      bytes.push_back(std::stoi(word, nullptr, 0));
  return bytes;
}

TEST_F(ImageTest, SettingsReachTheirBytesOrEndInTheirError) {
  const std::vector<Row> rows = RowsOf("written.md");
  EXPECT_EQ(rows.size(), 40U);
  for (const Row& row : rows) {
    Start(row[0]);
    if (row[2].starts_with("error ")) {
      EXPECT_EQ("error " + std::to_string(ErrorOf([&] { Written(); })), row[2]) << row[0];
      continue;
    }
    const Bytes bytes = BytesOf(row[2]);
    EXPECT_EQ(Part(Written(), std::stoul(row[1]), bytes.size()), bytes) << row[0] << ' ' << row[1];
  }
  Start("");
  table.AddMotor("A", 3.13499999, 60.0, 57.0);
  table.MoveFirst();
  EXPECT_EQ(Part(Written(), 128, 2), (Bytes{1, 58})) << "313 in double precision";
  while (!table.EndOfTable()) table.MoveNext();
  EXPECT_EQ(ErrorOf([&] { Written(); }), 3021);
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
  const std::tuple<const char*, int, bool> cases[] = {{"", 0, false},
                                                      {"ControlMode=11", 0, true},
                                                      {"NoiseFilter=0", 11, true},  // ends before that place
                                                      {"AnalogFilter=0", 11, false}};  // ends behind it
  for (const auto& [changes, error, kept] : cases) {
    Start(changes);
    settings.StallPrevent = true;
    EXPECT_EQ(ErrorOf([&] { Written(); }), error);
    EXPECT_EQ(settings.StallPrevent, kept);
  }
}

TEST_F(ImageTest, BytesOfADriveBecomeSettings) {
  const std::vector<Row> rows = RowsOf("read.md");
  EXPECT_EQ(rows.size(), 32U);
  const ParameterImage image = Written();
  for (const Row& row : rows) {
    ParameterImage changed = image;
    std::size_t place = std::stoul(row[0]);
    const int number = std::stoi(row[1], nullptr, 0);
    for (const ImageField& field : ImageLayout())
      if (field.position == std::stoi(row[0]) && field.width == 2)
        changed[place++] = static_cast<Byte>(number / 256);
    changed[place] = static_cast<Byte>(number % 256);
    Start("");
    DecodeImage(changed, settings);
    EXPECT_EQ(Get(settings, FieldOf(row[2])), std::stod(row[3])) << row[0] << ' ' << number;
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
