#include "config_file/cnf_layout.h"

namespace kavr6 {
namespace {

using S = Settings;

constexpr Integer kPowerUpModeBuild = 20;
constexpr Integer kLeadAngleBuild = 23;
constexpr Integer kMaxVoltsBuild = 38;

constexpr Long kLeastNoiseFilter = 100;
constexpr Long kMostNoiseFilter = 15000;
constexpr Long kNoiseFilterBelow = 2000;  // not the least one: below it the value means nothing

void UseFullVolts(Settings& s) { s.MaxVoltsPct = 100.0; }

void MendStepFilter(Settings& s) {
  if (s.StepFilterFreq == 0) s.StepFilterFreq = 1;
}

void MendNoiseFilter(Settings& s) {
  if (s.NoiseFilter < kLeastNoiseFilter) s.NoiseFilter = kNoiseFilterBelow;
  if (s.NoiseFilter > kMostNoiseFilter) s.NoiseFilter = kMostNoiseFilter;
}

const std::vector<CnfLine> kMotionAndCurrent{
    {{&S::Speed, &S::Speed2, &S::Accel, &S::Decel, &S::AnalogVelocity, &S::TwoSpeeds, &S::RunStop}},
    {{&S::RunCurrent, &S::IdlePercent, &S::IdleDelay}},
    {{&S::CustomMotor}},
};

const std::vector<CnfLine> kMotor{
    {{&S::MotorName, &S::RatedCurrent, &S::RatedTorque, &S::TorqueUnit, &S::RotorInertia, &S::InertiaUnit,
      &S::HarmonicGain, &S::HarmonicPhase}},
    {{&S::MotorR, &S::MotorL}},
    {{&S::LeadAngleRps, &S::LeadAngleDeg}, kLeadAngleBuild},
    {{&S::MaxVoltsPct}, kMaxVoltsBuild, nullptr, UseFullVolts},
};

const std::vector<CnfLine> kLoadToSteps{
    {{&S::LoadInertia, &S::LoadInertiaUnit, &S::InertiaIsRatio, &S::InertiaRatio}},
    {{&S::MaxSpeed, &S::MaxAccel, &S::SmoothingOn, &S::DampingOn}},
    {{&S::EncoderCW, &S::EncoderSingleEnded, &S::EncoderCounts, &S::MaxTorquePct}},
    {{&S::StallDetect, &S::StallPrevent, &S::StallFaultOn, &S::StallFaultMs, &S::StallSpeed, &S::StallAccel}},
    {{&S::BrakeDelay, &S::BrakeEngage}},
    {{&S::ControlMode, &S::OpMode, &S::PulseType, &S::DirIsCW, &S::StepsPerRev, &S::StepFilterFreq},
     0,
     MendStepFilter},
};

const std::vector<CnfLine> kInputsToHost{
    {{&S::EnableMode, &S::AlarmResetMode, &S::LimitMode, &S::AlarmOutMode, &S::MotionOutMode, &S::BrakeMode,
      &S::NoiseFilter},
     0,
     MendNoiseFilter},
    {{&S::AnalogRange, &S::AnalogTypeFlag, &S::AnalogDeadband}},
    {{&S::AnalogFilter, &S::AnalogGain, &S::CmdScale, &S::CmdOffset}},
    {{&S::RegenOhms, &S::RegenWatts, &S::RegenSecs, &S::RegenExternal}},
    {{&S::RS485Addr, &S::TxDelay, &S::BitRateCode, &S::ProtocolFlags}},
    {{&S::PowerUpMode}, kPowerUpModeBuild, nullptr, nullptr, true},
};

}  // namespace

const std::vector<CnfBlock>& CnfLayout() {
  using Of = CnfBlock::Of;
  static const std::vector<CnfBlock> layout{
      {Of::Settings, kMotionAndCurrent}, {Of::Settings, kMotor}, {Of::Row, kMotor},
      {Of::Settings, kLoadToSteps},      {Of::Port, {}},         {Of::Settings, kInputsToHost},
  };
  return layout;
}

}  // namespace kavr6
