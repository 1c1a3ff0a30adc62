// The regen dialog.
#pragma once

#include "dialogs/setup_dialog.h"

namespace kavr6 {

/// Window "RegenDialog". A click on either option sets the dirty flag at once, even when opening the dialog
/// brings it about.
class RegenDialog : public SetupDialog {
  OptionGroup resistor_;

 public:
  RegenDialog(const SetupParts& parts);

  Frame FrameRegen{*this, "FrameRegen"};
  OptionButton optIntRes{*this, "optIntRes", resistor_};
  OptionButton optExtRes{*this, "optExtRes", resistor_};
  TextBox RegenWatts{*this, "RegenWatts"};
  TextBox RegenOhms{*this, "RegenOhms"};
  TextBox RegenSecs{*this, "RegenSecs"};
  Label lblRegenWatts{*this, "lblRegenWatts"};
  Label lblRegenOhms{*this, "lblRegenOhms"};
  Label lblRegenSecs{*this, "lblRegenSecs"};
  Picture RegenInt{*this, "RegenInt", "RegenInt"};
  Picture RegenExt{*this, "RegenExt", "RegenExt"};

 protected:
  void Fill() override;
  void Opened() override;
  void Commit() override;

 private:
  void ShowExternal(bool external);
};

}  // namespace kavr6
