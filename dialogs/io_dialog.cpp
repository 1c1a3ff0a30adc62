#include "dialogs/io_dialog.h"

#include "core/io_modes.h"
#include "core/numbers.h"
#include "dialogs/numeric_entry.h"

namespace kavr6 {

IOdialog::IOdialog(const SetupParts& parts, MSComm& comm)
    : SetupDialog(parts, {"IOdialog", "I/O Configuration"}), comm_(comm) {
  for (TextBox* box : {&txtBrakeDelay, &txtBrakeEngage, &txtMaxAccel}) LimitEntry(*box);
  optBrakeClose.SetValue(true);
  ShowHistory.Clicked.Set([this] {
    if (comm_.PortOpen()) OpenHistory();
  });
  Wiring.Clicked.Set([this] { ShowHelp(Wiring); });
}

void IOdialog::FillLimitList() {
  for (const std::string_view words : kLimitWords) ListLimits.AddItem(std::string(words));
  ListLimits.SetListIndex(0);
}

void IOdialog::Load() {
  SetupDialog::Load();
  Wiring.SetEnabled(static_cast<bool>(ShowHelp));
  ShowHistory.SetEnabled(static_cast<bool>(OpenHistory));
}

void IOdialog::Fill() {
  const Settings& s = settings_;
  (s.EnableMode == kNotUsed        ? optEnableAuto
   : s.EnableMode == kEnableClosed ? optServoClosed
                                   : optServoOpen)
      .SetValue(true);
  chkAlarmInput.SetValue(s.AlarmResetMode == kAlarmReset);
  (s.AlarmOutMode == kAlarmCloses  ? optCloseAlarm
   : s.AlarmOutMode == kAlarmOpens ? optOpenAlarm
                                   : optNoAlarm)
      .SetValue(true);
  if (s.BrakeMode == kBrakeCloses) optBrakeClose.SetValue(true);
  if (s.BrakeMode == kBrakeOpens) optBrakeOpen.SetValue(true);
  chkBrake.SetValue(s.BrakeMode == kBrakeCloses || s.BrakeMode == kBrakeOpens);
  txtBrakeDelay.SetText(NumberText(s.BrakeDelay));
  txtBrakeEngage.SetText(NumberText(s.BrakeEngage));
  MotionOut.Show(s.MotionOutMode);
  ListLimits.SetListIndex(
      (s.LimitMode == kLimitClosed || s.LimitMode == kLimitOpen ? s.LimitMode : kNotUsed) - 1);
  txtMaxAccel.SetText(NumberText(s.MaxAccel));
}

void IOdialog::Opened() {
  for (OptionButton* enable : {&optServoClosed, &optServoOpen, &optEnableAuto})
    if (enable->Value()) enable->Focus();
}

void IOdialog::Commit() {
  Settings& s = settings_;
  s.BrakeDelay = EntryLong(txtBrakeDelay);
  s.BrakeEngage = EntryLong(txtBrakeEngage);
  s.LimitMode = ListLimits.ListIndex() + 1;
  s.EnableMode = optServoClosed.Value() ? kEnableClosed : optServoOpen.Value() ? kEnableOpen : kNotUsed;
  s.AlarmResetMode = chkAlarmInput.Value() ? kAlarmReset : kNotUsed;
  s.AlarmOutMode = optCloseAlarm.Value() ? kAlarmCloses : optOpenAlarm.Value() ? kAlarmOpens : kNotUsed;
  s.BrakeMode = !chkBrake.Value() ? kNotUsed : optBrakeClose.Value() ? kBrakeCloses : kBrakeOpens;
  s.MotionOutMode = MotionOut.Mode();
  s.MaxAccel = EntryNumber(txtMaxAccel);
  Finish();
}

}  // namespace kavr6
