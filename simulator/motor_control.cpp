#include "simulator/motor_control.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/alarms.h"
#include "core/io_modes.h"
#include "core/status_word.h"

namespace kavr6 {
namespace {

constexpr double kStallTime = 0.02;

consteval int AlarmMask(std::string_view monitored) {
  std::size_t bit = 0;
  while (kAlarms.at(bit).monitored != monitored) ++bit;
  return 1 << bit;
}
constexpr int kStallAlarm = AlarmMask("motor stall");
constexpr int kDisabledAlarm = AlarmMask("move while dis");
constexpr int kCwLimitAlarm = AlarmMask("CW Limit");
constexpr int kCcwLimitAlarm = AlarmMask("CCW Limit");

constexpr std::size_t kEnableInput = DriveTerminals::kX + 3;
constexpr std::size_t kAlarmResetInput = DriveTerminals::kX + 4;

// Each of these functions stands at two terminals; what is wired to either counts.
struct InputPair {
  std::size_t one;
  std::size_t other;
};
constexpr InputPair kCwJog{DriveTerminals::kX + 1, 4};
constexpr InputPair kCcwJog{DriveTerminals::kX + 2, 5};
constexpr InputPair kCwLimit{DriveTerminals::kX + 7, 6};
constexpr InputPair kCcwLimit{DriveTerminals::kX + 6, 7};

bool Has(const InputPair& pair, std::size_t input) { return input == pair.one || input == pair.other; }

}  // namespace

MotorControl::~MotorControl() {
  scheduler_.Cancel(rest_);
  scheduler_.Cancel(stall_);
}

void MotorControl::Enable() {
  if ((alarm_ & kDisablingAlarms) == 0) enabled_ = true;
}

void MotorControl::Disable() {
  enabled_ = false;
  Abort();
}

void MotorControl::RaiseAlarm(int word) {
  alarm_ = word;
  if ((alarm_ & kDisablingAlarms) != 0) Disable();
  if (AlarmRaised) AlarmRaised(alarm_);
}

void MotorControl::AddAlarm(int bits) {
  if ((alarm_ & bits) != bits) RaiseAlarm(alarm_ | bits);
}

void MotorControl::ClearAlarm() {
  if (!sticking_) alarm_ = 0;
}

int MotorControl::StatusWord() const {
  const std::pair<bool, int> bits[] = {
      {enabled_, StatusMask("Enabled")},  {(alarm_ & kDisablingAlarms) != 0, StatusMask("Fault")},
      {Moving(), StatusMask("Motion")},   {task_ != Task::None && !Jogging(), StatusMask("P2P Move")},
      {Jogging(), StatusMask("Jogging")}, {stopping_, StatusMask("Stopping")},
      {alarm_ != 0, StatusMask("Alarm")}, {task_ == Task::Home, StatusMask("Homing")},
  };
  int word = 0;
  for (const auto& [set, mask] : bits)
    if (set) word |= mask;
  return word;
}

bool MotorControl::AtLimit(double direction) const {
  const int mode = static_cast<int>(registers_["DL"]);
  if (direction == 0.0 || mode == kNotUsed) return false;
  const InputPair& pair = direction > 0.0 ? kCwLimit : kCcwLimit;
  return terminals_.Closed(pair.one, pair.other) == (mode == kLimitClosed);
}

bool MotorControl::MayTurn(double direction) {
  if (!enabled_) {
    AddAlarm(kDisabledAlarm);
    return false;
  }
  if (!AtLimit(direction)) return true;
  AddAlarm(direction > 0.0 ? kCwLimitAlarm : kCcwLimitAlarm);
  return false;
}

bool MotorControl::Begin(Task task, double direction) {
  if (task_ != Task::None || direction == 0.0 || !MayTurn(direction)) return false;
  task_ = task;
  direction_ = direction;
  turnedBack_ = false;
  began_ = profile_.At(Now()).position;
  WatchForStall();
  return true;
}

void MotorControl::Feed(double steps) {
  if (!Begin(Task::Move, steps)) return;
  profile_.Move(Now(), steps / StepsPerTurn(), registers_["VE"], registers_["AC"], registers_["DE"]);
  AwaitRest();
}

void MotorControl::FeedToSensor(double steps, const InputCondition& condition) {
  if (condition.Holds(terminals_, false)) return Feed(steps);
  if (!Begin(Task::Sensor, steps)) return;
  awaited_ = condition;
  further_ = std::abs(steps) / StepsPerTurn();
  profile_.Run(Now(), std::copysign(registers_["VE"], steps), registers_["AC"]);
}

void MotorControl::SeekHome(double steps, const InputCondition& condition) {
  if (condition.Holds(terminals_, false)) return;
  if (!Begin(Task::Home, steps)) return;
  awaited_ = condition;
  profile_.Run(Now(), std::copysign(registers_["VE"], steps), registers_["AC"]);
}

void MotorControl::Jog(double speed) {
  if (Jogging()) return ChangeSpeed(speed);
  if (Begin(Task::Jog, speed)) profile_.Run(Now(), speed, registers_["JA"]);
}

void MotorControl::ChangeSpeed(double speed) {
  if (!Jogging() || stopping_) return;
  if (!MayTurn(speed)) return Stop(registers_["AM"]);
  direction_ = speed;
  profile_.Run(Now(), speed, registers_["JA"]);
  WatchForStall();
}

void MotorControl::Stop(double rate) {
  if (task_ == Task::None) return;
  profile_.Run(Now(), 0.0, rate);
  awaited_.reset();
  stopping_ = true;
  AwaitRest();
}

void MotorControl::StopJogging() {
  if (Jogging()) Stop(registers_["JA"]);
}

void MotorControl::AwaitRest() {
  scheduler_.Cancel(rest_);
  rest_ = scheduler_.CallAfter(std::max(0.0, profile_.EndsAt() - Now()), [this] { ComeToRest(aborted_); });
}

void MotorControl::ComeToRest(bool aborted) {
  scheduler_.Cancel(rest_);
  profile_.Stand(Now());
  task_ = Task::None;
  direction_ = 0.0;
  stopping_ = aborted_ = false;
  awaited_.reset();
  if (CameToRest) CameToRest(aborted);
}

void MotorControl::Abort() {
  if (task_ != Task::None) ComeToRest(true);
}

double MotorControl::CommandedSteps() const {
  return std::round((profile_.At(Now()).position - zero_) * StepsPerTurn());
}

double MotorControl::MovedSteps() const {
  return std::round((profile_.At(Now()).position - began_) * StepsPerTurn());
}

double MotorControl::MissingSteps() const {
  return std::round((profile_.At(Now()).position - ShaftTurns() - forgotten_) * StepsPerTurn());
}

void MotorControl::SetPosition(double steps) {
  const double turns = profile_.At(Now()).position;
  zero_ = turns - steps / StepsPerTurn();
  forgotten_ = turns - ShaftTurns();
}

double MotorControl::EncoderCount() const {
  return std::round((ShaftTurns() - encoderZero_) * registers_["ER"]);
}

void MotorControl::SetEncoderCount(double count) { encoderZero_ = ShaftTurns() - count / registers_["ER"]; }

double MotorControl::ShaftSpeed() const { return stalledAt_ ? 0.0 : profile_.At(Now()).speed; }

void MotorControl::SetStalled(bool stalled) {
  if (stalled == stalledAt_.has_value()) return;
  if (stalled) {
    stalledAt_ = ShaftTurns();
    WatchForStall();
  } else {
    slip_ = profile_.At(Now()).position - *stalledAt_;
    stalledAt_.reset();
  }
}

void MotorControl::WatchForStall() {
  if (!stalledAt_) return;
  scheduler_.Cancel(stall_);
  stall_ = scheduler_.CallAfter(kStallTime, [this] {
    if (!stalledAt_ || !Moving()) return;
    Abort();
    AddAlarm(kStallAlarm);
  });
}

void MotorControl::InputChanged(std::size_t input) {
  if (awaited_ && awaited_->input == input && awaited_->Holds(terminals_, true)) SensorMet();
  LookAtLimits();
  if (input == kEnableInput && registers_["SI"] != kNotUsed) {
    if (EnabledByInput()) {
      Enable();
    } else {
      Disable();
    }
  }
  if (input == kAlarmResetInput && terminals_.High(input) == (registers_["AI"] != kAlarmReset) &&
      registers_["AI"] != kNotUsed)
    ClearAlarm();
  if (registers_[kJogInputs] != 0.0) LookAtJogInputs(input);
}

bool MotorControl::EnabledByInput() const {
  const double mode = registers_["SI"];
  return mode == kNotUsed || terminals_.High(kEnableInput) == (mode == kEnableOpen);
}

void MotorControl::SensorMet() {
  if (task_ == Task::Home) return Stop(registers_["DE"]);
  awaited_.reset();
  profile_.StopBehind(Now(), further_, registers_["DE"]);
  AwaitRest();
}

void MotorControl::LookAtLimits() {
  if (!AtLimit(direction_)) return;
  if (task_ == Task::Home && !turnedBack_ && !stopping_) {
    turnedBack_ = true;
    direction_ = -direction_;
    return profile_.Run(Now(), -profile_.LastSpeed(), registers_["AM"]);
  }
  const int alarm = direction_ > 0.0 ? kCwLimitAlarm : kCcwLimitAlarm;
  aborted_ = true;
  Stop(registers_["AM"]);
  AddAlarm(alarm);
}

// Such an input jogs while it is closed.
void MotorControl::LookAtJogInputs(std::size_t input) {
  for (const auto& [pair, sign] : {std::pair(kCwJog, 1.0), std::pair(kCcwJog, -1.0)}) {
    if (!Has(pair, input)) continue;
    if (terminals_.Closed(pair.one, pair.other)) {
      Jog(sign * registers_["JS"]);
    } else {
      StopJogging();
    }
  }
}

void MotorControl::Restart() {
  Abort();
  alarm_ = 0;
  SetPosition(0.0);
  SetEncoderCount(0.0);
  enabled_ = EnabledByInput();
}

}  // namespace kavr6
