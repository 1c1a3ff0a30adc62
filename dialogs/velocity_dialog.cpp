#include "dialogs/velocity_dialog.h"

#include <algorithm>
#include <limits>

#include "core/analog_ranges.h"
#include "core/numbers.h"
#include "dialogs/numeric_entry.h"

namespace kavr6 {
namespace {

/// A file can bring any number; one out of range becomes the end of the range.
Long NearestLong(double value) {
  using Limits = std::numeric_limits<Long>;
  return ToLong(std::clamp<double>(value, Limits::min(), Limits::max()));
}

}  // namespace

VelocityDialog::VelocityDialog(const SetupParts& parts)
    : SetupDialog(parts, {"VelocityDialog", "Velocity Control Mode"}) {
  FrameSpeed.Hold({&txtSpeed, &lblSpeedUnit});
  FrameAnalog.Hold({&lblRange, &ListAnalogRange, &lblSpeed, &CmdScale, &lblAnalogUnits, &Advanced});
  FrameInPosition.Hold({&MotionOut.optMotionClosed, &MotionOut.optMotionOpen, &MotionOut.optMotionOff,
                        &MotionOut.optMotionTach, &MotionOut.TachPPR, &MotionOut.picMotionClosed,
                        &MotionOut.picMotionOpen, &MotionOut.picMotionOff, &MotionOut.picMotionTach});
  chkRunStop.IllustrateBy(picRunStop);
  chkAnalog.IllustrateBy(picAnalog);
  chk2Speeds.IllustrateBy(picSpeed2);
  for (TextBox* box : {&txtSpeed, &txtSpeed2, &txtAccel, &txtDecel, &CmdScale}) LimitEntry(*box);
  for (const AnalogRange& range : kAnalogRanges) ListAnalogRange.AddItem(std::string(range.listed));
  ListAnalogRange.Clicked.Set([this] { DispScaleOffset(); });
  ListAnalogRange.SetListIndex(0);
  chkAnalog.Clicked.Set([this] { ShowHideAnalog(); });
  Activate.Set([this] { ShowHideAnalog(); });
  Advanced.Clicked.Set([this] {
    if (OpenAdvanced) OpenAdvanced();
  });
}

void VelocityDialog::DispScaleOffset() {
  lblAnalogUnits.SetCaption("rev/sec at +" + std::string(AnalogRangeOf(ListAnalogRange.ListIndex()).top));
}

void VelocityDialog::ShowHideAnalog() {
  const bool analog = chkAnalog.Value();
  for (Control* control : std::initializer_list<Control*>{&FrameAnalog, &ListAnalogRange, &CmdScale,
                                                          &Advanced, &lblAnalogUnits, &lblRange, &lblSpeed})
    control->SetEnabled(analog);
  for (Control* control : std::initializer_list<Control*>{&lblSpeedUnit, &txtSpeed, &FrameSpeed})
    control->SetEnabled(!analog);
}

void VelocityDialog::Fill() {
  FillVelocityDialog(*this, settings_);
  if (PendingReplaced) PendingReplaced();
}

void VelocityDialog::Opened() { chkRunStop.Focus(); }

void VelocityDialog::Commit() {
  settings_.MotionOutMode = MotionOut.Mode();
  settings_.StepsPerRev = kFixedStepsPerRev;
  settings_.OpMode = kOpPulseOrVelocity;
  settings_.ControlMode = kControlVelocity;
  settings_.TwoSpeeds = chk2Speeds.Value();
  settings_.RunStop = chkRunStop.Value();
  settings_.AnalogVelocity = chkAnalog.Value();
  settings_.Speed2 = EntryNumber(txtSpeed2);
  settings_.Speed = EntryNumber(txtSpeed);
  settings_.Accel = EntryNumber(txtAccel);
  settings_.Decel = EntryNumber(txtDecel);
  settings_.AnalogRange = ToInteger(ListAnalogRange.ListIndex());
  settings_.CmdScale = EntryNumber(CmdScale);
  settings_.AnalogTypeFlag = true;
  settings_.AnalogDeadband = PendingDeadband;
  settings_.AnalogFilter = PendingFilter;
  settings_.CmdOffset = PendingOffset;
  ShowModeName(state_, settings_);
  Finish();
}

void FillVelocityDialog(VelocityDialog& dialog, const Settings& settings) {
  dialog.MotionOut.Show(settings.MotionOutMode);
  dialog.chk2Speeds.SetValue(settings.TwoSpeeds);
  dialog.chkAnalog.SetValue(settings.AnalogVelocity);
  dialog.chkRunStop.SetValue(settings.RunStop);
  dialog.txtSpeed.SetText(NumberText(settings.Speed));
  dialog.txtSpeed2.SetText(NumberText(settings.Speed2));
  dialog.txtAccel.SetText(NumberText(settings.Accel));
  dialog.txtDecel.SetText(NumberText(settings.Decel));
  SelectIfThere(dialog.ListAnalogRange, settings.AnalogRange);
  dialog.CmdScale.SetText(NumberText(settings.CmdScale));
  dialog.PendingOffset = settings.CmdOffset;
  dialog.PendingDeadband = settings.AnalogDeadband;
  dialog.PendingFilter = NearestLong(settings.AnalogFilter);
}

}  // namespace kavr6
