// The fields of the setup dialogs.
#include <array>

#include "help/field_help.h"

namespace kavr6 {
namespace {

constexpr FieldMeaning kMotor[] = {
    {"optStandard", "The motor is one of the list."},
    {"MotorList",
     "The motor's part number, with its rated current and torque.  Choosing one puts the running current at "
     "its "
     "rated current.  What is typed above the list leaves the motors that have all the words."},
    {"optCustom", "The motor is not in the list: its data are typed in."},
    {"DefineNewMotor", "Type in the data of a motor that is not in the list."},
    {"MoreOrLess", "Show or hide smoothing and lead angle of the motor."},
    {"txtDriveCurrent",
     "Current per phase while the motor moves.  It never goes above what motor and drive allow.", "A",
     "SliderMaxCurrent"},
    {"txtIdlePercent",
     "Current at rest, as a part of the running current.  Less keeps the motor cool, more holds harder.", "%",
     "SliderIdleCurrent"},
    {"IdleDelayTime", "Time after a move before the current goes down to the idle current.", "s",
     "SliderIdleDelay"},
    {"optRatio", "The load inertia is given as a multiple of the rotor inertia."},
    {"txtInertiaRatio", "Inertia of the load, seen from the motor shaft.", "times the rotor inertia",
     "SliderInertiaRatio"},
    {"optValue", "The load inertia is given as a value."},
    {"txtLoadInertia", "Inertia of the load, seen from the motor shaft, in the unit beside it."},
    {"JUnits", "Unit of the load inertia."},
    {"chkSmoothingOff",
     "Checked: the waveform is not corrected for this motor, and it may run less smoothly."},
    {"chkDampingOff", "Checked: the drive does not damp the motor's resonance in the middle of its speeds."},
};

constexpr FieldMeaning kEditor[] = {
    {"txtMotorName", "Name of the motor, any text."},
    {"txtRatedCurrent", "Largest current per phase, as the motor's data sheet or label tells it.", "A"},
    {"txtRatedTorque", "Holding torque at the rated current, in the unit beside it."},
    {"TorqueUnit", "Unit of the holding torque."},
    {"txtRotorInertia", "Inertia of the rotor, in the unit beside it."},
    {"JUnits", "Unit of the rotor inertia."},
    {"txtR", "Resistance of one phase, as the windings are connected.", "ohms"},
    {"txtL", "Inductance of one phase, as the windings are connected.", "mH"},
    {"txtMaxVolts", "Largest part of the supply voltage that the motor gets.", "%", "SliderMaxVolts"},
    {"txtDeg", "Largest lead angle, needed for stall prevention.", "degrees"},
    {"txtRPS", "Speed at which the lead angle has that value.", "rev/sec"},
    {"Gain",
     "Strength of the waveform correction; 0 switches it off.  The wizard finds it.",
     {},
     "SliderGain"},
    {"Phase", "Phase of the waveform correction.  The wizard finds it.", {}, "SliderPhase"},
    {"Wizard", "Find gain and phase step by step, with the motor turning."},
};

constexpr FieldMeaning kPulseSignal[] = {
    {"optPulseDir", "One input takes a pulse for each step, the other the direction."},
    {"optPulsePulse", "One input takes the steps clockwise, the other those counterclockwise."},
    {"optQuad", "Two signals in quadrature, as of an encoder: the motor follows them."},
};

constexpr FieldMeaning kPulseInputs[] = {
    {"optDir0", "The motor turns clockwise when signal A comes before B."},
    {"optDir1", "The motor turns clockwise when signal B comes before A."},
    {"SPR", "Steps for one turn of the motor.", "steps/rev"},
    {"txtStepFilterFreq",
     "Smooths the steps that come in.  Lower is smoother, and the motor follows a little later.", "Hz"},
    {"txtNoiseFilter",
     "Pulses faster than this are taken for noise.  Lower rejects more noise and limits the step rate.",
     "MHz"},
};

constexpr FieldMeaning kHost[] = {
    {"ListCM", "What the drive does after it is switched on, until a command changes it."},
    {"LstBitRate", "Speed of the serial line after power up.  The host uses the same.", "bits/s"},
    {"txtTxDelay",
     "Time that the drive waits before it answers, so that the host can turn a two wire line round.", "msec"},
    {"chkAddress",
     "Checked: each answer begins with the drive's address, so that the host knows who answers."},
    {"chkAckNak", "Checked: the drive answers every command, also where there is nothing to tell."},
    {"chkConverter", "Checked: what comes in by RS-232 goes on to drives that hang on its RS-485."},
    {"chkRedLion", "Checked: registers have addresses of three digits, as operator panels send them."},
    {"txtRS485addr", "Character by which the host calls this drive.  Each drive of a line has its own."},
    {"RSchar", "Takes this character as the drive's address."},
    {"ListPulseType", "What comes in at the STEP and DIR inputs."},
};

constexpr FieldMeaning kMotionOutput[] = {
    {"optMotionClosed", "Output Y2 is closed while the motor moves."},
    {"optMotionOpen", "Output Y2 is open while the motor moves."},
    {"optMotionOff", "Output Y2 is not used."},
    {"optMotionTach", "Output Y2 gives pulses as the motor turns."},
    {"TachPPR", "Pulses of output Y2 for one turn of the motor.", "pulses/rev"},
};

constexpr FieldMeaning kVelocity[] = {
    {"chkRunStop",
     "Checked: the motor runs while input X1 is closed.  Otherwise it runs whenever it is enabled."},
    {"chkAnalog", "Checked: the speed follows the analog input.  Otherwise it is the fixed one."},
    {"txtSpeed", "Speed of the motor.", "rev/sec"},
    {"chk2Speeds", "Checked: closing input X5 changes over to the second speed."},
    {"txtSpeed2", "Speed of the motor while input X5 is closed.", "rev/sec"},
    {"txtAccel", "How fast the speed goes up.", "rev/s/s"},
    {"txtDecel", "How fast the speed goes down.", "rev/s/s"},
    {"ListAnalogRange", "Voltages that the analog signal can have."},
    {"CmdScale", "Speed at the top of the analog range.  A negative one turns the other way.", "rev/sec"},
    {"Advanced", "Offset, deadband and filter of the analog input."},
};

constexpr FieldMeaning kAdvanced[] = {
    {"txtCmdOffset", "Voltage of the analog signal that means standstill.", "mV"},
    {"txtAnalogDeadband", "Voltages this near to standstill count as standstill.", "mV"},
    {"txtAnalogFilter", "Smooths the analog signal.  Lower is calmer, and the motor follows a little later.",
     "Hz"},
    {"AutoOffset", "Have the drive measure the offset: the signal must stand at zero."},
};

constexpr FieldMeaning kIo[] = {
    {"optServoClosed", "The motor has current while input X3 is closed."},
    {"optServoOpen", "The motor has current while input X3 is open."},
    {"optEnableAuto", "The motor has current as soon as the drive is switched on."},
    {"chkAlarmInput", "Checked: closing input X4 clears a fault.  Otherwise input X4 does not."},
    {"optCloseAlarm", "Output Y3 closes at a fault."},
    {"optOpenAlarm", "Output Y3 opens at a fault."},
    {"optNoAlarm", "Output Y3 does not tell of faults."},
    {"ShowHistory", "The last alarms of the drive that is connected."},
    {"ListLimits", "State of the limit inputs when the end of travel is reached: the motor then stops."},
    {"chkBrake", "Checked: output Y1 works a brake."},
    {"optBrakeClose", "Output Y1 closes to release the brake."},
    {"optBrakeOpen", "Output Y1 opens to release the brake."},
    {"txtBrakeDelay", "Time that the brake takes to release: the motor does not move before.", "msec"},
    {"txtBrakeEngage", "Time that the brake takes to hold: the motor keeps its current until then.", "msec"},
    {"txtMaxAccel", "How fast the motor stops at a limit and at a fault.", "rev/s/s"},
};

constexpr FieldMeaning kEncoder[] = {
    {"txtEncCounts", "Counts of the encoder for one turn of the motor: four times its lines.", "counts/turn"},
    {"optCW", "Channel A leads B when the shaft turns clockwise."},
    {"optCCW", "Channel A leads B when the shaft turns counterclockwise."},
    {"ChkSingleEnded",
     "Checked: the encoder has no inverted signals.  Noise disturbs such a one more easily."},
    {"chkStallDetect", "Checked: the drive goes into a fault when the motor does not follow."},
    {"chkCorrect",
     "Checked: the drive holds the motor back from a stall.  Not together with stall detection."},
    {"txtMaxTorque", "Largest part of the torque that stall prevention may use.", "%"},
    {"chkAttemptsFault",
     "Checked: the drive goes into a fault when a stall lasts for longer than the time beside."},
    {"txtAttempts", "Longest stall that stall prevention tries to overcome.", "msec"},
};

constexpr FieldMeaning kRegen[] = {
    {"optIntRes", "The resistor inside the drive takes the energy of a braking load."},
    {"optExtRes", "A resistor outside of the drive takes the energy of a braking load."},
    {"RegenWatts", "Power that the external resistor can take for a long time.", "watts"},
    {"RegenOhms", "Resistance of the external resistor.", "ohms"},
    {"RegenSecs", "How long the external resistor takes the full power of the clamp.", "seconds"},
};

constexpr std::array kWindows{
    WindowMeanings{"MotorDialog", kMotor},
    WindowMeanings{"EditMotor", kEditor},
    WindowMeanings{"PulseDirDialog", kPulseSignal},
    WindowMeanings{"PulseDirDialog", kPulseInputs},
    WindowMeanings{"VTLdialog", kHost},
    WindowMeanings{"VTLdialog", kPulseInputs},
    WindowMeanings{"VelocityDialog", kVelocity},
    WindowMeanings{"VelocityDialog", kMotionOutput},
    WindowMeanings{"AdvancedSettings", kAdvanced},
    WindowMeanings{"IOdialog", kIo},
    WindowMeanings{"IOdialog", kMotionOutput},
    WindowMeanings{"EncoderDialog", kEncoder},
    WindowMeanings{"RegenDialog", kRegen},
};

}  // namespace

std::span<const WindowMeanings> DialogMeanings() { return kWindows; }

}  // namespace kavr6
