// Plays the main job through the real windows, without a person, and leaves pictures of it.
// Usage: tour [FOLDER]
#include <QApplication>
#include <QElapsedTimer>
#include <QPalette>
#include <QTimer>
#include <iostream>

#include "adapters/qt/forms.h"
#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/serial/serial_comm.h"
#include "adapters/sqlite/sqlite_table.h"
#include "apps/tour/stage.h"
#include "core/configurator.h"

namespace kavr6 {
namespace {

/// The tour's folder is the program's directory: its ports and its motor table are its own.
class TourDesktop : public QtDesktop {
 public:
  TourDesktop(WindowBuilder build, Stage& stage) : QtDesktop(std::move(build)), stage_(stage) {}
  std::filesystem::path ProgramDirectory() const override { return stage_.Folder(); }
  [[noreturn]] void EndProgram(int exitCode) override {
    stage_.Fail("the program has ended with exit code " + std::to_string(exitCode));
  }

 private:
  Stage& stage_;
};

class Tour {
 public:
  explicit Tour(Stage& stage)
      : stage_(stage),
        drive_(stage, QCoreApplication::applicationDirPath() + "/drive_simulator"),
        desktop_(BuildWindow, stage),
        comm_(desktop_, stage.Folder() / "ports"),
        program_(desktop_, comm_, table_) {}

  void Play() {
    Start();
    Download();
    Upload();
    LoseTheLine();
    FindItAgain();
    ShowCredits();
    ShowDark();
  }

 private:
  QWidget& Main() { return stage_.Window("MainForm"); }
  void Start();
  void Download();
  void Upload();
  void LoseTheLine();
  void FindItAgain();
  void ShowCredits();
  void ShowDark();

