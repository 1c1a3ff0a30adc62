#include "simulator/motion_profile.h"

#include <gtest/gtest.h>

namespace kavr6 {
namespace {

void ExpectAt(const MotionProfile& profile, double time, double position, double speed) {
  EXPECT_NEAR(profile.At(time).position, position, 1e-12) << "at " << time;
  EXPECT_NEAR(profile.At(time).speed, speed, 1e-12) << "at " << time;
}

// Half a turn at 0.25 rev/s with 0.125 rev/s/s up and 0.25 rev/s/s down: 2 s over 0.25 turns, 1 s over 0.125
// turns, and 0.5 s over the 0.125 turns between them; backwards.
TEST(MotionProfile, MovesInATrapezoid) {
  MotionProfile profile;
  profile.Move(10.0, -0.5, 0.25, 0.125, 0.25);
  ExpectAt(profile, 9.0, 0.0, 0.0);
  ExpectAt(profile, 11.0, -0.0625, -0.125);
  ExpectAt(profile, 12.5, -0.375, -0.25);
  ExpectAt(profile, 13.0, -0.46875, -0.125);
  EXPECT_DOUBLE_EQ(profile.EndsAt(), 13.5);
  EXPECT_TRUE(profile.Moving(13.49));
  EXPECT_FALSE(profile.Moving(13.5));
  ExpectAt(profile, 99.0, -0.5, 0.0);
}

// Ramps of 2 and 6 rev/s/s need 1/3 turn for 1 rev/s. 1/12 of a turn is a quarter of that: half the speed.
TEST(MotionProfile, DoesNotReachItsSpeedOnAShortWay) {
  MotionProfile profile;
  profile.Move(0.0, 1.0 / 12, 5.0, 2.0, 6.0);
  ExpectAt(profile, 0.25, 0.0625, 0.5);
  EXPECT_DOUBLE_EQ(profile.EndsAt(), 0.25 + 0.5 / 6);
  ExpectAt(profile, 1.0, 1.0 / 12, 0.0);
}

TEST(MotionProfile, RunsOnFromWhereItIs) {
  MotionProfile profile;
  profile.Run(0.0, 2.0, 4.0);
  ExpectAt(profile, 1.5, 2.5, 2.0);
  EXPECT_TRUE(profile.Moving(1000.0));
  profile.Run(1.5, -1.0, 2.0);  // 1 s over 1 turn to standstill, 0.5 s over 0.25 turns back
  ExpectAt(profile, 2.5, 3.5, 0.0);
  ExpectAt(profile, 5.0, 3.25 - 2.0, -1.0);
  profile.Stand(5.0);
  ExpectAt(profile, 6.0, 1.25, 0.0);
  EXPECT_FALSE(profile.Moving(5.0));
}

TEST(MotionProfile, StopsAtADistance) {
  MotionProfile profile;
  profile.Run(0.0, -2.0, 2.0);  // is 1 turn away after 1 s
  MotionProfile sharp = profile;
  profile.StopBehind(1.0, 3.0, 2.0);  // 2 turns at speed, the last one in 1 s
  ExpectAt(profile, 2.0, -3.0, -2.0);
  ExpectAt(profile, 2.5, -3.75, -1.0);
  ExpectAt(profile, 9.0, -4.0, 0.0);
  sharp.StopBehind(1.0, 0.5, 2.0);  // in 0.5 s
  ExpectAt(sharp, 1.25, -1.375, -1.0);
  ExpectAt(sharp, 9.0, -1.5, 0.0);
}

}  // namespace
}  // namespace kavr6
