#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "core/numbers.h"
#include "motor/motor_units.h"
#include "tests/support/dice.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

using S = Settings;

double Text15(double value) { return StrictNumber(NumberText(value)); }
double ByMagnitude(double value) { return StrictNumber(FormatByMagnitude(value)); }
double InSteps(double value, double perUnit, double least, double most) {
  return std::nearbyint(std::clamp(value * perUnit, least, most)) / perUnit;
}
template <class T>
void Keep(T& code, Long least, Long most, Long otherwise) {
  if (code < least || code > most) code = static_cast<T>(otherwise);
}
void AsTexts(S& s, std::initializer_list<double S::*> fields, double (*text)(double) = Text15) {
  for (double S::*field : fields) s.*field = text(s.*field);
}

constexpr double kMost = 6.0;   // A, of the drive model that is selected
constexpr double kRated = 1.7;  // A, of the standard motor

struct UntouchedDialogs : SceneTest {
  VelocityDialog& velocity = program.VelocitySetup;
  AdvancedSettings& advanced = program.AdvancedSetup;
  VTLdialog& vtl = program.VTLSetup;
  MotionMenu& menu = program.ModeMenu;
  Long host = kOpVtl;

  /// All that filling a motion dialog and pressing OK may change; the lists stand as they were left before.
  void OfMotion(const std::string& dialog, S& s) const {
    if (dialog == "PulseDirDialog") s.OpMode = 3, s.ControlMode = 7, Keep(s.PulseType, 1, 2, 0);
    // The field that has the focus from the beginning is cleaned; this one and that of the encoder's counts.
    if (dialog == "AdvancedSettings") s.CmdOffset = std::clamp(s.CmdOffset, -10000, 10000);
    if (dialog == "VelocityDialog") {
      s.OpMode = 3, s.ControlMode = 11, s.StepsPerRev = 20000, s.AnalogTypeFlag = true;
      s.AnalogFilter = InSteps(s.AnalogFilter, 1, -2147483648.0, 2147483647);
      AsTexts(s, {&S::Speed, &S::Speed2, &S::Accel, &S::Decel, &S::CmdScale});
      Keep(s.AnalogRange, 0, 3, velocity.ListAnalogRange.ListIndex());
    }
    if (dialog == "VTLdialog") {
      if (s.PowerUpMode != 21 && s.PowerUpMode != 22) Keep(s.PowerUpMode, 10, 18, 7);
      s.OpMode = host, s.ControlMode = s.PowerUpMode;
      if (s.PowerUpMode != 7) s.StepsPerRev = 20000;
      if (s.PowerUpMode == 7) Keep(s.PulseType, 0, 2, vtl.ListPulseType.ListIndex());
      Keep(s.BitRateCode, 1, 5, vtl.LstBitRate.ListIndex() + 1);
      s.ProtocolFlags = 1 | (s.ProtocolFlags & (2 + 4 + 16 + 32));
    }
    if (dialog == "VelocityDialog" || dialog == "IOdialog")
      Keep(s.MotionOutMode, 1, 8, s.MotionOutMode > 8 ? 4 : 3);
  }
  /// The same of the other dialogs.
  void OfParts(const std::string& dialog, S& s) const {
    if (dialog == "IOdialog") {
      Keep(s.EnableMode, 2, 3, 1), Keep(s.AlarmResetMode, 1, 1, 3), AsTexts(s, {&S::MaxAccel});
      for (auto mode : {&S::AlarmOutMode, &S::BrakeMode, &S::LimitMode}) Keep(s.*mode, 1, 2, 3);
    }
    if (dialog == "EncoderDialog") {
      s.EncoderCounts = std::clamp(s.EncoderCounts, 100, 65535);
      s.StallFaultOn = s.StallFaultOn && s.StallPrevent;
      s.StallPrevent = s.StallPrevent && !s.StallDetect;
    }
    if (dialog == "RegenDialog") AsTexts(s, {&S::RegenOhms, &S::RegenWatts, &S::RegenSecs});
    if (dialog == "EditMotor") {
      Keep(s.TorqueUnit, 0, 4, 4), Keep(s.InertiaUnit, 0, 3, 3);
      AsTexts(s, {&S::RatedTorque, &S::RotorInertia}, ByMagnitude);
      AsTexts(s, {&S::RatedCurrent, &S::MotorR, &S::MotorL});
      s.MaxVoltsPct = InSteps(s.MaxVoltsPct, 1, 10, 100);
    }
    if (dialog == "MotorDialog") {
      // Another source than the one shown last brings its rated current.
      const double rated = s.CustomMotor ? s.RatedCurrent : kRated;
      if (s.CustomMotor != program.MotorSetup.optCustom.Value()) s.RunCurrent = std::min(rated, kMost);
      const double limit = std::min(1.5 * rated, kMost);
      s.RunCurrent = InSteps(s.RunCurrent, 100, 1, 600);
      if (limit * 100 < s.RunCurrent * 100) s.RunCurrent = InSteps(limit, 100, 1, 600);
      s.IdlePercent = std::clamp(s.IdlePercent, 0, 100), s.IdleDelay = InSteps(s.IdleDelay, 100, 0, 1000);
      s.InertiaRatio = InSteps(s.InertiaRatio, 10, 0, 200), Keep(s.LoadInertiaUnit, 0, 3, 3);
      const double shown = ByMagnitude(InertiaFromKgM2(s.LoadInertia, s.LoadInertiaUnit));
      s.LoadInertia = InertiaToKgM2(shown, s.LoadInertiaUnit);
    }
  }
};

