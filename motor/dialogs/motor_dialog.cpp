#include "motor/dialogs/motor_dialog.h"

#include <optional>
#include <utility>
#include <vector>

#include "dialogs/numeric_entry.h"
#include "motor/dialogs/unit_list.h"
#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr const char* kMore = "More";
constexpr const char* kLess = "Less";

}  // namespace

MotorDialog::MotorDialog(const SetupParts& parts, MotorTable& table, CurrentLimits& limits)
    : SetupDialog(parts, {"MotorDialog", "Motor"}), table_(table), limits_(limits) {
  FillUnits(JUnits, InertiaUnitName);
  HoldSpecs();
  ShowMore(false);
  WireMotorChoice();
  WireRunningCurrent();
  WireIdleCurrent();
  WireLoadInertia();
  Wiring.Clicked.Set([this] { ShowHelp(Wiring); });
  limits_.CustomOnShow = [this]() -> std::optional<bool> {
    if (Desk().ActiveFormName() != Name() && !leavingCurrent_) return std::nullopt;
    return optCustom.Value();
  };
}

void MotorDialog::HoldSpecs() {
  FrameMotorSpecs.Hold(
      {&lblRatedTorque, &TorqueUnit, &lblRatedCurrent, &lblRotorInertia, &RotorInertiaUnit, &MotorMore});
  MotorMore.Hold({&lblSmoothingGain, &lblSmoothingPhase, &lblDeg, &lblrps});
  FrameOtherMotor.Hold(
      {&OtherTorque, &OtherTorqueUnit, &OtherCurrent, &OtherInertia, &OtherInertiaUnit, &OtherMore});
  OtherMore.Hold({&OtherHarmonicGain, &OtherHarmonicPhase, &OtherDeg, &OtherRPS});
}

void MotorDialog::WireMotorChoice() {
  optStandard.Clicked.Set([this] { SourceChosen(false); });
  optCustom.Clicked.Set([this] { SourceChosen(true); });
  MotorList.Clicked.Set([this] { MotorPicked(); });
  DefineNewMotor.Clicked.Set([this] {
    if (OpenEditor) OpenEditor();
  });
  MoreOrLess.Clicked.Set([this] { ShowMore(MoreOrLess.Caption() == kMore); });
}

void MotorDialog::WireRunningCurrent() {
  TextFollows(txtDriveCurrent, SliderMaxCurrent);
  txtDriveCurrent.Change.Set([this] { ShowIdleAmps(); });
  txtDriveCurrent.LostFocus.Set([this] {
    // Where another window has taken the front, this one has had it until now.
    leavingCurrent_ = true;
    RunningCurrentTyped();
    leavingCurrent_ = false;
  });
  SliderMaxCurrent.Scrolled.Set([this] { HoldRunningCurrent(); });
  SliderMaxCurrent.Change.Set([this] {
    // Once the dialog has been opened, only the user's own moves are held within the limits.
    if (!state_.MotorTouched) HoldRunningCurrent();
    TextFollows(txtDriveCurrent, SliderMaxCurrent);
  });
}

void MotorDialog::WireIdleCurrent() {
  LimitEntry(txtIdlePercent, &SliderIdleCurrent);
  txtIdlePercent.Change.Set([this] { ShowIdleAmps(); });
  SliderIdleCurrent.Change.Set([this] { TextFollows(txtIdlePercent, SliderIdleCurrent); });
  LimitEntry(IdleDelayTime, &SliderIdleDelay);
  SliderIdleDelay.Change.Set([this] { TextFollows(IdleDelayTime, SliderIdleDelay); });
  TextFollows(txtIdlePercent, SliderIdleCurrent);
  TextFollows(IdleDelayTime, SliderIdleDelay);
}

void MotorDialog::WireLoadInertia() {
  TextFollows(txtInertiaRatio, SliderInertiaRatio);
  LimitEntry(txtInertiaRatio, &SliderInertiaRatio);
  txtInertiaRatio.Change.Set([this] { InertiaEdited = true; });
  txtLoadInertia.Change.Set([this] { InertiaEdited = true; });
  SliderInertiaRatio.Change.Set([this] {
    TextFollows(txtInertiaRatio, SliderInertiaRatio);
    InertiaEdited = true;
  });
  optRatio.Clicked.Set([this] { LoadKindChosen(true); });
  optValue.Clicked.Set([this] { LoadKindChosen(false); });
}

