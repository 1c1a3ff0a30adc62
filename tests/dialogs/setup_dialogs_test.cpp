#include "tests/dialogs/setup_dialogs.h"

#include <functional>
#include <tuple>

#include "core/numbers.h"
#include "dialogs/numeric_entry.h"

namespace kavr6 {
namespace {

using SetupDialogsTest = SetupDialogs;
using S = Settings;

struct Edit {
  const char* way;
  const char* script;
  void (*change)(S&);
  int row;
  const char* summary;
};
const Edit kEdits[] = {
    {"PulseDirMode", "optQuad optDir1 optPulsePulse SPR=203.6 txtStepFilterFreq=12000 txtNoiseFilter=0.7",
     [](S& s) {
       s.PulseType = s.DirIsCW = 1, s.StepsPerRev = 204, s.StepFilterFreq = 10000, s.NoiseFilter = 714;
     },
     4, "Mode: CW/CCW Pulse 204 "},
    {"VelocityMode",
     "chkRunStop chk2Speeds optMotionTach TachPPR=3 txtSpeed=12.25x txtSpeed2=0 txtAccel= txtDecel=1e9 "
     "chkAnalog ListAnalogRange=2 CmdScale=-3.14159",
     [](S& s) {
       s.ControlMode = 11, s.StepsPerRev = 20000, s.RunStop = false, s.TwoSpeeds = s.AnalogVelocity = true;
       s.MotionOutMode = 7, s.Speed = 12.25, s.Speed2 = 0.0125, s.Accel = 0.5, s.Decel = 5460;
       s.AnalogRange = 2, s.CmdScale = -3.142;
     },
     4, "Mode: Velocity Mode 20000 -3.142"},
    {"VTLmode",
     "chkAddress chkRedLion RSchar(5) ListCM=0 optDir1 LstBitRate=4 ListPulseType=2 txtTxDelay=40000 SPR=0 "
     "txtStepFilterFreq=9999 txtNoiseFilter=99",
     [](S& s) {
       s.OpMode = 2, s.PowerUpMode = 7, s.ProtocolFlags = 35, s.RS485Addr = "&", s.DirIsCW = true;
       s.BitRateCode = 5, s.PulseType = 2, s.TxDelay = 32000, s.StepsPerRev = 200;
       s.StepFilterFreq = 2500, s.NoiseFilter = 15000;
     },
     4, "Mode: VTL Mode 200 Address"},
    {"VTLmode", "chkAckNak chkConverter RSchar(31) ListCM=0 txtStepFilterFreq=5 SPR=400 ListCM=5",
     [](S& s) {
       s.OpMode = 2, s.PowerUpMode = s.ControlMode = 14, s.ProtocolFlags = 21, s.RS485Addr = "@";
       s.StepsPerRev = 20000;
     },
     4, "Mode: VTL Mode 20000 Address"},
    {"IO",
     "optServoClosed chkAlarmInput optOpenAlarm chkBrake optBrakeOpen optMotionClosed ListLimits=1 "
     "txtBrakeDelay=1.5 txtBrakeEngage=3.5 txtMaxAccel=2.5",
     [](S& s) {
       s.EnableMode = s.AlarmOutMode = s.BrakeMode = s.MotionOutMode = s.LimitMode = s.BrakeDelay = 2;
       s.AlarmResetMode = 1, s.BrakeEngage = 4, s.MaxAccel = 3;
     },
     12, "Dedicated I/O: Fault Out Alarm In"},
    {"Encoder",
     "optCW ChkSingleEnded chkStallDetect chkCorrect chkAttemptsFault txtEncCounts=99 txtMaxTorque= "
     "txtAttempts=12abc",
     [](S& s) {
       s.EncoderCW = s.EncoderSingleEnded = s.StallPrevent = s.StallFaultOn = true;
       s.EncoderCounts = 100, s.MaxTorquePct = 10, s.StallFaultMs = 12;
     },
     20, "Encoder: 100 "},
    {"Regen", "optExtRes RegenOhms=x RegenWatts=1e300 RegenSecs=0.1",
     [](S& s) { s.RegenExternal = true, s.RegenOhms = 5, s.RegenWatts = 1000, s.RegenSecs = 0.1; }, 8,
     "Regen resistor (external) 5 1000"}};

TEST_F(SetupDialogsTest, CancelLeavesTheRecordAndOkTakesWhatWasEdited) {
  for (const Edit& edit : kEdits) {
    InitVars(settings);
    Settings expected = settings;
    for (const char* end : {"Cancel", "OK"}) {
      const bool viaMenu = main.Find(edit.way) == nullptr;
      Do(main, viaMenu ? "Motion" : edit.way);
      if (viaMenu) Do(menu, edit.way);
      state.Modified = false;
      const Form& dialog = *scene.desktop.ShownForms().back();
      Do(dialog, edit.script);
      EXPECT_TRUE(settings == expected && state.Modified == (&dialog == &regen)) << edit.way;
      Do(dialog, end);
      if (*end == 'O') edit.change(expected);
      EXPECT_TRUE(settings == expected && Shown().empty()) << edit.way << end;
    }
    EXPECT_TRUE(state.Modified);
    std::string shown = main.Summary.Text(edit.row, 0);
    for (const int row : {1, 2}) shown += " " + main.Summary.Text(edit.row + row, 0);
    EXPECT_EQ(shown, edit.summary);
  }
}

TEST_F(SetupDialogsTest, LeftFieldShowsTheNearestNumberItTakes) {
  settings.PowerUpMode = 7;
  settings.AnalogVelocity = true;
  // What is typed and what then stands there, in turn.
  const std::tuple<SetupDialog*, TextBox*, const char*> cases[] = {
      {&pulse, &pulse.SPR, "201 200 51200 51200 none 200"},
      {&vtl, &vtl.txtNoiseFilter, "0.5 0.5 6 5 20 15 none 0.1"},
      {&vtl, &vtl.txtTxDelay, "12abc 12"},
      {&velocity, &velocity.CmdScale, "none 0.000"}};
  for (const auto& [dialog, box, entries] : cases) {
    dialog->Open();
    std::istringstream words(entries);
    for (std::string typed, text; words >> typed >> text;) {
      box->Type(typed);
      EXPECT_EQ(box->Text(), typed) << "while the field has the focus";
      dialog->Cancel.TabTo();
      EXPECT_EQ(box->Text(), text) << box->Name() << ' ' << typed;
    }
  }
}

TEST_F(SetupDialogsTest, AnyTextEndsWithinTheLimits) {
  for (SetupDialog* dialog :
       std::vector<SetupDialog*>{&pulse, &velocity, &advanced, &vtl, &io, &encoder, &regen}) {
    for (const char* text :
         {"", "-", "abc", "-1e300", "1e999", "63.9", "7.77777", "\uFF11\uFF12", "1,5", "0x40", " \t7\r\n"}) {
      settings.PowerUpMode = 7;
      settings.RegenExternal = true;
      dialog->Open();
      for (Control* control : dialog->Controls()) {
        auto* const box = dynamic_cast<TextBox*>(control);
        if (box == nullptr) continue;
        if (!box->Usable()) velocity.chkAnalog.Click();
        box->Type(text);
        dialog->OK.TabTo();
        if (box == &vtl.txtRS485addr) continue;
        const EntryLimits& limits = LimitsOf(*box);
        const double left = StrictNumber(box->Text());
        EXPECT_EQ(ClampEntry(box->Text(), limits.min, limits.max), left) << box->Name() << text;
        EXPECT_EQ(StrictNumber(CleanEntry(box->Text(), limits)), left) << box->Name() << text;
      }
      dialog->OK.Click();
      EXPECT_TRUE(dialog != &vtl || settings.RS485Addr == text);
    }
  }
}

TEST_F(SetupDialogsTest, WhatIsOfferedFollowsTheChoices) {
  const std::tuple<SetupDialog&, const char*, const char*, const char*, bool (Control::*)() const> cases[] = {
      {velocity, "chkAnalog",
       "FrameAnalog ListAnalogRange CmdScale Advanced lblAnalogUnits lblRange lblSpeed ",
       "lblSpeedUnit txtSpeed FrameSpeed ", &Control::Enabled},
      {pulse, "optQuad", "FrameDir ", "", &Control::Visible},
      {vtl, "ListCM=0", "FramePulseType FrameSPR FrameStepFilter FrameNoiseFilter ", "", &Control::Visible},
      {regen, "optExtRes", "RegenWatts RegenOhms RegenSecs RegenExt ",
       "lblRegenWatts lblRegenOhms lblRegenSecs RegenInt ", &Control::Visible}};
  for (const auto& [dialog, choice, with, without, shown] : cases) {
    dialog.Open();
    const std::string all = std::string(with) + without;
    EXPECT_EQ(Which(dialog, all, shown), without);
    Do(dialog, choice);
    EXPECT_EQ(Which(dialog, all, shown), with);
    dialog.OK.Click();
    dialog.Open();
    EXPECT_EQ(Which(dialog, all, shown), with);
    Do(dialog, "Cancel");
  }
}

TEST_F(SetupDialogsTest, PendingValuesLiveFromFillToOk) {
  settings.AnalogVelocity = true;
  settings.AnalogFilter = 2.5;
  const std::tuple<const char*, const char*, const char*, Long> cases[] = {
      {"0 5 2", "txtCmdOffset=2.5 OK", "", 0},
      {"2 5 2", "txtCmdOffset=99 Cancel", "Cancel", 0},
      {"0 5 2", "txtCmdOffset=-20000 OK", "OK", -10000},
      {"-10000 5 2", "OK", "OK", -10000}};
  for (const auto& [texts, script, end, offset] : cases) {
    if (!velocity.Visible()) velocity.Open();
    velocity.Advanced.Click();
    EXPECT_EQ(advanced.txtCmdOffset.Text() + " " + advanced.txtAnalogDeadband.Text() + " " +
                  advanced.txtAnalogFilter.Text(),
              texts);
    Do(advanced, script);
    Do(velocity, end);
    EXPECT_EQ(settings.CmdOffset, offset);
    EXPECT_EQ(state.Modified, offset != 0);
  }
}

TEST_F(SetupDialogsTest, OddCornersOfInputsEncoderAndRegen) {
  settings.BrakeMode = 2;
  for (const char* script : {"chkBrake OK", "OK"}) {
    io.Open();
    Do(io, script);
    EXPECT_TRUE(settings.BrakeMode == 3 && io.optBrakeOpen.Value());
  }

  settings.EncoderCounts = 4001;
  const std::tuple<const char*, const char*, const char*, bool> encoders[] = {
      {"txtEncCounts=8000 chkCorrect chkAttemptsFault chkStallDetect optCW", "counts/turn (1000.25 lines)",
       "DC7ba", true},
      {"txtEncCounts=9000 optCCW", "counts/turn (2000 lines)", "DC7ab", false}};
  for (const auto& [script, lines, picture, hard] : encoders) {
    encoder.Open();
    EXPECT_EQ(encoder.lblLines.Caption(), lines);
    EXPECT_FALSE(encoder.chkAttemptsFault.Value());
    Do(encoder, script);
    EXPECT_EQ(encoder.lblLines.Caption() + encoder.DC7encpic.Image(), std::string(lines) + picture);
    encoder.OK.Click();
    EXPECT_TRUE(settings.StallDetect && !settings.StallPrevent && settings.StallFaultOn == hard);
  }

  settings.RegenOhms = 2;  // below what the field takes
  for (const bool external : {false, true, true, false}) {
    const bool other = external != regen.optExtRes.Value();
    settings.RegenExternal = external;
    state.Modified = false;
    regen.Open();
    EXPECT_EQ(state.Modified, other);
    regen.OK.Click();
    EXPECT_EQ(settings.RegenOhms, 2);
  }
}

}  // namespace
}  // namespace kavr6
