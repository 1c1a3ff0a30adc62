#include "simulator/motion_profile.h"

#include <algorithm>
#include <cmath>

namespace kavr6 {

MotionProfile::Point MotionProfile::At(double time) const {
  Point point = origin_;
  double left = std::max(0.0, time - start_);
  for (const auto& [seconds, acceleration] : stretches_) {
    const double t = std::min(left, seconds);
    point.position += (point.speed + acceleration * t / 2) * t;
    point.speed += acceleration * t;
    left -= t;
    if (t < seconds) return point;
  }
  return {point.position + lastSpeed_ * left, lastSpeed_};
}

double MotionProfile::EndsAt() const {
  double end = start_;
  for (const Stretch& stretch : stretches_) end += stretch.seconds;
  return end;
}

void MotionProfile::Begin(double time, double lastSpeed) {
  origin_ = At(time);
  start_ = time;
  stretches_.clear();
  lastSpeed_ = lastSpeed;
}

void MotionProfile::Stand(double time) {
  Begin(time, 0.0);
  origin_.speed = 0.0;
}

void MotionProfile::Move(double time, double distance, double speed, double acceleration,
                         double deceleration) {
  Stand(time);
  const double length = std::abs(distance);
  if (length == 0.0) return;
  const double rampsPerSquare = 0.5 / acceleration + 0.5 / deceleration;
  const double top = std::min(speed, std::sqrt(length / rampsPerSquare));
  const double sign = distance < 0.0 ? -1.0 : 1.0;
  Add(top / acceleration, sign * acceleration);
  Add(std::max(0.0, (length - top * top * rampsPerSquare) / top), 0.0);
  Add(top / deceleration, -sign * deceleration);
}

void MotionProfile::Run(double time, double speed, double rate) {
  Begin(time, speed);
  const double change = speed - origin_.speed;
  Add(std::abs(change) / rate, std::copysign(rate, change));
}

void MotionProfile::StopBehind(double time, double distance, double rate) {
  Begin(time, 0.0);
  const double speed = std::abs(origin_.speed);
  if (speed == 0.0 || distance <= 0.0) return Stand(time);
  const double braking = std::min(distance, speed * speed / 2 / rate);
  Add((distance - braking) / speed, 0.0);
  Add(2 * braking / speed, -std::copysign(speed * speed / 2 / braking, origin_.speed));
}

}  // namespace kavr6
