#include "help/summary.h"

#include <array>

namespace kavr6 {
namespace {

constexpr std::array<CommandRow, 44> kCommands{{
    {"AC", "accel rate (1-3000 rev/s/s)"},
    {"BS", "buffer status"},
    {"CC", "change current"},
    {"SS", "send string"},
    {"CT", "continue"},
    {"DE", "decel rate (1-3000 rev/s/s)"},
    {"DI", "distance (+/-16,000,000 steps)"},
    {"DL", "define limits"},
    {"DA", "Define Address (RS485)"},
    {"ED", "Encoder deadband"},
    {"FL", "feed to length"},
    {"FP", "feed to position"},
    {"FS", "feed to sensor"},
    {"ID", "immediate distance request"},
    {"IP", "immediate position request"},
    {"IS", "input status"},
    {"JA", "jog accel rate (1-3000 rev/s/s)"},
    {"JD", "jog disable"},
    {"JE", "jog enable"},
    {"JS", "jog speed (.025-50 rev/sec)"},
    {"MD", "motor disable"},
    {"ME", "motor enable"},
    {"MR", "microstep resolution"},
    {"PC", "power up current"},
    {"EF", "Encoder function"},
    {"PM", "power up mode"},
    {"PS", "pause"},
    {"RS", "request status"},
    {"RV", "revision level"},
    {"SH", "seek home"},
    {"SJ", "stop jogging"},
    {"SO", "set output"},
    {"SP", "set position"},
    {"ST", "stop"},
    {"VE", "velocity (.025-50 rev/sec)"},
    {"WI", "wait input"},
    {"WT", "wait time (.01 - 300 sec)"},
    {"ER", "Encoder resolution"},
    {"EP", "Encoder position"},
    {"IE", "immediate encoder request"},
    {"CJ", "commence jogging"},
    {"AM", "accel max (for ST, SK, limit)"},
    {"SK", "stop && kill buffer"},
    {"BR", "bit rate"},
}};

}  // namespace

std::span<const CommandRow> TextCommands() { return kCommands; }

Summary::Summary(Desktop& desktop) : CommandList(desktop, "Summary", kCommands) {
  SetCaption("VTL Commands");
  Opens(btnEF, EFcodes);
  for (Button& button : cmdIOcodes) Opens(button, IOcodes);
  Opens(cmdLimitCodes, LimCodes);
  Opens(cmdMRcodes, MRcodes);
  Opens(cmdRScodes, RScodes);
  Opens(cmdBRcodes, BRcodes);
  Opens(calc, MoveCalculator);
  TEQservo.Clicked.Set([this] { ServoCommands.Show(); });
  OK.Clicked.Set([this] {
    HideAll();
    Hide();
  });
}

void Summary::HideAll() {
  for (CodeWindow* window : {&EFcodes, &LimCodes, &IOcodes, &RScodes, &MRcodes}) window->Hide();
}

}  // namespace kavr6
