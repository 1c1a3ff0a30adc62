#include "help/teq_help.h"

#include <array>

namespace kavr6 {
namespace {

constexpr std::array<CommandRow, 33> kServoCommands{{
    {"AI", "alarm input setting"},
    {"AL", "alarm code read"},
    {"AM", "acceleration, maximum"},
    {"SI", "servo on input def."},
    {"AR", "alarm reset (clear fault)"},
    {"BD", "brake delay (0-32000 msec)"},
    {"BO", "brake output def."},
    {"CM", "control mode"},
    {"CP", "current, peak"},
    {"DM", "deceleration, maximum"},
    {"IC", "immediate current read"},
    {"IF", "immediate data format (D or H)"},
    {"IO", "immediate output status read"},
    {"ISX", "input status, extended I/O"},
    {"IT", "immediate temperature read"},
    {"IU", "immediate supply voltage read"},
    {"IV", "immediate velocity read"},
    {"IX", "immediate position error read"},
    {"KD", "derivative gain"},
    {"KF", "velocity feed forward gain"},
    {"KI", "integral gain"},
    {"KK", "acceleration feed forward gain"},
    {"KP", "proportional gain"},
    {"KV", "velocity feedback gain"},
    {"MO", "motion output def."},
    {"PF", "position fault tolerance (1-32000)"},
    {"PL", "positioning limit"},
    {"PT", "positioning time"},
    {"RE", "reset"},
    {"SA", "save all parameters to flash"},
    {"VM", "velocity, maximum"},
    {"AO", "alarm output def."},
    {"PP", "power up peak current"},
}};

}  // namespace

std::span<const CommandRow> ServoTextCommands() { return kServoCommands; }

TEQhelp::TEQhelp(Desktop& desktop) : CommandList(desktop, "TEQhelp", kServoCommands) {
  SetCaption("Additional TEQ Servo Commands");
  Opens(cmdControlModes, ControlModes);
  for (Button& button : cmdLimitCodes) Opens(button, DefCodes);
  OK.Clicked.Set([this] {
    ControlModes.Hide();
    DefCodes.Hide();
    Hide();
  });
}

}  // namespace kavr6