  Stage& stage_;
  DriveProgram drive_;
  TourDesktop desktop_;
  SerialComm comm_;
  SqliteTable table_;
  Configurator program_;
};

void Tour::Start() {
  stage_.Step("The program starts: splash, then the main screen");
  QTimer::singleShot(0, [this] { stage_.Picture(stage_.Window("StartForm"), "01-splash"); });
  program_.Start();
  stage_.Pause(0.2);
  stage_.Check(Main().windowTitle().startsWith("KAVR6 Configurator  V"),
               "the title names the program and its version");
  stage_.Check(program_.Main.StatusPort.Caption().starts_with("COM1"), "COM1 is open");
  stage_.Check(program_.Main.Summary.Text(0, 0) == "Motor:", "the grid waits for its first section");
  stage_.Picture(Main(), "02-main-screen");
}

void Tour::Download() {
  stage_.Step("Download: the question about the load inertia is answered with No, then with Yes");
  stage_.AnswerNextBox("You have not set the load inertia", QMessageBox::No, "03-load-inertia-question");
  stage_.Click(Main(), "Download");
  stage_.Check(program_.Main.DriveVersion.Caption().empty(), "No has sent nothing");
  stage_.AnswerNextBox("You have not set the load inertia", QMessageBox::Yes);
  QTimer::singleShot(150, [this] { stage_.Picture(Main(), "04-download-under-way"); });
  QElapsedTimer time;
  time.start();
  stage_.Click(Main(), "Download");
  stage_.Note("   the whole click took " + std::to_string(time.elapsed()) + " ms");
  stage_.Check(program_.Main.ModelList.ListIndex() == 0, "the drive's model is chosen");
  stage_.Check(!program_.Main.DriveVersion.Caption().empty(),
               "the drive's revision is shown: " + program_.Main.DriveVersion.Caption());
  stage_.Check(!program_.Main.Modified, "the settings count as sent");
  stage_.Check(program_.Main.ProgBar.FloodPercent() == 0, "the progress bar is empty again");
  stage_.Picture(Main(), "05-after-download");
}

void Tour::Upload() {
  stage_.Step("Upload: what was sent comes back");
  const Settings sent = program_.settings;
  program_.settings.Speed = 99.0;
  program_.settings.RunCurrent = 0.5;
  stage_.Click(Main(), "Upload");
  stage_.Check(program_.settings.Speed == sent.Speed && program_.settings.RunCurrent == sent.RunCurrent,
               "speed and running current are those of the download");
  stage_.Check(program_.Main.Summary.Text(1, 0) == "1.4", "the grid shows the running current");
  for (const ConnectorLine* line :
       {&program_.Main.MotorLine1, &program_.Main.MotionLine, &program_.Main.RegenLine1,
        &program_.Main.IOLine, &program_.Main.EncoderLine})
    stage_.Check(line->BorderColor() == kGreen, line->Name() + " is green");
  stage_.Picture(Main(), "06-after-upload");
}

void Tour::LoseTheLine() {
  stage_.Step("The line is unplugged in the middle of an upload");
  QTimer::singleShot(100, [this] { drive_.Order("unplug"); });
  stage_.AnswerNextBox("We are having trouble uploading", QMessageBox::Ok, "07-upload-problem");
  stage_.AnswerNextBox("The drive is not responding", QMessageBox::Ok);
  stage_.Click(Main(), "Upload");
  stage_.Check(!comm_.PortOpen(), "the port is closed");
  stage_.AnswerNextBox("Cannot download to drive: there is no comm port open.", QMessageBox::Ok,
                       "08-no-port");
  stage_.Click(Main(), "Download");
  stage_.Picture(Main(), "09-without-a-port");
}

void Tour::FindItAgain() {
  stage_.Step("The line is plugged in again: another port is refused, the program returns to COM1");
  drive_.Order("plug");
  stage_.Pause(0.3);
  // Whatever ports this machine has, COM2 is none of them.
  std::filesystem::create_symlink("no-such-device", stage_.Folder() / "ports" / "COM2");
  stage_.AnswerNextBox("COM port 2 is not available.", QMessageBox::Ok, "10-port-refused");
  stage_.Choose(Main(), "CommList", 1);
  stage_.Check(comm_.PortOpen() && program_.Main.CommNumber == 1, "COM1 is open again");
  stage_.Pause(0.3);
  stage_.Click(Main(), "Upload");
  stage_.Check(program_.Main.StatusDrive.Caption().starts_with("Last heard: KAVR6-Bx"),
               "the drive is heard: " + program_.Main.StatusDrive.Caption());
}

void Tour::ShowCredits() {
  stage_.Step("Help, About");
  QTimer::singleShot(100, [this] {
    QWidget& about = stage_.Window("About");
    stage_.Picture(about, "11-about");
    stage_.Click(about, "OK");
  });
  stage_.Command(Main(), "MenuAbout");
  stage_.Check(!program_.Credits.Visible(), "OK has closed it");
}

void Tour::ShowDark() {
  stage_.Step("The same in a dark palette");
  QPalette dark(QColor(45, 45, 48));
  dark.setColor(QPalette::Base, QColor(30, 30, 32));
  QApplication::setPalette(dark);
  stage_.Pause(0.1);
  stage_.Picture(Main(), "12-dark");
}

}  // namespace
}  // namespace kavr6

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(kavr6::kProgramTitle);
  QApplication::setApplicationVersion(KAVR6_VERSION);
  try {
    kavr6::Stage stage(std::filesystem::absolute(argc > 1 ? argv[1] : "tour"));
    std::filesystem::copy_file(QCoreApplication::applicationDirPath().toStdString() + "/" + kavr6::kMotorFile,
                               stage.Folder() / kavr6::kMotorFile,
                               std::filesystem::copy_options::overwrite_existing);
    kavr6::Tour(stage).Play();
    stage.Note(std::to_string(stage.Steps()) + " steps, " + std::to_string(stage.Pictures()) +
               " pictures in " + stage.Folder().string());
  } catch (const std::exception& error) {
    std::cerr << "!! " << error.what() << '\n';
    return 1;
  }
  return 0;
}
