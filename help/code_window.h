// Little windows that explain the codes of one command.
#pragma once

#include <array>
#include <string_view>

#include "platform/control_array.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

struct CodeTable {
  std::string_view name;  ///< of the window
  std::string_view title;
  std::string_view heading;                  ///< above the lines, often empty
  std::array<std::string_view, 16> lines{};  ///< a doubled ampersand stands for one
};

inline constexpr CodeTable kMRcodes{
    "MRcodes",
    "Microstep Resolution Codes",
    "code, steps/rev",
    {"0 = 200 (Zu-11 only)", "1 = 400 (Zu-11 only)", "3 = 2000", "4 = 5000", "5 = 10000", "6 = 12800",
     "7 = 18000", "8 = 20000", "9 = 21600", "10 = 25000", "11 = 25400", "12 = 25600", "13 = 36000",
     "14 = 50000", "15 = 50800", "16 = Zu-11 only: s/r loaded from last DI command"}};
inline constexpr CodeTable kRScodes{"RScodes",
                                    "Status Conditions",
                                    "",
                                    {"E = servo error", "M = motion in progress", "R = ready (none of above)",
                                     "T = waiting time", "W= waiting for input"}};
inline constexpr CodeTable kDefCodes{
    "DefCodes", "I/O Def. Codes", "", {"1 = active closed", "2 = active open", "3 = not used"}};
inline constexpr CodeTable kBRcodes{
    "BRcodes",
    "Serial Port Bit Rate Codes",
    "",
    {"1 = 9600 (power up value)", "2 = 19200", "3 = 38400", "4 = 57600", "5 = 115200",
     "Not all bit rates are supported by all drives and older firmware has no BR command."}};
inline constexpr CodeTable kLimCodes{
    "LimCodes", "Limit Codes", "", {"1 = normally open", "2 = normally closed", "3 = not used"}};
inline constexpr CodeTable kIOcodes{
    "IOcodes",
    "I/O Conditions",
    "",
    {"F = falling edge", "H = high (open)", "L = low (closed)", "R = rising edge"}};
inline constexpr CodeTable kControlModes{
    "ControlModes",
    "Control Modes",
    "",
    {"2 = analog torque", "7 = pulse && direction", "11 = analog velocity", "21 = point to point moves"}};
inline constexpr CodeTable kEFcodes{
    "EFcodes",
    "Encoder Functions",
    "",
    {"0 = none", "1 = static position maint", "2 = end of move correction", "3 = both"}};

/// A window that shows one table of codes.
class CodeWindow : public Form {
 public:
  CodeWindow(Desktop& desktop, const CodeTable& table);

  Label Title{*this, "Title"};
  Label Heading{*this, "Heading"};
  ControlArray<Label> line{*this, "line", 16};
  Button OK{*this, "OK", "OK", Button::Role::Default};
};

}  // namespace kavr6
