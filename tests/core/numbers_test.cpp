#include "core/numbers.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

TEST(Numbers, HalfGoesToTheEvenNeighbourAndRangesAreKept) {
  EXPECT_EQ(ToLong(7.5), 8);
  EXPECT_EQ(ToLong(2.5), 2);
  EXPECT_EQ(ToLong(-2.5), -2);
  EXPECT_EQ(ToLong(2147483647.4), 2147483647);
  EXPECT_EQ(ToByte(255.5 - 1e-9), 255);
  for (const double bad : {2147483648.0, -2147483649.0, HUGE_VAL, std::nan("")})
    EXPECT_THROW(ToLong(bad), RuntimeError);
  EXPECT_THROW(ToByte(-0.6), RuntimeError);
  EXPECT_THROW(ToByte(255.5), RuntimeError);
  EXPECT_THROW(ToInteger(32768), RuntimeError);
}

TEST(Numbers, DivisionByZeroTellsItsTwoKinds) {
  const auto numberOf = [](double numerator) {
    try {
      Divide(numerator, 0.0);
    } catch (const RuntimeError& error) {
      return error.Number();
    }
    return 0;
  };
  EXPECT_EQ(numberOf(1.0), 11);
  EXPECT_EQ(numberOf(0.0), 6);
}

TEST(Numbers, PlainTextIsShortAndReadsBack) {
  const std::pair<double, const char*> cases[] = {
      {0.0, "0"},
      {-0.0, "0"},
      {1.4, "1.4"},
      {0.4, "0.4"},
      {0.3125, "0.3125"},
      {25000.0, "25000"},
      {16000.0 / 170.0, "94.1176470588235"},
      {1e-4, "0.0001"},
      {1e-5, "1E-05"},
      {0.00012345, "0.00012345"},
      {1e14, "100000000000000"},
      {1e15, "1E+15"},
      {-1.5e-7, "-1.5E-07"},
      {1.25e120, "1.25E+120"},
      {999999999999999.9, "1E+15"},
      {0.1 + 0.2, "0.3"},
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value), text);
  EXPECT_EQ(NumberText(3.2F), "3.2");
  EXPECT_EQ(NumberText(1.0F / 3.0F), "0.3333333");
  EXPECT_EQ(NumberText(Long{-7}), "-7");
}

TEST(Numbers, PicturesRoundTheDecimalTextAwayFromZero) {
  struct Case {
    double value;
    const char* picture;
    const char* text;
  };
  const Case cases[] = {
      {1.005, "0.00", "1.01"},
      {0.994999, "0.00", "0.99"},
      {0.995, "0.00", "1.00"},
      {-0.005, "0.00", "-0.01"},
      {-0.001, "0.00", "0.00"},
      {9.9996, "#0.000", "10.000"},
      {12.34, "##.0", "12.3"},
      {0.5, ".0###", ".5"},
      {1234567.5, "#######", "1234568"},
      {0.0, ".00000###", ".00000"},
      {3.0, "#.0##", "3.0"},
      {0.00012345678, ".0000###", ".0001235"},
      {99.95, "##.0", "100.0"},
      {7.0, "0", "7"},
      {1e20, "0", "100000000000000000000"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(FormatNumber(c.value, c.picture), c.text) << c.value << ' ' << c.picture;
  EXPECT_EQ(FormatNumber(static_cast<float>(152 / 100.0), "0.00"), "1.52");
}

TEST(Numbers, TextsTravelAsOneByteCodes) {
  EXPECT_EQ(CharacterCodes("a\xC3\xBC"
                           "b"),
            "a\xFC"
            "b");
  EXPECT_EQ(CharacterCodes("\xE2\x82\xAC!"), "?!");
  EXPECT_EQ(CharacterCodes("\xC3"), "\xC3");
  for (int code = 0; code < 256; ++code) {
    const std::string one = CharacterCodes(CharacterOf(static_cast<std::uint8_t>(code)));
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(static_cast<unsigned char>(one[0]), code);
  }
  EXPECT_EQ(NoBadChars(" a\x01\x7F\xFF"
                       "b~ \x02 "),
            " ab~");
  EXPECT_EQ(TrimTrailingBlanks("   "), "");
}

}  // namespace
}  // namespace kavr6
