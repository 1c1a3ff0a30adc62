#include "core/settings_fields.h"

#include <algorithm>

namespace kavr6 {
namespace {

// Name and member from one word, so that they cannot differ.
#define FIELD(name) \
  NamedField { #name, &Settings::name }

constexpr NamedField kFields[] = {
    FIELD(RatedCurrent),   FIELD(RatedTorque),    FIELD(RotorInertia),   FIELD(MaxVoltsPct),
    FIELD(MotorR),         FIELD(MotorL),         FIELD(MotorName),      FIELD(HarmonicGain),
    FIELD(HarmonicPhase),  FIELD(TorqueUnit),     FIELD(InertiaUnit),    FIELD(LeadAngleDeg),
    FIELD(LeadAngleRps),   FIELD(ControlMode),    FIELD(PowerUpMode),    FIELD(CmdScale),
    FIELD(AnalogGain),     FIELD(PulseType),      FIELD(DirIsCW),        FIELD(OpMode),
    FIELD(EncoderCW),      FIELD(MaxTorquePct),   FIELD(EncoderCounts),  FIELD(EncoderSingleEnded),
    FIELD(StallDetect),    FIELD(StallPrevent),   FIELD(StallFaultOn),   FIELD(StallFaultMs),
    FIELD(StallSpeed),     FIELD(StallAccel),     FIELD(StepsPerRev),    FIELD(RegenOhms),
    FIELD(RegenWatts),     FIELD(RegenSecs),      FIELD(RegenExternal),  FIELD(AnalogFilter),
    FIELD(SpareLong),      FIELD(IdleDelay),      FIELD(StepFilterFreq), FIELD(NoiseFilter),
    FIELD(RunCurrent),     FIELD(IdlePercent),    FIELD(LoadInertia),    FIELD(LoadInertiaUnit),
    FIELD(InertiaRatio),   FIELD(InertiaIsRatio), FIELD(CustomMotor),    FIELD(SmoothingOn),
    FIELD(DampingOn),      FIELD(MaxAccel),       FIELD(MaxSpeed),       FIELD(Speed),
    FIELD(Accel),          FIELD(Decel),          FIELD(TwoSpeeds),      FIELD(RunStop),
    FIELD(AnalogVelocity), FIELD(Speed2),         FIELD(CmdOffset),      FIELD(AnalogTypeFlag),
    FIELD(AnalogRange),    FIELD(AnalogDeadband), FIELD(BrakeDelay),     FIELD(BrakeEngage),
    FIELD(RS485Addr),      FIELD(EnableMode),     FIELD(AlarmResetMode), FIELD(AlarmOutMode),
    FIELD(BrakeMode),      FIELD(MotionOutMode),  FIELD(LimitMode),      FIELD(TxDelay),
    FIELD(ProtocolFlags),  FIELD(BitRateCode),    FIELD(TuneWord1),      FIELD(TuneWord2),
    FIELD(TuneWord3),      FIELD(TuneWord4),      FIELD(TuneWord5)};

#undef FIELD

}  // namespace

std::span<const NamedField> SettingsFields() { return kFields; }

std::string_view NameOf(const SettingsField& field) {
  return std::find_if(std::begin(kFields), std::end(kFields),
                      [&](const NamedField& named) { return named.member == field; })
      ->name;
}

}  // namespace kavr6
