#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <tuple>
#include <type_traits>

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "core/settings_fields.h"
#include "tests/support/error_of.h"

namespace kavr6 {
namespace {

TEST(Numbers, HalfGoesToTheEvenNeighbourAndErrorsHaveTheirNumbers) {
  EXPECT_EQ(ToLong(6.5), 6);
  EXPECT_EQ(ToLong(2147483647.4), 2147483647);
  EXPECT_EQ(ToByte(255.5 - 1e-9), 255);
  for (const double bad : {2147483648.0, -2147483649.0, HUGE_VAL, std::nan("")})
    EXPECT_THROW(ToLong(bad), RuntimeError);
  for (const double bad : {-0.6, 255.5}) EXPECT_THROW(ToByte(bad), RuntimeError);
  EXPECT_THROW(ToInteger(32768), RuntimeError);
  EXPECT_EQ(ErrorOf([] { Divide(1.0, 0.0); }), 11);
  EXPECT_EQ(ErrorOf([] { Divide(0.0, 0.0); }), 6);
}

TEST(Numbers, PlainTextIsShortAndReadsBack) {
  const std::pair<double, const char*> cases[] = {
      {-0.0, "0"},      {25000.0, "25000"}, {16000.0 / 170.0, "94.1176470588235"},
      {1e-4, "0.0001"}, {1e-5, "1E-05"},    {-1.5e-7, "-1.5E-07"},
      {1e15, "1E+15"},  {0.1 + 0.2, "0.3"}, {999999999999999.9, "1E+15"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value), text);
  EXPECT_EQ(NumberText(3.2F), "3.2");
  EXPECT_EQ(NumberText(1.0F / 3.0F), "0.3333333");
}

TEST(Numbers, PicturesRoundTheDecimalTextAwayFromZero) {
  using Row = std::tuple<double, const char*, const char*>;
  const Row cases[] = {{1.005, "0.00", "1.01"},  {-0.005, "0.00", "-0.01"},
                       {-0.001, "0.00", "0.00"}, {9.9996, "#0.000", "10.000"},
                       {0.5, ".0###", ".5"},     {0.0, ".00000###", ".00000"},
                       {3.0, "#.0##", "3.0"},    {0.00012345678, ".0000###", ".0001235"}};
  for (const auto& [value, picture, text] : cases) EXPECT_EQ(FormatNumber(value, picture), text) << value;
}

TEST(Numbers, StrictReadingTakesAllOfATextAndPrefixReadingItsBeginning) {
  constexpr double kMost = std::numeric_limits<double>::max();
  // The text, the number at its beginning, and the error of reading it strictly.
  const std::tuple<const char*, double, int> cases[] = {
      {" -1.5 ", -1.5, 0}, {"+.5", 0.5, 0},     {"12.", 12, 0},        {"1E-05", 1e-5, 0}, {"12abc", 12, 13},
      {"", 0, 13},         {"-", 0, 13},        {".", 0, 13},          {"+-1", 0, 13},     {"1,5", 1, 13},
      {"1 2", 1, 13},      {"1e+", 1, 13},      {"0x10", 0, 13},       {"inf", 0, 13},     {"nan", 0, 13},
      {"1.2.3", 1.2, 13},  {"1e999", kMost, 6}, {"-1e999", -kMost, 6}, {"1e-999", 0, 0}};
  for (const auto& [text, value, error] : cases) {
    EXPECT_EQ(PrefixNumber(text), value) << text;
    double strict = value;
    EXPECT_EQ(ErrorOf([&, t = text] { strict = StrictNumber(t); }), error) << text;
    EXPECT_EQ(strict, value) << text;
  }
}

TEST(Numbers, TextsTravelAsOneByteCodes) {
  EXPECT_EQ(CharacterCodes("a\xC3\xBC!"), "a\xFC!");
  EXPECT_EQ(CharacterCodes("\xE2\x82\xAC!"), "?!");
  for (int code = 0; code < 256; ++code) {
    const std::string one(1, static_cast<char>(code));
    EXPECT_EQ(CharacterCodes(CharacterOf(static_cast<std::uint8_t>(code))), one);
  }
  EXPECT_EQ(NoBadChars(" a\x01\x7F\xFFz~ \x02 "), " az~");
}

/// Stands for any field where members are counted.
template <class Whole>
struct AnyField {
  template <class T>
  requires(!std::is_same_v<T, Whole>) operator T()
      const;  // NOLINT(google-explicit-constructor): that is its use
};

template <class Whole, class... Counted>
constexpr std::size_t MembersOf() {
  if constexpr (requires { Whole{Counted{}..., AnyField<Whole>{}}; })
    return MembersOf<Whole, Counted..., AnyField<Whole>>();
  else
    return sizeof...(Counted);
}

TEST(Settings, TheTableHasEveryFieldOnceInTheOrderOfTheRecord) {
  EXPECT_EQ(SettingsFields().size(), MembersOf<MotorRecord>() + MembersOf<Settings>() - 1);
  const Settings s;
  const auto place = [&](const NamedField& field) {
    const auto address = [&](auto member) { return reinterpret_cast<const char*>(&(s.*member)); };
    return std::visit(address, field.member);
  };
  EXPECT_EQ(std::ranges::adjacent_find(SettingsFields(), std::greater_equal<>(), place),
            SettingsFields().end());
  EXPECT_EQ(NameOf(&Settings::StallAccel), "StallAccel");
}

}  // namespace
}  // namespace kavr6
