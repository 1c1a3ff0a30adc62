// The course of a motor's shaft over time, worked out when it is asked for.
#pragma once

#include <vector>

#include "platform/scheduler.h"

namespace kavr6 {

/// Stretches of constant acceleration behind one another, after which the last speed is kept. Turns, turns a
/// second, turns a second squared; seconds of any clock. Each new course begins with the position and speed
/// that the old one has at its moment. Rates and speed limits are positive.
class MotionProfile {
 public:
  struct Point {
    double position = 0.0;
    double speed = 0.0;
  };
  Point At(double time) const;
  /// The speed at which the course ends and goes on.
  double LastSpeed() const { return lastSpeed_; }
  /// When the last stretch ends.
  double EndsAt() const;
  /// Turning, or about to.
  bool Moving(double time) const { return time < EndsAt() || lastSpeed_ != 0.0; }

  /// Stands still at once.
  void Stand(double time);
  /// From standstill over a signed distance: up to `speed`, less when the distance is short, and back to 0.
  void Move(double time, double distance, double speed, double acceleration, double deceleration);
  /// To a signed speed at this rate, and on at it.
  void Run(double time, double speed, double rate);
  /// Stops exactly this far on, in the direction of turning: at this rate, or more sharply when it is near.
  void StopBehind(double time, double distance, double rate);

 private:
  struct Stretch {
    double seconds;
    double acceleration;
  };
  void Begin(double time, double lastSpeed);
  void Add(double seconds, double acceleration) { stretches_.push_back({seconds, acceleration}); }

  double start_ = 0.0;
  Point origin_;
  std::vector<Stretch> stretches_;
  double lastSpeed_ = 0.0;
};

}  // namespace kavr6
