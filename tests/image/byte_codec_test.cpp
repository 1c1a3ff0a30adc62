#include "image/byte_codec.h"

#include <array>
#include <cmath>
#include <limits>

#include "tests/image/image_fixture.h"

namespace kavr6 {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ByteCodec, HexWordsKeepTheFirstDigitsOfALongNumber) {
  const std::pair<Long, int> cases[] = {
      {0, 0},           {1000, 0x03E8},       {-1, 0xFFFF},        {-32768, 0x8000},
      {-65537, 0xFFFF}, {65535, 0xFFFF},      {65536, 0x1000},     {70000, 0x1117},
      {100000, 0x186A}, {2147483647, 0x7FFF}, {-2147483647 - 1, 0}};
  for (const auto& [value, word] : cases) {
    Byte high = 1, low = 1;
    HexBytes16(value, high, low);
    EXPECT_EQ(high * 256 + low, word) << value;
  }
  const std::pair<Long, int> longer[] = {
      {1, 1}, {0xFFFFFF, 0xFFFFFF}, {0x1234567, 0x123456}, {0x7FEDCBA9, 0x7FEDCB}, {-2, 0xFFFFFF}};
  for (const auto& [value, word] : longer) {
    Byte top = 1, middle = 1, low = 1;
    HexBytes24(value, top, middle, low);
    EXPECT_EQ(top << 16 | middle << 8 | low, word) << value;
  }
}

TEST(ByteCodec, SignedWordsOverflowWhereTheArithmeticDoes) {
  const std::pair<Long, int> cases[] = {{0, 0},          {-5, 0xFFFB},  {32767, 0x7FFF},
                                        {65535, 0xFFFF}, {-65536, 0},   {65536, -1},
                                        {-65537, -1},    {-131072, -1}, {2147483647, -1}};
  for (const auto& [value, word] : cases) {
    Byte high = 0, low = 0;
    const int error = ErrorOf([&, v = value] { SignedString16(v, high, low); });
    EXPECT_EQ(error != 0 ? -1 : high * 256 + low, word) << value;
    EXPECT_EQ(error, word < 0 ? 6 : 0) << value;
  }
}

TEST(ByteCodec, FloatsKeep23Bits) {
  const std::pair<double, std::uint32_t> cases[] = {{0.0, 0},
                                                    {-0.0, 0},
                                                    {118.0, 0x10760000},
                                                    {300.0, 0x0E4B0000},
                                                    {0.3, 0x184CCCCD},
                                                    {4194304.0, 0x00400000},
                                                    {4194303.0, 0x017FFFFE},
                                                    {4194303.9999, 0x01800000},
                                                    {4194304.5, 0x00400000},
                                                    {16777215.0, 0x00FFFFFF},
                                                    {16777216.0, 0x00100000},
                                                    {2147483647.0, 0x007FFFFF},
                                                    {std::ldexp(1.0, 22 - 255), 0xFF400000}};
  for (const auto& [value, expected] : cases) {
    std::array<Byte, 4> bytes{};
    FloatBytes(value, bytes[0], bytes[1], bytes[2], bytes[3]);
    EXPECT_EQ(std::uint32_t{bytes[0]} << 24 | bytes[1] << 16 | bytes[2] << 8 | bytes[3], expected) << value;
    // From the seventh hexadecimal digit on, digits are cut at the end.
    if (value >= 16777216.0) continue;
    EXPECT_NEAR(ImageReader(bytes).Str2Float(), value, value / (1 << 23));
  }
  const std::array<Byte, 4> third{0x18, 0x4C, 0xCC, 0xCD};
  EXPECT_EQ(ImageReader(third).Str2Float(), 0.30000001192092896);
}

TEST(ByteCodec, FloatsBeyondTheirFormatEndInOverflow) {
  for (const double value : {2147483648.0, std::ldexp(1.0, 21 - 255), 5e-324, -5e-324, -118.0, kInfinity,
                             -kInfinity, std::nan("")}) {
    Byte bytes[4];
    EXPECT_EQ(ErrorOf([&] { FloatBytes(value, bytes[0], bytes[1], bytes[2], bytes[3]); }), 6) << value;
  }
}

TEST(ByteCodec, DecodersAdvanceAndStopAtTheEnd) {
  const std::array<Byte, 9> bytes{0x80, 0x00, 0x7F, 0xFF, 0xFF, 0xFE, 0x12, 0x34, 0x56};
  ImageReader reader(bytes);
  EXPECT_EQ(reader.Str2Num16(), 32768);
  EXPECT_EQ(reader.SignedStr2Num16(), 32767);
  EXPECT_EQ(reader.Str2Num16Signed(), -2);
  EXPECT_EQ(reader.Str2Num24(), 0x123456);
  EXPECT_EQ(reader.ImagePos, 9);
  EXPECT_EQ(ErrorOf([&] { reader.Str2Num8(); }), 9);
  reader.ImagePos = 0;
  EXPECT_EQ(reader.SignedStr2Num16(), -32768);
  reader.ImagePos = 8;
  EXPECT_EQ(ErrorOf([&] { reader.Str2Num16(); }), 9);
  reader.ImagePos = -1;
  EXPECT_EQ(ErrorOf([&] { reader.Str2Num8(); }), 9);
}

TEST(ByteCodec, SumsLeaveOutTheLastTwoBytes) {
  ParameterImage image;
  image.fill(0xFF);
  EXPECT_EQ(ByteSum(image), 40545);
  StoreChecksum(image);
  EXPECT_EQ(image[159] * 256 + image[160], 40545);
  EXPECT_TRUE(ChecksumHolds(image));
  image[77] ^= 1;
  EXPECT_FALSE(ChecksumHolds(image));
  EXPECT_EQ(ByteSum({}), 0);
  EXPECT_EQ(ByteSum(std::span(image).first(3)), 0xFF);
  EXPECT_EQ(SumStr("A\xFF"), 65 + 255);
}

TEST(ByteCodec, LongsAsText) {
  const std::array<Byte, 5> digits{'x', 'f', '0', 'A', '9'};
  EXPECT_EQ(MakeLong(digits), 0xF0A9);
  EXPECT_EQ(ErrorOf([&] { MakeLong(std::span(digits).first(4)); }), 9);
  EXPECT_EQ(String32(0x4100FF7E), std::string("A\0\xFF~", 4));
  EXPECT_EQ(String32(-2), "\xFF\xFF\xFF\xFE");
}

}  // namespace
}  // namespace kavr6
