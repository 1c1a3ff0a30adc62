#include "apps/tour/tour.h"

#include <QCoreApplication>

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
  CompareSettings();
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

}  // namespace kavr6
