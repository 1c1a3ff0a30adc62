#include "image/image_layout.h"

#include <array>

#include "core/io_modes.h"
#include "core/numbers.h"
#include "core/regen_resistor.h"
#include "core/serial_protocol.h"
#include "image/field_kinds.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

using namespace field_kinds;
using S = Settings;
using M = MotorRecord;
using R = MotorRow;

constexpr double kNoiseScale = 15000;
constexpr Long kNoiseFilterOfZero = 2000;

// The analog filter goes as scale / (hertz / frequency + offset).
constexpr double kFilterScale = 72090;
constexpr double kFilterHertz = 1400;
constexpr double kFilterOffset = 2.2;

constexpr int kRegenTimeSteps = 4000;

// Resistor inside the drive, as words.
constexpr Long kInternalWatts{static_cast<Long>(kInternalResistor.watts)};
constexpr Long kInternalOhms{static_cast<Long>(kInternalResistor.ohms)};
constexpr Long kInternalTime{static_cast<Long>(kInternalResistor.seconds * kRegenTimeSteps)};

void WriteNoiseFilter(const ImageSource& source, Byte* at) {
  *at = ToByte(Divide(kNoiseScale, source.settings.NoiseFilter));
}

void ReadNoiseFilter(ImageReader& reader, const ImageTarget& target) {
  const Byte divisor = reader.Str2Num8();
  target.settings.NoiseFilter = divisor == 0 ? kNoiseFilterOfZero : ToLong(kNoiseScale / divisor);
}

void WriteStepFilter(const ImageSource& source, Byte* at) {
  PutWord(at, source.settings.StepFilterFreq * 10.0);
}

void ReadStepFilter(ImageReader& reader, const ImageTarget& target) {
  target.settings.StepFilterFreq = ToLong(reader.Str2Num16() / 10.0);
}

void WriteOptions(const ImageSource& source, Byte* at) {
  const Settings& s = source.settings;
  PutByte(at, (s.DampingOn ? 1 : 0) + (s.SmoothingOn ? 2 : 0) + 4 * (s.LoadInertiaUnit % 8) +
                  (s.EncoderCW ? 32 : 0) + (s.InertiaIsRatio ? 128 : 0));
}

void ReadOptions(ImageReader& reader, const ImageTarget& target) {
  Settings& s = target.settings;
  const int bits = reader.Str2Num8();
  s.DampingOn = (bits & 1) != 0;
  s.SmoothingOn = (bits & 2) != 0;
  s.LoadInertiaUnit = static_cast<Integer>(bits >> 2 & 7);
  s.EncoderCW = (bits & 32) != 0;
  s.InertiaIsRatio = (bits & 128) != 0;
}

void WriteIdleCurrent(const ImageSource& source, Byte* at) {
  PutWord(at, source.settings.IdlePercent * source.settings.RunCurrent);
}

void ReadIdleCurrent(ImageReader& reader, const ImageTarget& target) {
  Settings& s = target.settings;
  const double part = Divide(ToCurrent(reader.Str2Num16()), s.RunCurrent);
  s.IdlePercent = std::clamp<Long>(ToLong(part * 100), 0, kIdlePercentLimit);
}

void WriteStallWord(const ImageSource& source, Byte* at) {
  Settings& s = source.settings;
  // Stall prevention does not exist with pulses; the settings are made to say so.
  if (s.OpMode == kOpPulseOrVelocity && s.ControlMode == kControlPulse) s.StallPrevent = false;
  PutWord(at, Long{(s.StallDetect ? 1 : 0) + (s.StallPrevent ? 2 : 0) + (s.StallFaultOn ? 4 : 0) +
                   (s.EncoderSingleEnded ? 1024 : 0)});
}

void ReadStallWord(ImageReader& reader, const ImageTarget& target) {
  Settings& s = target.settings;
  const Long bits = reader.Str2Num16();
  s.StallDetect = (bits & 1) != 0;
  s.StallPrevent = (bits & 2) != 0;
  s.StallFaultOn = (bits & 4) != 0;
  s.EncoderSingleEnded = (bits & 1024) != 0;
}

void WriteLeadSpeedInUse(const ImageSource& source, Byte* at) {
  PutSpeed(at, InUse<&R::LeadAngleRps, &S::LeadAngleRps>(source));
}

void ReadStallSpeed(ImageReader& reader, const ImageTarget& target) {
  target.settings.StallSpeed = static_cast<float>(ToSpeed(reader.Str2Num16()));
}

