#include "image/byte_codec.h"

#include <array>
#include <cmath>
#include <limits>

#include "tests/image/image_fixture.h"

namespace kavr6 {
namespace {

TEST(ByteCodec, HexWordsKeepTheFirstDigitsOfALongNumber) {
  struct Case {
    Long value;
    int word, longWord;
  };
  const Case cases[] = {{0, 0, 0},
                        {1000, 0x03E8, 0x03E8},
                        {-1, 0xFFFF, 0xFFFFFF},
                        {-65537, 0xFFFF, 0xFFFEFF},
                        {65535, 0xFFFF, 0xFFFF},
                        {65536, 0x1000, 0x10000},
                        {70000, 0x1117, 0x11170},
                        {0x7FEDCBA9, 0x7FED, 0x7FEDCB}};
  for (const auto& [value, word, longWord] : cases) {
    Byte high = 1, middle = 1, low = 1;
    HexBytes16(value, high, low);
    EXPECT_EQ(high * 256 + low, word) << value;
    HexBytes24(value, high, middle, low);
    EXPECT_EQ(high << 16 | middle << 8 | low, longWord) << value;
  }
}

TEST(ByteCodec, SignedWordsOverflowWhereTheArithmeticDoes) {
  const std::pair<Long, int> cases[] = {{-5, 0xFFFB}, {32767, 0x7FFF}, {65535, 0xFFFF},
                                        {-65536, 0},  {65536, -1},     {-65537, -1}};
  for (const auto& [value, word] : cases) {
    Byte high = 0, low = 0;
    const int error = ErrorOf([&, v = value] { SignedString16(v, high, low); });
    EXPECT_EQ(error == 6 ? -1 : high * 256 + low, word) << value;
  }
}

TEST(ByteCodec, FloatsKeep23BitsAndEndInOverflowBeyondTheirFormat) {
  const std::pair<double, std::uint32_t> cases[] = {{0.0, 0},
                                                    {118.0, 0x10760000},
                                                    {0.3, 0x184CCCCD},
                                                    {4194304.0, 0x00400000},
                                                    {4194303.0, 0x017FFFFE},
                                                    {4194303.9999, 0x01800000},
                                                    {16777215.0, 0x00FFFFFF},
                                                    {16777216.0, 0x00100000},
                                                    {2147483647.0, 0x007FFFFF},
                                                    {std::ldexp(1.0, 22 - 255), 0xFF400000}};
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

}  // namespace
}  // namespace kavr6
