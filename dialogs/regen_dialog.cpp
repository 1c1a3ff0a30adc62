#include "dialogs/regen_dialog.h"

#include "core/numbers.h"
#include "core/regen_resistor.h"
#include "dialogs/numeric_entry.h"

namespace kavr6 {

RegenDialog::RegenDialog(const SetupParts& parts) : SetupDialog(parts, {"RegenDialog", "Regen Clamp"}) {
  FrameRegen.Hold({&optIntRes, &optExtRes, &RegenWatts, &RegenOhms, &RegenSecs, &lblRegenWatts, &lblRegenOhms,
                   &lblRegenSecs, &RegenInt, &RegenExt});
  for (TextBox* box : {&RegenWatts, &RegenOhms, &RegenSecs}) LimitEntry(*box);
  lblRegenWatts.SetCaption(NumberText(kInternalResistor.watts));
  lblRegenOhms.SetCaption(NumberText(kInternalResistor.ohms));
  lblRegenSecs.SetCaption(FormatNumber(kInternalResistor.seconds, ".0###"));
  optIntRes.SetValue(true);
  ShowExternal(false);
  for (const bool external : {false, true}) {
    (external ? optExtRes : optIntRes).Clicked.Set([this, external] {
      ShowExternal(external);
      state_.Modified = true;
    });
  }
}

void RegenDialog::ShowExternal(bool external) {
  for (Control* control : std::initializer_list<Control*>{&RegenWatts, &RegenOhms, &RegenSecs, &RegenExt})
    control->SetVisible(external);
  for (Control* control :
       std::initializer_list<Control*>{&lblRegenWatts, &lblRegenOhms, &lblRegenSecs, &RegenInt})
    control->SetVisible(!external);
}

void RegenDialog::Fill() {
  RegenWatts.SetText(NumberText(settings_.RegenWatts));
  RegenSecs.SetText(NumberText(settings_.RegenSecs));
  RegenOhms.SetText(NumberText(settings_.RegenOhms));
  (settings_.RegenExternal ? optExtRes : optIntRes).SetValue(true);
}

void RegenDialog::Opened() { (optExtRes.Value() ? optExtRes : optIntRes).Focus(); }

void RegenDialog::Commit() {
  // The texts count also while they are hidden.
  settings_.RegenExternal = optExtRes.Value();
  settings_.RegenWatts = EntryNumber(RegenWatts);
  settings_.RegenSecs = EntryNumber(RegenSecs);
  settings_.RegenOhms = EntryNumber(RegenOhms);
  Finish();
}

}  // namespace kavr6