/// A record of any numbers, most of them near those that the dialogs take.
Settings AnyRecord(Dice& dice) {
  Settings s = dice.Record();
  Dice::EachField([&](auto member) {
    auto& value = s.*member;
    using T = std::decay_t<decltype(value)>;
    const int kind = dice.Roll(0, 9);
    if constexpr (std::is_same_v<T, double>)
      value = kind < 3 ? value / 3 : dice.Roll(-900, 1'000 << kind) / 711.0;
    if constexpr (std::is_same_v<T, Long> || std::is_same_v<T, Integer>) {
      if (kind < 6) value = static_cast<T>(dice.Roll(-2, 24));
      if (kind == 6) value = std::numeric_limits<T>::min();
    }
  });
  return s;
}

TEST_F(UntouchedDialogs, OkChangesNothingButWhatItMust) {
  main.ModelList.SetListIndex(2);
  const std::pair<std::function<void()>, std::vector<SetupDialog*>> dialogs[] = {
      {[&] { main.Motion.Click(), menu.PulseDirMode.Click(); }, {&program.PulseDirSetup}},
      {[&] { main.Motion.Click(), menu.VelocityMode.Click(); }, {&velocity}},
      {[&] { velocity.Open(), advanced.Open(); }, {&advanced, &velocity}},
      {[&] { main.Motion.Click(), (host == kOpVtl ? menu.VTLmode : menu.WyProgram).Click(); }, {&vtl}},
      {[&] { main.IO.Click(); }, {&program.IOSetup}},
      {[&] { main.Encoder.Click(); }, {&program.EncoderSetup}},
      {[&] { main.Regen.Click(); }, {&program.RegenSetup}},
      {[&] { main.Motor.Click(); }, {&program.MotorSetup}},
      {[&] { program.CustomMotorSetup.Open(); }, {&program.CustomMotorSetup}}};
  Dice dice;
  for (int i = 0; i < 10000; ++i) {
    const Settings record = AnyRecord(dice);
    for (const auto& [open, pressed] : dialogs) {
      settings = record;
      host = i % 2 == 0 ? kOpVtl : kOpWyProgram;
      Settings expected = record;
      for (const SetupDialog* dialog : pressed)
        OfMotion(dialog->Name(), expected), OfParts(dialog->Name(), expected);
      state.Modified = false;
      open();
      for (SetupDialog* dialog : pressed) dialog->OK.Click();
      ASSERT_TRUE(state.Modified && scene.desktop.ShownForms().size() == 1) << i;
      ASSERT_EQ(settings, expected) << pressed[0]->Name() << ' ' << i;
    }
  }
}

}  // namespace
}  // namespace kavr6
