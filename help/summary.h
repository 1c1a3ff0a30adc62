// The list of the drive's text commands.
#pragma once

#include "help/calculator.h"
#include "help/code_window.h"
#include "help/command_list.h"
#include "help/teq_help.h"

namespace kavr6 {

/// The rows of the window below.
std::span<const CommandRow> TextCommands();

/// Window "Summary", with the windows that it opens.
class Summary : public CommandList {
 public:
  explicit Summary(Desktop& desktop);

  Label Label9{*this, "Label9", "Additional commands for encoder feedback or RS485 multi-drop"};
  Button btnEF{*this, "btnEF"};
  ControlArray<Button> cmdIOcodes{*this, "cmdIOcodes", 4};
  Button cmdLimitCodes{*this, "cmdLimitCodes"};
  Button cmdMRcodes{*this, "cmdMRcodes"};
  Button cmdRScodes{*this, "cmdRScodes"};
  Button cmdBRcodes{*this, "cmdBRcodes"};
  Button calc{*this, "calc"};
  Button TEQservo{*this, "TEQservo", "TEQ Servo Commands..."};

  CodeWindow EFcodes{Desk(), kEFcodes};
  CodeWindow LimCodes{Desk(), kLimCodes};
  CodeWindow IOcodes{Desk(), kIOcodes};
  CodeWindow RScodes{Desk(), kRScodes};
  CodeWindow MRcodes{Desk(), kMRcodes};
  CodeWindow BRcodes{Desk(), kBRcodes};
  TEQhelp ServoCommands{Desk()};
  Calculator MoveCalculator{Desk()};

  /// Hides the code windows, but not the bit rates, nor the calculator.
  void HideAll();
};

}  // namespace kavr6
