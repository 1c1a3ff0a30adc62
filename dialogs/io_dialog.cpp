#include "dialogs/io_dialog.h"

#include <array>

#include "core/io_modes.h"
#include "core/numbers.h"
#include "dialogs/numeric_entry.h"

namespace kavr6 {
namespace {

/// As the limit inputs are at the end of travel; the index is the row of the list.
constexpr std::array kLimitPictures{"LimitsClosed", "LimitsOpen", "LimitsUnused"};

}  // namespace

IOdialog::IOdialog(const SetupParts& parts, MSComm& comm)
    : SetupDialog(parts, {"IOdialog", "I/O Configuration"}), comm_(comm) {
  for (TextBox* box : {&txtBrakeDelay, &txtBrakeEngage, &txtMaxAccel}) LimitEntry(*box);
  const std::initializer_list<std::pair<ChoiceControl&, Picture&>> pictures{
      {optServoClosed, picInputClosed}, {optServoOpen, picInputOpen},    {optEnableAuto, picInputBypassed},
      {chkAlarmInput, picAlarmReset},   {optCloseAlarm, picFaultCloses}, {optOpenAlarm, picFaultOpens},
      {optNoAlarm, picFaultUnused}};
  for (const auto& [choice, picture] : pictures) choice.IllustrateBy(picture);
  for (ClickableControl* brake :
       std::initializer_list<ClickableControl*>{&chkBrake, &optBrakeClose, &optBrakeOpen})
    brake->Clicked.Set([this] { ShowBrake(); });
  optBrakeClose.SetValue(true);
  ListLimits.Clicked.Set(
      [this] { picLimits.SetImage(kLimitPictures.at(static_cast<std::size_t>(ListLimits.ListIndex()))); });
  ShowHistory.Clicked.Set([this] {
    if (comm_.PortOpen()) OpenHistory();
  });
  Wiring.Clicked.Set([this] { ShowHelp(Wiring); });
}

void IOdialog::ShowBrake() {
  const bool brake = chkBrake.Value();
  picBrakeCloses.SetFaded(!brake || !optBrakeClose.Value());
  picBrakeOpens.SetFaded(!brake || !optBrakeOpen.Value());
  picBrakeRelease.SetFaded(!brake);
  picBrakeEngage.SetFaded(!brake);
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
