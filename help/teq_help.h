// The list of the further text commands of servo drives.
#pragma once

#include "help/code_window.h"
#include "help/command_list.h"

namespace kavr6 {

/// The rows of the window below.
std::span<const CommandRow> ServoTextCommands();

/// Window "TEQhelp", with the windows that it opens.
class TEQhelp : public CommandList {
 public:
  explicit TEQhelp(Desktop& desktop);

  Button cmdControlModes{*this, "cmdControlModes"};
  /// They open the definitions of inputs and outputs, whatever their name says.
  ControlArray<Button> cmdLimitCodes{*this, "cmdLimitCodes", 5};

  CodeWindow ControlModes{Desk(), kControlModes};
  CodeWindow DefCodes{Desk(), kDefCodes};

 protected:
  void Load() override { CenterOnScreen(*this); }
};

}  // namespace kavr6
