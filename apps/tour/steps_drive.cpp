#include <QElapsedTimer>

#include "apps/tour/tour.h"

namespace kavr6 {

void Tour::RefuseDownload() {
  stage_.Step("Download: the question about the load inertia is answered with No");
  stage_.AnswerNextBox("You have not set the load inertia", QMessageBox::No, "load-inertia-question");
  stage_.Click(Main(), "Download");
  stage_.Check(program_.Main.DriveVersion.Caption().empty(), "No has sent nothing");
}

void Tour::Download() {
  stage_.Step("Download: with the load inertia set there is no question");
  desktop_.CallAfter(0.15, [this] { stage_.Picture(Main(), "download-under-way"); });
  QElapsedTimer time;
  time.start();
  stage_.Click(Main(), "Download");
  stage_.Note("   the whole click took " + std::to_string(time.elapsed()) + " ms");
  stage_.Check(program_.Main.ModelList.ListIndex() == 0, "the drive's model is chosen");
  stage_.Check(!program_.Main.DriveVersion.Caption().empty(),
               "the drive's revision is shown: " + program_.Main.DriveVersion.Caption());
  stage_.Check(!program_.state.Modified, "the settings count as sent");
  stage_.Check(program_.Main.ProgBar.FloodPercent() == 0, "the progress bar is empty again");
  stage_.Picture(Main(), "after-download");
}

void Tour::Upload() {
  stage_.Step("Upload: what was sent comes back");
  const Settings sent = program_.settings;
  program_.settings.Speed = 99.0;
  program_.settings.RunCurrent = 0.5;
  stage_.Click(Main(), "Upload");
  stage_.Check(program_.settings.Speed == sent.Speed && program_.settings.RunCurrent == sent.RunCurrent,
               "speed and running current are those of the download");
  stage_.Check(program_.Main.Summary.Text(1, 0) == "1.8", "the grid shows the running current");
  for (const ConnectorLine* line :
       {&program_.Main.MotorLine1, &program_.Main.MotionLine, &program_.Main.RegenLine1,
        &program_.Main.IOLine, &program_.Main.EncoderLine})
    stage_.Check(line->BorderColor() == kGreen, line->Name() + " is green");
  stage_.Picture(Main(), "after-upload");
}

void Tour::CompareSettings() {
  stage_.Step("Compare with Drive: what differs is shown, then taken from the drive");
  program_.settings.Speed = 99.0;
  program_.settings.RS485Addr = "B";
  desktop_.CallAfter(0.6, [this] {
    QWidget& window = stage_.Window("CompareWindow");
    stage_.Check(program_.Compared.Result.Caption().starts_with("2 settings differ"),
                 program_.Compared.Result.Caption());
    stage_.Picture(window, "compare-differences");
    stage_.Click(window, "chkShowEqual");
    stage_.Picture(window, "compare-all");
    stage_.Click(window, "TakeFromDrive");
    stage_.Check(program_.settings.Speed != 99.0 && program_.Compared.Table.Text(0, 4) == "same",
                 "the drive's settings are on the screen");
    stage_.Click(window, "OK");
  });
  stage_.Command(Main(), "MenuCompareDrive");
}

void Tour::LoseTheLine() {
  stage_.Step("The line is unplugged in the middle of an upload");
  desktop_.CallAfter(0.1, [this] { drive_.Order("unplug"); });
  stage_.AnswerNextBox("We are having trouble uploading", QMessageBox::Ok, "upload-problem");
  stage_.AnswerNextBox("The drive is not responding", QMessageBox::Ok);
  stage_.Click(Main(), "Upload");
  stage_.Check(!comm_.PortOpen(), "the port is closed");
  stage_.AnswerNextBox("Cannot download to drive: there is no comm port open.", QMessageBox::Ok, "no-port");
  stage_.Click(Main(), "Download");
  stage_.Picture(Main(), "without-a-port");
}

void Tour::FindItAgain() {
  stage_.Step(
      "The line is plugged in again and opened; another port is refused, the program returns to COM1");
  drive_.Order("plug");
  stage_.WaitFor([this] { return comm_.PortOpen(); }, 1.0, "the port to be opened again");
  // Whatever ports this machine has, COM2 is none of them.
  std::filesystem::create_symlink("no-such-device", stage_.Folder() / "ports" / "COM2");
  stage_.AnswerNextBox("COM port 2 is not available.", QMessageBox::Ok, "port-refused");
  stage_.Choose(Main(), "CommList", 1);
  stage_.Check(comm_.PortOpen() && program_.state.CommNumber == 1, "COM1 is open again");
  stage_.Pause(0.3);
  stage_.Click(Main(), "Upload");
  stage_.Check(program_.Main.StatusDrive.Caption().starts_with("KAVR6-Bx answers"),
               "the drive is heard: " + program_.Main.StatusDrive.Caption());
}

void Tour::ReadHelp() {
  stage_.Step("Help: a connector of the picture, the dialog's own page by F1, and the way back");
  stage_.Click(Main(), "HSencoder");
  QWidget& help = stage_.Window("HelpScreen");
  stage_.Picture(help, "help-encoder");
  QWidget& regen = OpenBy("Regen", "RegenDialog");
  stage_.Press(regen, Qt::Key_F1);
  const PageView& pages = program_.Help.HelpBrowser;
  stage_.Check(pages.Address().ends_with("regen.html"), "the help shows " + pages.Address());
  stage_.Click(help, "btnBack");
  stage_.Check(pages.Address().ends_with("ConnectingEncoder.html"), "back at " + pages.Address());
  stage_.Click(help, "btnPrint");
  stage_.Check(!program_.Help.Visible(), "Close has closed it");
  stage_.Click(regen, "Cancel");
}

void Tour::ShowCredits() {
  stage_.Step("Help, About");
  desktop_.CallAfter(0.1, [this] {
    QWidget& about = stage_.Window("About");
    stage_.Picture(about, "about");
    stage_.Click(about, "OK");
  });
  stage_.Command(Main(), "MenuAbout");
  stage_.Check(!program_.Credits.Visible(), "OK has closed it");
}

}  // namespace kavr6
