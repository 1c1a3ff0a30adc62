#include "apps/tour/tour.h"

namespace kavr6 {

void Tour::TalkToTheDrive() {
  stage_.Step("Terminal: a command typed, its answer, and the lists behind the help");
  stage_.Command(Main(), "MenuTerminal");
  QWidget& terminal = stage_.Window("VTLterm");
  for (const char* line : {"RV", "IP", "XX"}) {
    stage_.Type(terminal, "CommandText", line);
    stage_.Press(terminal, Qt::Key_Return);
    stage_.Pause(0.2);
  }
  stage_.Check(program_.Terminal.History.Text().find("$RV$\r\nRV=") != std::string::npos,
               "the drive tells its revision");
  stage_.Picture(terminal, "terminal");
  stage_.Click(terminal, "Help");
  QWidget& list = stage_.Window("Summary");
  stage_.Check(!program_.state.LiveToolActive, "the list has taken the front and ended the session");
  stage_.Picture(list, "commands");
  for (const char* button :
       {"cmdMRcodes", "cmdRScodes", "cmdBRcodes", "cmdLimitCodes", "cmdIOcodes_0", "btnEF"})
    stage_.Click(list, button);
  for (const char* codes : {"MRcodes", "RScodes", "BRcodes", "LimCodes", "IOcodes", "EFcodes"})
    stage_.Picture(stage_.Window(codes), codes);
  stage_.Click(list, "calc");
  QWidget& calculator = stage_.Window("Calculator");
  stage_.Type(calculator, "VE", "5");
  stage_.Check(program_.Commands.MoveCalculator.DI.Caption() == "10000", "10000 steps to stop from 5 rev/s");
  stage_.Picture(calculator, "calculator");
  stage_.Click(list, "TEQservo");
  QWidget& servo = stage_.Window("TEQhelp");
  stage_.Picture(servo, "servo-commands");
  stage_.Click(servo, "cmdControlModes");
  stage_.Click(servo, "cmdLimitCodes_0");
  for (const char* codes : {"ControlModes", "DefCodes"}) stage_.Picture(stage_.Window(codes), codes);
  stage_.Click(servo, "OK");
  stage_.Click(list, "OK");
  stage_.Click(stage_.Window("BRcodes"), "OK");
  stage_.Click(calculator, "Quit");
  stage_.Click(terminal, "Quit");
  stage_.Check(!program_.Terminal.Visible() && !program_.state.LiveToolActive, "the line is free again");
  stage_.Pause(0.1);  // the drive acknowledges the end of the session
}

}  // namespace kavr6