void ReadStallAccel(ImageReader& reader, const ImageTarget& target) {
  target.settings.StallAccel = static_cast<float>(ToAccel(reader.Str2Num16()));
}

void WriteCmdScale(const ImageSource& source, Byte* at) {
  PutSigned(at, source.settings.CmdScale * kSpeedSteps * kMinute);
}

void ReadCmdScale(ImageReader& reader, const ImageTarget& target) {
  target.settings.CmdScale = reader.SignedStr2Num16() / kSpeedSteps / kMinute;
}

void WriteCmdOffset(const ImageSource& source, Byte* at) { PutSigned(at, source.settings.CmdOffset * 2.0); }

void ReadCmdOffset(ImageReader& reader, const ImageTarget& target) {
  target.settings.CmdOffset = ToLong(reader.SignedStr2Num16() / 2.0);
}

void WriteAnalogByte(const ImageSource& source, Byte* at) {
  PutByte(at, source.settings.AnalogRange + (source.settings.AnalogTypeFlag ? 0 : 128));
}

void ReadAnalogByte(ImageReader& reader, const ImageTarget& target) {
  const Byte bits = reader.Str2Num8();
  target.settings.AnalogRange = bits % 128;
  target.settings.AnalogTypeFlag = bits < 128;
}

void WriteControlByte(const ImageSource& source, Byte* at) {
  const Settings& s = source.settings;
  const bool packed = s.OpMode == kOpPulseOrVelocity && s.ControlMode == kControlVelocity;
  PutByte(at, !packed ? s.ControlMode
                      : kControlVelocity + (s.TwoSpeeds ? kPackedTwoSpeeds : 0) +
                            (s.RunStop ? kPackedRunStop : 0) + (s.AnalogVelocity ? 0 : kPackedFixedSpeed));
}

void ReadControlByte(ImageReader& reader, const ImageTarget& target) {
  target.settings.ControlMode = reader.Str2Num8();
  DecodeControlMode(target.settings);
}

void WritePulseByte(const ImageSource& source, Byte* at) {
  PutByte(at, std::int64_t{source.settings.PulseType} + (source.settings.DirIsCW ? 4 : 0));
}

void ReadPulseByte(ImageReader& reader, const ImageTarget& target) {
  const Byte bits = reader.Str2Num8();
  target.settings.DirIsCW = (bits & 4) != 0;
  target.settings.PulseType = bits % 4;
}

void WriteAddress(const ImageSource& source, Byte* at) {
  const std::string codes = CharacterCodes(source.settings.RS485Addr);
  if (codes.empty()) RaiseInvalidCall();
  *at = static_cast<Byte>(codes.front());
}

void ReadAddress(ImageReader& reader, const ImageTarget& target) {
  target.settings.RS485Addr = CharacterOf(reader.Str2Num8());
}

void ReadAnalogGain(ImageReader& reader, const ImageTarget& target) {
  target.settings.AnalogGain = reader.Str2Num16Signed();
}

void WriteAnalogFilter(const ImageSource& source, Byte* at) {
  PutWord(at, Divide(kFilterScale, Divide(kFilterHertz, source.settings.AnalogFilter) + kFilterOffset));
}

void ReadAnalogFilter(ImageReader& reader, const ImageTarget& target) {
  // The denominator is negative from 32769 on, and so is the frequency; it is 0 for no whole number.
  const double word = std::max<Long>(reader.Str2Num16(), 1);
  target.settings.AnalogFilter = ToLong(Divide(kFilterHertz * word, kFilterScale - kFilterOffset * word));
}

void ReadProtocol(ImageReader& reader, const ImageTarget& target) {
  target.settings.ProtocolFlags = reader.Str2Num16() & kKnownProtocolBits;
}

void ReadBitRate(ImageReader& reader, const ImageTarget& target) {
  target.settings.BitRateCode = std::clamp<Long>(reader.Str2Num16(), 1, kBitRates.size());
}

/// A word of the external resistor, or the constant of the one inside the drive.
template <auto Member, int Factor, Long Internal>
void WriteRegen(const ImageSource& source, Byte* at) {
  const Settings& s = source.settings;
  PutWord(at, s.RegenExternal ? ToLong(s.*Member * Factor) : Internal);
}

void ReadRegenTime(ImageReader& reader, const ImageTarget& target) {
  Settings& s = target.settings;
  const Long time = reader.Str2Num16();
  s.RegenSecs = static_cast<double>(time) / kRegenTimeSteps;
  s.RegenExternal = s.RegenOhms != kInternalOhms || s.RegenWatts != kInternalWatts || time != kInternalTime;
}

