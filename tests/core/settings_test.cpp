#include "core/settings.h"

#include <gtest/gtest.h>

namespace kavr6 {
namespace {

TEST(Settings, PackedControlModeIsDecodedAndOtherCodesLeaveTheOptions) {
  struct Case {
    Long packed, mode;
    bool analog, twoSpeeds, runStop;
  };
  // The options start as true, false, true; codes outside 11 to 18 leave them so.
  const Case cases[] = {
      {10, 10, true, false, true},  {11, 11, true, false, false}, {12, 11, true, false, true},
      {13, 11, true, true, false},  {14, 11, true, true, true},   {15, 11, false, false, false},
      {17, 11, false, true, false}, {18, 11, false, true, true},  {19, 19, true, false, true}};
  for (const Case& c : cases) {
    Settings s;
    s.ControlMode = c.packed;
    s.AnalogVelocity = s.RunStop = true;
    DecodeControlMode(s);
    EXPECT_EQ(std::tuple(s.ControlMode, s.AnalogVelocity, s.TwoSpeeds, s.RunStop),
              std::tuple(c.mode, c.analog, c.twoSpeeds, c.runStop))
        << c.packed;
  }
}

TEST(Settings, ModeNamesFollowTheThreeCodes) {
  struct Case {
    Long op, control, pulse;
    const char* name;
  };
  const Case cases[] = {{1, 21, 0, "Zu Program"},
                        {2, 7, 0, "VTL Mode"},
                        {4, 7, 0, "Zulink Hub"},
                        {7, 7, 0, "Wy Program"},
                        {3, 11, 0, "Velocity Mode"},
                        {3, 7, 0, "Pulse && Direction"},
                        {3, 7, 2, "Quadrature Following"},
                        {3, 7, 1, "CW/CCW Pulse"},
                        {3, 7, 3, "CW/CCW Pulse"},
                        {3, 2, 0, "before"},
                        {5, 7, 0, ""},
                        {0, 7, 0, ""}};
  for (const Case& c : cases) {
    Settings s;
    s.OpMode = c.op;
    s.ControlMode = c.control;
    s.PulseType = c.pulse;
    EXPECT_EQ(ModeName(s, "before"), c.name) << c.op << ' ' << c.control << ' ' << c.pulse;
  }
}

TEST(Settings, UnitNamesEndInTheBaseUnit) {
  EXPECT_EQ(TorqueUnitName(3), "kg cm");
  EXPECT_EQ(TorqueUnitName(7), "N m");
  EXPECT_EQ(TorqueUnitName(-1), "N m");
  EXPECT_EQ(InertiaUnitName(2), "kg cm2");
  EXPECT_EQ(InertiaUnitName(4), "kg m2");
}

}  // namespace
}  // namespace kavr6
