// Little windows that explain the codes of one command.
#pragma once

#include <string_view>

#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

struct CodeTable {
  std::string_view name;   ///< of the window
  std::string_view title;  ///< doubled ampersands stand for one
  std::string_view lines;  ///< one below the other
};

inline constexpr CodeTable kMRcodes{
    "MRcodes", "Microstep Resolution Codes\ncode, steps/rev",
    "0 = 200 (Zu-11 only)\n1 = 400 (Zu-11 only)\n3 = 2000\n4 = 5000\n5 = 10000\n6 = 12800\n7 = 18000\n"
    "8 = 20000\n9 = 21600\n10 = 25000\n11 = 25400\n12 = 25600\n13 = 36000\n14 = 50000\n15 = 50800\n"
    "16 = Zu-11 only: s/r loaded from last DI command"};
inline constexpr CodeTable kRScodes{
    "RScodes", "Status Conditions",
    "E = servo error\nM = motion in progress\nR = ready (none of above)\nT = waiting time\n"
    "W= waiting for input"};
inline constexpr CodeTable kDefCodes{"DefCodes", "I/O Def. Codes",
                                     "1 = active closed\n2 = active open\n3 = not used"};
inline constexpr CodeTable kBRcodes{
    "BRcodes", "Serial Port Bit Rate Codes",
    "1 = 9600 (power up value)\n2 = 19200\n3 = 38400\n4 = 57600\n5 = 115200\n"
    "Not all bit rates are supported by all drives and older firmware has no BR command."};
inline constexpr CodeTable kLimCodes{"LimCodes", "Limit Codes",
                                     "1 = normally open\n2 = normally closed\n3 = not used"};
inline constexpr CodeTable kIOcodes{
    "IOcodes", "I/O Conditions",
    "F = falling edge\nH = high (open)\nL = low (closed)\nR = rising edge"};
inline constexpr CodeTable kControlModes{
    "ControlModes", "Control Modes",
    "2 = analog torque\n7 = pulse && direction\n11 = analog velocity\n21 = point to point moves"};
inline constexpr CodeTable kEFcodes{
    "EFcodes", "Encoder Functions",
    "0 = none\n1 = static position maint\n2 = end of move correction\n3 = both"};

/// A window that shows one table of codes.
class CodeWindow : public Form {
 public:
  CodeWindow(Desktop& desktop, const CodeTable& table);

  Label Title{*this, "Title"};
  Label Lines{*this, "Lines"};
  Button OK{*this, "OK", "OK", Button::Role::Default};
};

}  // namespace kavr6