void WriteIdleDelay(const ImageSource& source, Byte* at) { PutWord(at, source.settings.IdleDelay / 0.001); }

void ReadIdleDelay(ImageReader& reader, const ImageTarget& target) {
  target.settings.IdleDelay = reader.Str2Num16() * 0.001;
}

void WriteARgain(const ImageSource&, Byte* at) { PutWord(at, ARgain()); }

void WriteARfreq(const ImageSource& source, Byte* at) { PutWord(at, ARfreq(source.settings, source.row)); }

void ReadARfreq(ImageReader& reader, const ImageTarget& target) {
  target.uploaded.ARfreq = reader.Str2Num16();
}

void WriteMaxVolts(const ImageSource& source, Byte* at) {
  PutWord(at, source.settings.MaxVoltsPct * kPercentSteps);
}

void WriteLeadSpeed(const ImageSource& source, Byte* at) { PutSpeed(at, source.settings.LeadAngleRps); }

void WriteMotorName(const ImageSource& source, Byte* at) { PutName(at, source.settings.MotorName); }

void ReadMotorName(ImageReader& reader, const ImageTarget& target) {
  const std::string name = ReadName(reader);
  target.settings.MotorName = name.empty() ? "custom motor" : name;
}

void WriteSelector(const ImageSource& source, Byte* at) { *at = source.settings.CustomMotor ? 1 : 0; }

void ReadSelector(ImageReader& reader, const ImageTarget& target) {
  target.settings.CustomMotor = reader.Str2Num8() == 1;
}

void WriteRowCurrent(const ImageSource& source, Byte* at) {
  // The motor's current counts in single precision wherever it is used, the product included.
  PutWord(at, double{static_cast<float>(Needed(source.row.Current)) * static_cast<float>(kCurrentSteps)});
}

void WriteRowMaxVolts(const ImageSource& source, Byte* at) {
  PutWord(at, Needed(source.row.PWMmaxPct) * kPercentSteps);
}

void WriteRowLeadSpeed(const ImageSource& source, Byte* at) {
  PutSpeed(at, NeededWhole(source.row.LeadAngleRps));
}

void WriteRowName(const ImageSource& source, Byte* at) { PutName(at, source.row.PartNoX); }

void ReadRowName(ImageReader& reader, const ImageTarget& target) {
  target.uploaded.Motor.MotorName = ReadName(reader);
}

constexpr std::string_view kInUse =
    "a copy that the drive acts on; the reader takes the motors from 88 and 124";
constexpr std::string_view kStallPlace =
    "the reader takes the place for the stall limits; lead angles are not restored";
constexpr std::string_view kWindingPlace =
    "the reader takes the place for the winding; lead angles are not restored";
constexpr std::string_view kInternalResistor =
    "the settings take the values of the resistor inside the drive";

