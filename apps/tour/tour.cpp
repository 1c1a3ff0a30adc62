#include "apps/tour/tour.h"

#include <QApplication>
#include <QPalette>

#include "adapters/qt/windows/forms.h"

namespace kavr6 {

Tour::Tour(Stage& stage)
    : stage_(stage),
      drive_(stage, QCoreApplication::applicationDirPath() + "/drive_simulator"),
      desktop_(BuildWindow, stage),
      comm_(desktop_, stage.Folder() / "ports"),
      print_([this] { return desktop_.BoxParent(); }, desktop_.HelpIn(Desktop::kInPrintDialog)),
      program_({desktop_, comm_, table_, files_, print_}) {}

void Tour::Play() {
  Start();
  RefuseDownload();
  ChooseMotor();
  DefineMotor();
  SaveAndReopen();
  OpenBadFile();
  PrintReport();
  Download();
  Upload();
  SetVelocity();
  SetHostCommands();
  SetPulses();
  SetInputsAndOutputs();
  TalkToTheDrive();
  MeetAnAlarm();
  TestTheMotor();
  TuneTheMotor();
  RestoreTheDrive();
  WatchDrive();
  LoseTheLine();
  FindItAgain();
  ReadHelp();
  ShowCredits();
  ShowDark();
}

QWidget& Tour::OpenBy(const char* picture, const char* form) {
  stage_.Click(Main(), picture);
  return stage_.Window(form);
}

void Tour::Start() {
  stage_.Step("The program starts: splash, then the main screen");
  desktop_.CallAfter(0.0, [this] { stage_.Picture(stage_.Window("StartForm"), "splash"); });
  program_.Start();
  stage_.Pause(0.2);
  stage_.Check(Main().windowTitle().startsWith("KAVR6 Configurator  V"),
               "the title names the program and its version");
  stage_.Check(program_.Main.StatusLine.Caption().starts_with("COM1 open"), "COM1 is open");
  stage_.Check(program_.Main.Summary.Text(0, 0) == "Motor:", "the grid waits for its first section");
  stage_.Picture(Main(), "main-screen");
}

void Tour::ShowDark() {
  stage_.Step("The same in a dark palette");
  QPalette dark(QColor(45, 45, 48));
  dark.setColor(QPalette::Base, QColor(30, 30, 32));
  for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    dark.setColor(QPalette::Disabled, role, QColor(120, 120, 124));
  QApplication::setPalette(dark);
  LookAtWindows("dark");
}

/// A picture of each window that opens from the main screen.
void Tour::LookAtWindows(const std::string& suffix) {
  stage_.Pause(0.1);
  stage_.Picture(Main(), "main-" + suffix);
  program_.ModeMenu.Show();
  stage_.Picture(stage_.Window("MotionMenu"), "motion-menu-" + suffix);
  program_.ModeMenu.Hide();
  for (Form* form : std::initializer_list<Form*>{&program_.LastAlarms, &program_.FaultPopup}) {
    form->Show();
    stage_.Pause(0.05);
    stage_.Picture(stage_.Window(form->Name()), form->Name() + "-" + suffix);
    form->Hide();
  }
  program_.StatusMonitor.Show();
  stage_.Pause(2.0);
  stage_.Picture(stage_.Window("ExecStatus"), "status-monitor-" + suffix);
  program_.StatusMonitor.OK.Click();
  for (SetupDialog* dialog : std::initializer_list<SetupDialog*>{
           &program_.MotorSetup, &program_.CustomMotorSetup, &program_.PulseDirSetup, &program_.VelocitySetup,
           &program_.AdvancedSetup, &program_.VTLSetup, &program_.IOSetup, &program_.EncoderSetup,
           &program_.RegenSetup}) {
    dialog->Open();
    stage_.Pause(0.05);
    stage_.Picture(stage_.Window(dialog->Name()), dialog->Name() + "-" + suffix);
    dialog->Cancel.Click();
  }
  Form* const references[] = {
      &program_.Terminal, &program_.Commands,  &program_.Commands.MRcodes, &program_.Commands.MoveCalculator,
      &program_.Help,     &program_.LastEvents};
  for (Form* form : references) {
    form->Show();
    stage_.Pause(0.1);
    stage_.Picture(stage_.Window(form->Name()), form->Name() + "-" + suffix);
    form->Hide();
  }
  program_.SmoothingWizard.Show();
  program_.SmoothingWizard.Start.Click();
  stage_.Pause(0.05);
  stage_.Picture(stage_.Window("Harmonizer"), "Harmonizer-" + suffix);
  program_.SmoothingWizard.Cancel.Click();
}

}  // namespace kavr6
