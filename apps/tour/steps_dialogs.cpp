#include "apps/tour/tour.h"

namespace kavr6 {

QWidget& Tour::OpenFromMenu(const char* button, const char* form) {
  stage_.Click(OpenBy("Motion", "MotionMenu"), button);
  stage_.Check(!program_.ModeMenu.Visible(), "the menu has gone");
  return stage_.Window(form);
}

void Tour::SetVelocity() {
  stage_.Step("Motion: velocity from the analog input, its offset measured by the drive");
  stage_.Picture(OpenBy("Motion", "MotionMenu"), "motion-menu");
  QWidget& velocity = OpenFromMenu("VelocityMode", "VelocityDialog");
  stage_.Click(velocity, "chkAnalog");
  stage_.Type(velocity, "CmdScale", "12.5");
  stage_.Click(velocity, "optMotionTach");
  stage_.Picture(velocity, "velocity");
  stage_.Click(velocity, "Advanced");
  QWidget& advanced = stage_.Window("AdvancedSettings");
  stage_.AnswerNextBox("Make sure analog input to drive is set for zero.", QMessageBox::Ok);
  stage_.Click(advanced, "AutoOffset");
  stage_.Picture(advanced, "advanced-analog");
  const std::string offset = program_.AdvancedSetup.txtCmdOffset.Text();
  stage_.Check(!offset.empty() && offset != "0", "the drive has measured " + offset + " mV");
  stage_.Click(advanced, "OK");
  stage_.Check(program_.VelocitySetup.Visible() && !program_.AdvancedSetup.Visible(), "back in the dialog");
  stage_.Click(velocity, "OK");
  stage_.Check(program_.Main.MotionDesc.Caption() == "Velocity Mode", "the mode is shown");
  stage_.Check(program_.settings.CmdScale == 12.5 && program_.settings.AnalogVelocity, "it is set");
}

void Tour::SetHostCommands() {
  stage_.Step("Motion: host commands, first with pulses, then without");
  QWidget& host = OpenFromMenu("VTLmode", "VTLdialog");
  stage_.Type(host, "ListCM", "7");
  stage_.Pause(0.1);  // the window becomes as high as its contents
  stage_.Picture(host, "host-commands-pulses");
  stage_.Pause(0.6);  // what is typed sooner is searched for together
  stage_.Type(host, "ListCM", "21");
  stage_.Click(host, "RSchar_3");
  stage_.Click(host, "chkAckNak");
  stage_.Pause(0.1);
  stage_.Picture(host, "host-commands");
  stage_.Click(host, "OK");
  stage_.Check(program_.settings.RS485Addr == "$" && program_.settings.ControlMode == 21 &&
                   program_.Main.MotionDesc.Caption() == "VTL Mode",
               "address and mode are set");
}

void Tour::SetPulses() {
  stage_.Step("Motion: back to pulses, from a quadrature encoder");
  QWidget& pulses = OpenFromMenu("PulseDirMode", "PulseDirDialog");
  stage_.Click(pulses, "optQuad");
  stage_.Type(pulses, "SPR", "12801");
  stage_.Press(pulses, Qt::Key_Tab);
  stage_.Check(program_.PulseDirSetup.SPR.Text() == "12800", "12801 steps became 12800");
  stage_.Picture(pulses, "pulse-and-direction");
  stage_.Click(pulses, "OK");
  stage_.Check(program_.Main.MotionDesc.Caption() == "Quadrature Following", "the mode is shown");
}

void Tour::SetInputsAndOutputs() {
  stage_.Step("I/O, Encoder, Regen: set side by side");
  QWidget& io = OpenBy("IO", "IOdialog");
  stage_.Click(io, "chkBrake");
  stage_.Click(io, "optMotionTach");
  stage_.Type(io, "txtBrakeDelay", "120");
  QWidget& encoder = OpenBy("Encoder", "EncoderDialog");
  stage_.Click(encoder, "optCW");
  stage_.Click(encoder, "chkStallDetect");
  QWidget& regen = OpenBy("Regen", "RegenDialog");
  stage_.Click(regen, "optExtRes");
  stage_.Type(regen, "RegenWatts", "1");
  stage_.Press(regen, Qt::Key_Tab);
  stage_.Picture(io, "io");
  stage_.Picture(encoder, "encoder");
  stage_.Picture(regen, "regen");
  for (QWidget* window : {&io, &encoder, &regen}) stage_.Click(*window, "OK");
  const Settings& s = program_.settings;
  stage_.Check(s.BrakeMode == 1 && s.BrakeDelay == 120 && s.MotionOutMode == 4, "brake and tach are set");
  stage_.Check(s.EncoderCW && s.StallDetect, "the encoder is set");
  stage_.Check(s.RegenExternal && s.RegenWatts == 50, "the external resistor is set, 1 W became 50 W");
  stage_.Picture(Main(), "all-set");
  stage_.Click(Main(), "Download");
  stage_.Check(!program_.state.Modified, "the drive has it all");
}

}  // namespace kavr6
