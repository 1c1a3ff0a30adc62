// The tour: the main job through the real windows.
#pragma once

#include "adapters/qt/base/file_store.h"
#include "adapters/qt/print/qt_print_job.h"
#include "adapters/qt/serial/serial_comm.h"
#include "adapters/qt/windows/qt_desktop.h"
#include "adapters/sqlite/sqlite_table.h"
#include "apps/tour/stage.h"
#include "core/program/configurator.h"

namespace kavr6 {

/// The tour's folder is the program's directory: its ports and its motor table are its own.
class TourDesktop : public QtDesktop {
 public:
  TourDesktop(WindowBuilder build, Stage& stage) : QtDesktop(std::move(build)), stage_(stage) {}
  std::filesystem::path ProgramDirectory() const override { return stage_.Folder(); }
  void Refused(const std::string& what) override { stage_.Fail("the user cannot do this: " + what); }
  [[noreturn]] void EndProcess(int exitCode) override {
    stage_.Fail("the program has ended with exit code " + std::to_string(exitCode));
  }

 private:
  Stage& stage_;
};

class Tour {
 public:
  explicit Tour(Stage& stage);
  /// The main job, step by step.
  void Play();
  /// A picture of every window and of a box of each kind, always under the same names.
  void Photograph();

 private:
  QWidget& Main() { return stage_.Window("MainForm"); }
  /// Clicks a picture of the main screen and returns the window that it opens.
  QWidget& OpenBy(const char* picture, const char* form);

  void Start();
  // steps_setup.cpp
  void ChooseMotor();
  void DefineMotor();
  // steps_dialogs.cpp
  QWidget& OpenFromMenu(const char* button, const char* form);
  void SetVelocity();
  void SetHostCommands();
  void SetPulses();
  void SetInputsAndOutputs();
  // steps_files.cpp
  void SaveAndReopen();
  void OpenBadFile();
  void PrintReport();
  // steps_terminal.cpp
  void TalkToTheDrive();
  // steps_alarms.cpp
  void MeetAnAlarm();
  void TestTheMotor();
  void RestoreTheDrive();
  // steps_monitor.cpp
  void WatchDrive();
  // steps_wizard.cpp
  void TuneTheMotor();
  void WalkThroughWizard();
  // steps_drive.cpp
  void RefuseDownload();
  void Download();
  void Upload();
  void CompareSettings();
  void LoseTheLine();
  void FindItAgain();
  void ReadHelp();
  void ShowCredits();
  // gallery.cpp
  void ShowDark();
  void LookAtHelp(const std::string& suffix);
  void LookAtMore(const std::string& suffix);
  void LookAtWindows(const std::string& suffix);
  void LookAtBoxes();
  void LookAt(Form& form, const std::string& suffix);

  Stage& stage_;
  DriveProgram drive_;
  TourDesktop desktop_;
  SerialComm comm_;
  SqliteTable table_;
  DiskFiles files_;
  QtPrintJob print_;
  Configurator program_;
};

}  // namespace kavr6
