// The choice of the motion control mode.
#pragma once

#include "core/drive_models.h"
#include "dialogs/pulse_dir_dialog.h"
#include "dialogs/velocity_dialog.h"
#include "dialogs/vtl_dialog.h"

namespace kavr6 {

/// Window "MotionMenu": picture buttons that lead to the dialog of a mode, or set a mode that has none. It
/// offers what the selected drive model can do.
class MotionMenu : public Form {
 public:
  MotionMenu(const SetupParts& parts, PulseDirDialog& pulseDir, VelocityDialog& velocity, VTLdialog& vtl);

  Button PulseDirMode{*this, "PulseDirMode", "Pulse && Direction Mode"};
  Button VelocityMode{*this, "VelocityMode", "Velocity (Oscillator) Mode"};
  Button VTLmode{*this, "VTLmode", "Versatile Text Language (VTL)"};
  Button WyProgram{*this, "WyProgram", "Wy Program"};
  Button ZuProgram{*this, "ZuProgram", "Zu Program"};
  Button HubProg{*this, "HubProg", "Multiaxis Zulink Hub"};
  Button Cancel{*this, "Cancel", "Cancel", Button::Role::Cancel};

  std::function<void()> SummarizeMotion;

  /// The main screen's button: the menu, or with Shift held the dialog of the present mode.
  void MotionClick();

 protected:
  void Load() override;

 private:
  void WireModes();
  void OpenDialogOfMode();
  void OfferModes();
  /// The button that stands for it on a drive of that model; null where there is none.
  Button* ButtonOfPresentMode(const DriveModel& model);
  void ShowMode();

  const Form& over_;
  DriveState& state_;
  Settings& settings_;
  PulseDirDialog& pulseDir_;
  VelocityDialog& velocity_;
  VTLdialog& vtl_;
};

}  // namespace kavr6