void MotorDialog::Load() {
  SetupDialog::Load();
  Wiring.SetEnabled(static_cast<bool>(ShowHelp));
  try {
    table_.Open(Desk().ProgramDirectory());
    LoadMotorList();
    if (MotorList.Count() == 0) RaiseNoRecord();  // without a selected motor no setting can be shown or sent
    table_.MoveFirst();
    if (const std::string why = table_.LeftOut(); !why.empty())
      state_.Happened.Tell(kOwnMotorsLeftOut, ": " + why);
  } catch (const RuntimeError& error) {
    Desk().Ask({.text = "Error " + std::to_string(error.Number()) + ": " + error.what() +
                        " Can't load motor database.  The KAVR6 Configurator cannot operate without it.  "
                        "Please try re-installing the software."});
    Desk().EndProgram(1);
  }
  optStandard.SetValue(true);
}

void MotorDialog::LoadMotorList() {
  std::vector<std::string> names;
  std::vector<std::string> ratings;
  for (const MotorRow& row : table_.Overview()) {
    names.push_back(row.PartNumber);
    ratings.push_back(RatingText(row));
  }
  MotorList.SetItems(names, ratings);
  if (MotorList.Count() > 0) MotorList.SetListIndex(0);
}

void MotorDialog::SetMotorList(const std::string& name) {
  int index = 0;
  while (index < MotorList.Count() && MotorList.Item(index) != name) ++index;
  if (index < MotorList.Count()) {
    MotorList.SetListIndex(index);
  } else if (MotorList.Count() > 0) {
    MotorList.SetListIndex(0);
  }
}

void MotorDialog::MotorPicked() {
  if (!table_.Seek(MotorList.Text())) return;
  const MotorRow& row = table_.Row();
  TorqueUnit.SetCaption(TorqueUnitName(NeededWhole(row.TorqueUnit)));
  RotorInertiaUnit.SetCaption(InertiaUnitName(NeededWhole(row.InertiaUnit)));
  ShowRatedCurrent(Needed(row.Current));
  const std::pair<Label*, MotorNumber> facts[] = {
      {&lblRatedTorque, &MotorRow::Torque},
      {&lblRatedCurrent, &MotorRow::Current},
      {&lblRotorInertia, &MotorRow::Inertia},
      {&lblSmoothingGain, &MotorRow::HarmonicGain},
      {&lblSmoothingPhase, &MotorRow::HarmonicPhase},
      {&lblDeg, &MotorRow::LeadAngleDeg},
      {&lblrps, &MotorRow::LeadAngleRps},
  };
  for (const auto& [label, column] : facts) label->SetCaption(ColumnText(row.*column));
}

void MotorDialog::SourceChosen(bool custom) {
  MotorList.SetEnabled(!custom);
  DefineNewMotor.SetEnabled(custom);
  ShowRatedCurrent(custom ? settings_.RatedCurrent : Needed(table_.Row().Current));
  FrameOtherMotor.SetVisible(custom);
  FrameMotorSpecs.SetVisible(!custom);
  if (custom) ShowCustomSpecs();
}

void MotorDialog::ShowMore(bool more) {
  MotorMore.SetVisible(more);
  OtherMore.SetVisible(more);
  MoreOrLess.SetCaption(more ? kLess : kMore);
}

void MotorDialog::LoadKindChosen(bool ratio) {
  txtInertiaRatio.SetEnabled(ratio);
  SliderInertiaRatio.SetEnabled(ratio);
  txtLoadInertia.SetEnabled(!ratio);
  JUnits.SetEnabled(!ratio);
}

namespace {

/// Nothing, where the motor is in the file that stands for the table.
void TellWhatBecameOf(const std::string& name, const AppendedMotor& appended, Desktop& desk) {
  const std::string motor = "The motor \"" + name + "\"";
  if (appended.refusal)
    desk.Ask({.text = motor + " is not in the motor database and cannot be added to it.  " +
                      *appended.refusal +
                      "  It is selected all the same and can be used until the program ends.",
              .icon = BoxIcon::Exclamation});
  else if (!appended.elsewhere.empty())
    desk.Ask({.text = motor + " was not in the motor database.  It has been added to your own motors, in " +
                      PathText(appended.elsewhere) + ".",
              .icon = BoxIcon::Information});
}

}  // namespace

void AddMotorIfMissing(MotorTable& table, MotorDialog& dialog, const MotorRecord& motor) {
  if (motor.MotorName.empty()) return;
  if (table.Seek(motor.MotorName)) {
    dialog.SetMotorList(table.Row().PartNumber);
    return;
  }
  TellWhatBecameOf(motor.MotorName, table.Append(motor), dialog.Desk());
  dialog.LoadMotorList();
  dialog.SetMotorList(motor.MotorName);
}

}  // namespace kavr6
