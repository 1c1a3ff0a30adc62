// What a drive does with its motor: enabling, motion, end-of-travel limits, alarms, encoder.
#pragma once

#include <functional>
#include <optional>

#include "simulator/drive_terminals.h"
#include "simulator/motion_profile.h"
#include "simulator/registers.h"

namespace kavr6 {

/// A motor with nothing but inertia behind it. Where it is follows from the time; the scheduler is asked for
/// nothing but the end of a motion. Speeds and rates that a motion needs are taken from the registers when it
/// begins.
class MotorControl {
 public:
  MotorControl(Scheduler& scheduler, const Registers& registers, const DriveTerminals& terminals)
      : scheduler_(scheduler), registers_(registers), terminals_(terminals) {}
  MotorControl(const MotorControl&) = delete;
  MotorControl& operator=(const MotorControl&) = delete;
  ~MotorControl();

  /// The alarm word has become this one.
  std::function<void(int word)> AlarmRaised;
  /// A motion is over; `aborted`: an alarm or the loss of the enable has ended it.
  std::function<void(bool aborted)> CameToRest;

  bool Enabled() const { return enabled_; }
  /// Nothing while a serious alarm stands.
  void Enable();
  /// A motor that turns stops at once.
  void Disable();
  int AlarmWord() const { return alarm_; }
  /// A serious alarm disables the motor.
  void RaiseAlarm(int word);
  void ClearAlarm();
  /// The cause of the alarm does not go away: nothing clears it.
  void SetAlarmSticking(bool sticking) { sticking_ = sticking; }
  int StatusWord() const;

  // Motions. They do not begin without enable or into an end-of-travel limit, which is an alarm, and not
  // while another motion is under way.
  void Feed(double steps);
  void FeedTo(double steps) { Feed(steps - CommandedSteps()); }
  /// Turns until the condition holds, and then this much further.
  void FeedToSensor(double steps, const InputCondition& condition);
  /// Turns until the condition holds; at a limit it turns back, once.
  void SeekHome(double steps, const InputCondition& condition);
  /// Turns on at this signed speed.
  void Jog(double speed);
  /// Of a motor that jogs.
  void ChangeSpeed(double speed);
  /// Stops at this rate, or does nothing when it stands.
  void Stop(double rate);
  void StopJogging();

  bool Moving() const { return profile_.Moving(Now()); }
  bool Jogging() const { return task_ == Task::Jog; }
  /// A motion that is going to end by itself is under way.
  bool Busy() const { return stopping_ || (task_ != Task::None && task_ != Task::Jog); }

  // Where it is. Clockwise counts up.
  double CommandedSteps() const;
  /// Since the last motion began.
  double MovedSteps() const;
  /// By how much the shaft is behind.
  double MissingSteps() const;
  /// What the shaft has missed is forgotten.
  void SetPosition(double steps);
  double EncoderCount() const;
  void SetEncoderCount(double count);
  /// Of the shaft, rev/sec.
  double ShaftSpeed() const;
  double ShaftTurns() const { return stalledAt_.value_or(profile_.At(Now()).position - slip_); }

  /// A held shaft does not turn, and the drive notices soon that it should.
  void SetStalled(bool stalled);
  /// After the change of an input.
  void InputChanged(std::size_t input);
  /// Power off and on.
  void Restart();

 private:
  enum class Task { None, Move, Sensor, Home, Jog };

  double Now() const { return scheduler_.Now(); }
  double StepsPerTurn() const { return registers_[kStepsPerTurn]; }
  bool AtLimit(double direction) const;
  bool MayTurn(double direction);
  void AddAlarm(int bits);
  bool Begin(Task task, double direction);
  void AwaitRest();
  void ComeToRest(bool aborted);
  void Abort();
  void WatchForStall();
  void SensorMet();
  void LookAtLimits();
  void LookAtJogInputs(std::size_t input);
  bool EnabledByInput() const;

  Scheduler& scheduler_;
  const Registers& registers_;
  const DriveTerminals& terminals_;

  bool enabled_ = true;
  int alarm_ = 0;
  bool sticking_ = false;

  MotionProfile profile_;  // as commanded, in turns
  Task task_ = Task::None;
  bool stopping_ = false;
  bool aborted_ = false;
  bool turnedBack_ = false;
  double direction_ = 0.0;  // its sign is the way of the motion; 0: none
  double further_ = 0.0;    // turns behind the sensor
  std::optional<InputCondition> awaited_;
  Scheduler::TaskId rest_ = 0;
  Scheduler::TaskId stall_ = 0;

  std::optional<double> stalledAt_;  // where the shaft is held
  double slip_ = 0.0;                // turns that it has missed
  double forgotten_ = 0.0;           // and those of them that no longer count
  double began_ = 0.0;
  double zero_ = 0.0;         // turns at which the position is 0
  double encoderZero_ = 0.0;  // and the encoder count
};

}  // namespace kavr6