constexpr auto kLayout = std::to_array<ImageField>({
    WordField<&S::MaxTorquePct>(0, "MaxTorquePct"),
    {2, 1, "NoiseFilter", "byte: 15000 / value", "15000 / byte; 2000 for a byte of 0", WriteNoiseFilter,
     ReadNoiseFilter, "a byte of 0 has no quotient"},
    SpeedField<&S::Speed>(3, "Speed"),
    {5, 2, "StepFilterFreq", "word: value x 10", "word / 10, rounded", WriteStepFilter, ReadStepFilter},
    {7, 1, "Options", "byte of bits, see below", "byte of bits", WriteOptions, ReadOptions},
    {8, 2, "Harmonic gain in use", "word of the selected motor", "dropped",
     WriteInUse<&R::HarmonicGain, &S::HarmonicGain>, DropWord, kInUse},
    {10, 2, "Harmonic phase in use", "word of the selected motor", "dropped",
     WriteInUse<&R::HarmonicPhase, &S::HarmonicPhase>, DropWord, kInUse},
    CurrentField<&S::RunCurrent>(12, "RunCurrent"),
    {14, 2, "Idle current", "word: IdlePercent x RunCurrent",
     "IdlePercent: word / RunCurrent, rounded, limited to 0 .. 90", WriteIdleCurrent, ReadIdleCurrent,
     "kept in whole percent"},
    SpeedField<&S::Speed2>(16, "Speed2"),
    AccelField<&S::MaxAccel>(18, "MaxAccel"),
    {20, 2, "Stall and encoder", "word of bits, see below", "word of bits", WriteStallWord, ReadStallWord},
    WordField<&S::EncoderCounts>(22, "EncoderCounts"),
    {24, 2, "Lead angle speed in use", "word of the selected motor: value x 240", "StallSpeed: word / 240",
     WriteLeadSpeedInUse, ReadStallSpeed, kStallPlace},
    {26, 2, "Lead angle in use", "word of the selected motor", "StallAccel: word / 6",
     WriteInUse<&R::LeadAngleDeg, &S::LeadAngleDeg>, ReadStallAccel, kStallPlace},
    WordField<&S::StallFaultMs>(28, "StallFaultMs"),
    {30, 2, "CmdScale", "signed word: value x 240", "signed word / 240", WriteCmdScale, ReadCmdScale},
    {32, 2, "CmdOffset", "signed word: value x 2", "signed word / 2, rounded", WriteCmdOffset, ReadCmdOffset},
    AccelField<&S::Accel>(34, "Accel"),
    AccelField<&S::Decel>(36, "Decel"),
    {38, 1, "Analog input", "byte: AnalogRange, plus 128 when AnalogTypeFlag is false",
     "AnalogRange: byte modulo 128; AnalogTypeFlag: byte below 128", WriteAnalogByte, ReadAnalogByte},
    ByteField<&S::AnalogDeadband>(39, "AnalogDeadband"),
    WordField<&S::BrakeDelay>(40, "BrakeDelay"),
    WordField<&S::BrakeEngage>(42, "BrakeEngage"),
    {44, 1, "ControlMode", "byte; 11 to 18 with the velocity options, see below", "byte, options taken out",
     WriteControlByte, ReadControlByte},
    ByteField<&S::OpMode>(45, "OpMode"),
    {46, 1, "Pulse input", "byte: PulseType, plus 4 when DirIsCW", "PulseType: byte modulo 4; DirIsCW: bit 2",
     WritePulseByte, ReadPulseByte},
    WordField<&S::StepsPerRev>(47, "StepsPerRev"),
    {49, 1, "RS485Addr", "code of the first character", "character of the code", WriteAddress, ReadAddress},
    HubCodeField<&S::EnableMode, kNotUsed>(50, "EnableMode"),
    HubCodeField<&S::AlarmResetMode, kNotUsed>(51, "AlarmResetMode"),
    HubCodeField<&S::AlarmOutMode, kNotUsed>(52, "AlarmOutMode"),
    HubCodeField<&S::BrakeMode, kNotUsed>(53, "BrakeMode"),
    HubCodeField<&S::MotionOutMode, kLastTach>(54, "MotionOutMode"),
    {55, 1, "LimitMode", "byte", "byte, limited to 1 .. 3", WriteByte<&S::LimitMode>,
     ReadCode<&S::LimitMode, kNotUsed>},
    {56, 2, "AnalogGain", "word", "signed word", WriteWord<&S::AnalogGain>, ReadAnalogGain},
    {58, 2, "AnalogFilter", "word: 72090 / (1400 / value + 2.2)",
     "1400 x word / (72090 - 2.2 x word), rounded; a word of 0 counts as 1", WriteAnalogFilter,
     ReadAnalogFilter, "kept in whole hertz"},
    WordField<&S::TxDelay>(60, "TxDelay"),
    {62, 2, "ProtocolFlags", "word", "word, the bits of 37 hexadecimal", WriteWord<&S::ProtocolFlags>,
     ReadProtocol, "other bits are not known here"},
    {64, 2, "BitRateCode", "word", "word, limited to 1 .. 5", WriteWord<&S::BitRateCode>, ReadBitRate},
    {66, 2, "RegenWatts", "word; 50 when RegenExternal is false", "word",
     WriteRegen<&S::RegenWatts, 1, kInternalWatts>, ReadWord<&S::RegenWatts>, kInternalResistor},
    {68, 2, "RegenOhms", "word; 40 when RegenExternal is false", "word",
     WriteRegen<&S::RegenOhms, 1, kInternalOhms>, ReadWord<&S::RegenOhms>, kInternalResistor},
    {70, 2, "RegenSecs", "word: value x 4000; 1250 when RegenExternal is false",
     "word / 4000; RegenExternal: false for the words 50, 40, 1250",
     WriteRegen<&S::RegenSecs, kRegenTimeSteps, kInternalTime>, ReadRegenTime, kInternalResistor},
    {72, 2, "IdleDelay", "word: value / 0.001", "word x 0.001", WriteIdleDelay, ReadIdleDelay},
    {74, 2, "Anti-resonance gain", "word: ARgain", "dropped", WriteARgain, DropWord, "a constant"},
    {76, 2, "Anti-resonance frequency", "word: ARfreq", "word, turned into the load inertia at the end",
     WriteARfreq, ReadARfreq, "the load inertia has no place of its own"},
    WordField<&S::TuneWord1>(78, "TuneWord1"),
    WordField<&S::TuneWord2>(80, "TuneWord2"),
    WordField<&S::TuneWord3>(82, "TuneWord3"),
    WordField<&S::TuneWord4>(84, "TuneWord4"),
    WordField<&S::TuneWord5>(86, "TuneWord5"),

    // The custom motor, whether it is selected or not.
    WordField<&S::HarmonicGain>(88, "HarmonicGain"),
    {90, 2, "HarmonicPhase", "word", "signed word", WriteWord<&S::HarmonicPhase>,
     ReadSigned<&S::HarmonicPhase>},
    CurrentField<&S::RatedCurrent>(92, "RatedCurrent"),
    ByteField<&S::TorqueUnit>(94, "TorqueUnit"),
    ByteField<&S::InertiaUnit>(95, "InertiaUnit"),
    FloatField<&S::RatedTorque>(96, "RatedTorque"),
    FloatField<&S::RotorInertia>(100, "RotorInertia"),
    {104, 2, "MaxVoltsPct", "word: value x 10", "word / 10", WriteMaxVolts, ReadPercent<&S::MaxVoltsPct>},
    {106, 2, "Lead angle speed", "word: LeadAngleRps x 240", "MotorR: word / 100", WriteLeadSpeed,
     ReadHundredths<&S::MotorR>, kWindingPlace},
    {108, 2, "Lead angle", "word: LeadAngleDeg", "MotorL: word / 100", WriteWord<&S::LeadAngleDeg>,
     ReadHundredths<&S::MotorL>, kWindingPlace},
    {110, 13, "MotorName", "text", "text; \"custom motor\" when it is empty", WriteMotorName, ReadMotorName,
     "the custom motor is never without a name"},
    {123, 1, "CustomMotor", "byte: 1 when true, otherwise 0", "true for a byte of 1", WriteSelector,
     ReadSelector},

    // The standard motor, whether it is selected or not.
    {124, 2, "Row: harmonic gain", "word", "word", WriteRowWord<&R::HarmonicGain>,
     ReadWord<&M::HarmonicGain, InStandardMotor>},
    {126, 2, "Row: harmonic phase", "word", "signed word", WriteRowWord<&R::HarmonicPhase>,
     ReadSigned<&M::HarmonicPhase, InStandardMotor>},
    {128, 2, "Row: current", "word: value in single precision x 100", "word / 100", WriteRowCurrent,
     ReadHundredths<&M::RatedCurrent, InStandardMotor>},
    {130, 1, "Row: TorqueUnit", "byte", "byte", WriteRowByte<&R::TorqueUnit>,
     ReadByte<&M::TorqueUnit, InStandardMotor>},
    {131, 1, "Row: InertiaUnit", "byte", "byte", WriteRowByte<&R::InertiaUnit>,
     ReadByte<&M::InertiaUnit, InStandardMotor>},
    {132, 4, "Row: Torque", "float", "float", WriteRowFloat<&R::Torque>,
     ReadFloat<&M::RatedTorque, InStandardMotor>},
    {136, 4, "Row: inertia", "float", "float", WriteRowFloat<&R::Inertia>,
     ReadFloat<&M::RotorInertia, InStandardMotor>},
    {140, 2, "Row: PWMmaxPct", "word: value x 10", "word / 10", WriteRowMaxVolts,
     ReadPercent<&M::MaxVoltsPct, InStandardMotor>},
    {142, 2, "Row: leadangle rps", "word: value x 240", "MotorR: word / 100", WriteRowLeadSpeed,
     ReadHundredths<&M::MotorR, InStandardMotor>, kWindingPlace},
    {144, 2, "Row: leadangle deg", "word", "MotorL: word / 100", WriteRowWord<&R::LeadAngleDeg>,
     ReadHundredths<&M::MotorL, InStandardMotor>, kWindingPlace},
    {146, 13, "Row: PartNoX", "text", "text", WriteRowName, ReadRowName},

    {159, 2, "Checksum", "sum of the bytes before it", "tested before anything is read", nullptr, nullptr},
});

constexpr bool WithoutGapOrOverlap(std::span<const ImageField> fields) {
  int next = 0;
  for (const ImageField& field : fields) {
    if (field.position != next || field.width < 1) return false;
    next += field.width;
  }
  return next == static_cast<int>(kImageSize);
}
static_assert(WithoutGapOrOverlap(kLayout));

}  // namespace

std::span<const ImageField> ImageLayout() { return kLayout; }

}  // namespace kavr6
