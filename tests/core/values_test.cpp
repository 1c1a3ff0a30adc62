#include <cmath>

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "core/settings.h"
#include "tests/support/error_of.h"

namespace kavr6 {
namespace {

TEST(Numbers, HalfGoesToTheEvenNeighbourAndErrorsHaveTheirNumbers) {
  EXPECT_EQ(ToLong(6.5), 6);
  EXPECT_EQ(ToLong(2147483647.4), 2147483647);
  EXPECT_EQ(ToByte(255.5 - 1e-9), 255);
  for (const double bad : {2147483648.0, -2147483649.0, HUGE_VAL, std::nan("")})
    EXPECT_THROW(ToLong(bad), RuntimeError);
  EXPECT_THROW(ToByte(-0.6), RuntimeError);
  EXPECT_THROW(ToByte(255.5), RuntimeError);
  EXPECT_THROW(ToInteger(32768), RuntimeError);
  EXPECT_EQ(ErrorOf([] { Divide(1.0, 0.0); }), 11);
  EXPECT_EQ(ErrorOf([] { Divide(0.0, 0.0); }), 6);
}

TEST(Numbers, PlainTextIsShortAndReadsBack) {
  const std::pair<double, const char*> cases[] = {
      {0.0, "0"},
      {-0.0, "0"},
      {25000.0, "25000"},
      {16000.0 / 170.0, "94.1176470588235"},
      {1e-4, "0.0001"},
      {1e-5, "1E-05"},
      {1e15, "1E+15"},
      {-1.5e-7, "-1.5E-07"},
      {999999999999999.9, "1E+15"},
      {0.1 + 0.2, "0.3"},
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value), text);
  EXPECT_EQ(NumberText(3.2F), "3.2");
  EXPECT_EQ(NumberText(1.0F / 3.0F), "0.3333333");
}

TEST(Numbers, PicturesRoundTheDecimalTextAwayFromZero) {
  const std::tuple<double, const char*, const char*> cases[] = {
      {1.005, "0.00", "1.01"},  {-0.005, "0.00", "-0.01"},
      {-0.001, "0.00", "0.00"}, {9.9996, "#0.000", "10.000"},
      {0.5, ".0###", ".5"},     {0.0, ".00000###", ".00000"},
      {3.0, "#.0##", "3.0"},    {0.00012345678, ".0000###", ".0001235"},
  };
  for (const auto& [value, picture, text] : cases) EXPECT_EQ(FormatNumber(value, picture), text) << value;
}

TEST(Numbers, TextsTravelAsOneByteCodes) {
  EXPECT_EQ(CharacterCodes("a\xC3\xBC"
                           "b"),
            "a\xFC"
            "b");
  EXPECT_EQ(CharacterCodes("\xE2\x82\xAC!"), "?!");
  for (int code = 0; code < 256; ++code) {
    const std::string one(1, static_cast<char>(code));
    EXPECT_EQ(CharacterCodes(CharacterOf(static_cast<std::uint8_t>(code))), one);
  }
  EXPECT_EQ(NoBadChars(" a\x01\x7F\xFF"
                       "b~ \x02 "),
            " ab~");
}

TEST(Settings, ModeNamesFollowTheThreeCodes) {
  const std::tuple<Long, Long, Long, const char*> cases[] = {{1, 21, 0, "Zu Program"},
                                                             {2, 7, 0, "VTL Mode"},
                                                             {4, 7, 0, "Zulink Hub"},
                                                             {7, 7, 0, "Wy Program"},
                                                             {3, 11, 0, "Velocity Mode"},
                                                             {3, 7, 0, "Pulse && Direction"},
                                                             {3, 7, 2, "Quadrature Following"},
                                                             {3, 7, 1, "CW/CCW Pulse"},
                                                             {3, 2, 0, "before"},
                                                             {5, 7, 0, ""}};
  for (const auto& [op, control, pulse, name] : cases) {
    Settings s;
    s.OpMode = op;
    s.ControlMode = control;
    s.PulseType = pulse;
    EXPECT_EQ(ModeName(s, "before"), name) << op << ' ' << control << ' ' << pulse;
  }
}

}  // namespace
}  // namespace kavr6
