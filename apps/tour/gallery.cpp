#include <utility>

#include "adapters/qt/windows/style/program_style.h"
#include "apps/tour/tour.h"

namespace kavr6 {

void Tour::ShowDark() {
  stage_.Step("The same in a dark palette");
  style::PretendSystemScheme(style::Scheme::Dark);
  LookAtWindows("-dark");
}

void Tour::Photograph() {
  stage_.NameWithoutNumbers();
  desktop_.CallAfter(0.0, [this] { stage_.Picture(stage_.Window("StartForm"), "StartForm"); });
  program_.Start();
  stage_.Pause(0.2);
  stage_.Picture(Main(), "MainForm-at-start");
  stage_.Click(Main(), "Upload");
  for (const char* entry : {"MenuSaveAs", "MenuOpen"}) {
    stage_.AnswerNextFileDialog(stage_.Folder() / "as-photographed.cnf", entry);
    stage_.Command(Main(), entry);
  }
  LookAtWindows("");
  LookAtBoxes();
}

void Tour::LookAt(Form& form, const std::string& suffix) {
  form.Show();
  stage_.Pause(0.1);
  stage_.Picture(stage_.Window(form.Name()), form.Name() + suffix);
  form.Hide();
}

void Tour::LookAtHelp(const std::string& suffix) {
  for (const char* asked : {"MainForm", "IOdialog", "MotorDialog"}) {
    program_.Help.ShowForKey(asked);
    stage_.Pause(0.2);
    stage_.Picture(stage_.Window("HelpScreen"), std::string("HelpScreen-") + asked + suffix);
  }
  program_.Help.Hide();
  desktop_.CallAfter(0.1, [this, suffix] {
    stage_.Picture(stage_.Window("About"), "About" + suffix);
    stage_.Click(stage_.Window("About"), "OK");
  });
  stage_.Command(Main(), "MenuAbout");
}

/// What dialogs show when a person asks for it.
void Tour::LookAtMore(const std::string& suffix) {
  program_.PulseDirSetup.Open();
  stage_.Click(stage_.Window("PulseDirDialog"), "optQuad");
  stage_.Pause(0.1);
  stage_.Picture(stage_.Window("PulseDirDialog"), "PulseDirDialog-quadrature" + suffix);
  program_.PulseDirSetup.Cancel.Click();
  program_.MotorSetup.Open();
  stage_.Click(stage_.Window("MotorDialog"), "MoreOrLess");
  stage_.Pause(0.1);
  stage_.Picture(stage_.Window("MotorDialog"), "MotorDialog-more" + suffix);
  program_.MotorSetup.Cancel.Click();
  desktop_.CallAfter(0.6, [this, suffix] {
    stage_.Picture(stage_.Window("CompareWindow"), "CompareWindow" + suffix);
    program_.Compared.OK.Click();
  });
  const double speed = std::exchange(program_.settings.Speed, 12.5);
  stage_.Command(Main(), "MenuCompareDrive");
  program_.settings.Speed = speed;
}

/// A picture of each window, opened from the main screen.
void Tour::LookAtWindows(const std::string& suffix) {
  stage_.Pause(0.5);  // until the strip has compared
  stage_.Picture(Main(), "MainForm" + suffix);
  Summary& commands = program_.Commands;
  Form* const plain[] = {&program_.ModeMenu,
                         &program_.LastAlarms,
                         &program_.FaultPopup,
                         &program_.Terminal,
                         &commands,
                         &commands.EFcodes,
                         &commands.LimCodes,
                         &commands.IOcodes,
                         &commands.RScodes,
                         &commands.MRcodes,
                         &commands.BRcodes,
                         &commands.MoveCalculator,
                         &commands.ServoCommands,
                         &commands.ServoCommands.ControlModes,
                         &commands.ServoCommands.DefCodes,
                         &program_.LastEvents};
  for (Form* form : plain) LookAt(*form, suffix);
  LookAtHelp(suffix);
  for (SetupDialog* dialog : std::initializer_list<SetupDialog*>{
           &program_.MotorSetup, &program_.CustomMotorSetup, &program_.PulseDirSetup, &program_.VelocitySetup,
           &program_.AdvancedSetup, &program_.VTLSetup, &program_.IOSetup, &program_.EncoderSetup,
           &program_.RegenSetup}) {
    dialog->Open();
    stage_.Pause(0.05);
    stage_.Picture(stage_.Window(dialog->Name()), dialog->Name() + suffix);
    dialog->Cancel.Click();
  }
  LookAtMore(suffix);
  program_.StatusMonitor.Show();
  stage_.Pause(2.0);
  stage_.Picture(stage_.Window("ExecStatus"), "ExecStatus" + suffix);
  program_.StatusMonitor.OK.Click();
  program_.SmoothingWizard.Show();
  program_.SmoothingWizard.Start.Click();
  stage_.Pause(0.05);
  stage_.Picture(stage_.Window("Harmonizer"), "Harmonizer" + suffix);
  program_.SmoothingWizard.Cancel.Click();
  desktop_.CallAfter(0.3, [this, suffix] {
    stage_.Picture(stage_.Window("SelfTest"), "SelfTest" + suffix);
    stage_.Click(stage_.Window("SelfTest"), "StopSelfTest");
  });
  stage_.Command(Main(), "MenuSelfTest");
}

/// A box of each kind, as the program shows them.
void Tour::LookAtBoxes() {
  stage_.AnswerNextBox("Do you want to erase all the information", QMessageBox::Cancel, "box-careful");
  stage_.Command(Main(), "MenuRestore");
  const MessageBox boxes[] = {
      {.text = "Cannot download to drive: there is no comm port open.", .icon = BoxIcon::Information},
      {.text = "The drive is not responding.", .icon = BoxIcon::Question},
      {.text = "COM port 2 is not available.", .icon = BoxIcon::Exclamation},
      {.text = "The file cannot be read.", .icon = BoxIcon::Critical},
      {.text = "You have not set the load inertia.",
       .icon = BoxIcon::Question,
       .buttons = BoxButtons::YesNo}};
  const char* const names[] = {"box-information", "box-question", "box-warning", "box-error", "box-yes-no"};
  for (int i = 0; i < std::ssize(boxes); ++i) {
    const bool asks = boxes[i].buttons == BoxButtons::YesNo;
    stage_.AnswerNextBox(boxes[i].text, asks ? QMessageBox::No : QMessageBox::Ok, names[i]);
    desktop_.Ask(boxes[i]);
  }
}

}  // namespace kavr6
