#include <QApplication>
#include <fstream>

#include "apps/tour/tour.h"

namespace kavr6 {

void Tour::SaveAndReopen() {
  stage_.Step("Save As, a change, and the file opened again");
  const std::filesystem::path file = stage_.Folder() / "machine.cnf";
  std::filesystem::remove(file);
  // The extension is left to the program.
  stage_.AnswerNextFileDialog(stage_.Folder() / "machine", "save-as");
  stage_.Command(Main(), "MenuSaveAs");
  stage_.Check(std::filesystem::file_size(file) > 500, "the file is there: " + file.filename().string());
  stage_.Check(!program_.state.Modified, "nothing is left to save");
  stage_.Check(Main().windowTitle().contains("machine.cnf"), "the title names it");
  const Settings saved = program_.settings;
  program_.settings.RunCurrent = 0.7;
  program_.state.Modified = true;
  stage_.AnswerNextBox("open a file and replace your program?", QMessageBox::Cancel, "open-question");
  stage_.Command(Main(), "MenuOpen");
  stage_.Check(program_.settings.RunCurrent == 0.7, "Cancel has kept the change");
  stage_.AnswerNextBox("open a file and replace your program?", QMessageBox::Ok);
  stage_.AnswerNextFileDialog(file, "open");
  stage_.Command(Main(), "MenuOpen");
  stage_.Check(
      program_.settings.RunCurrent == saved.RunCurrent && program_.settings.MotorName == saved.MotorName,
      "the file has brought back what was saved");
  stage_.Picture(Main(), "after-open");
}

void Tour::OpenBadFile() {
  stage_.Step("A file that ends in the middle is told");
  const std::filesystem::path file = stage_.Folder() / "cut.cnf";
  std::ofstream(file) << "1.0\r\n1,\"; drive model\"\r\n10,5,100";
  stage_.AnswerNextFileDialog(file);
  stage_.AnswerNextBox("Error: couldn't read file.  ", QMessageBox::Ok, "bad-file");
  stage_.Command(Main(), "MenuOpen");
  stage_.AnswerNextFileDialog(stage_.Folder() / "machine.cnf");
  stage_.Command(Main(), "MenuOpen");
  stage_.Check(Main().windowTitle().contains("machine.cnf"), "the good file is open again");
}

void Tour::PrintReport() {
  stage_.Step("The report: a look at it, then printed as a PDF");
  desktop_.CallAfter(0.3, [this] {
    QWidget* const preview = QApplication::activeModalWidget();
    if (preview == nullptr) stage_.Fail("the preview does not come");
    stage_.Picture(*preview, "print-preview");
    preview->close();
  });
  stage_.Command(Main(), "MenuPreview");
  const std::filesystem::path file = stage_.Folder() / "report.pdf";
  std::filesystem::remove(file);
  stage_.AnswerNextPrintDialog(file, "print");
  stage_.Command(Main(), "MenuPrint");
  stage_.Check(std::filesystem::file_size(file) > 1000, "the PDF is there: " + file.filename().string());
}

}  // namespace kavr6
