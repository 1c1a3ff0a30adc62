// What the tour acts with: real windows, real clicks, pictures and a log.
#pragma once

#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QProcess>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace kavr6 {

/// The tour's folder with its pictures and its log, and the ways to act on windows as a person would. A step
/// that does not do what it should ends the tour, and the process, with exit code 1.
class Stage {
 public:
  explicit Stage(std::filesystem::path folder);

  const std::filesystem::path& Folder() const { return folder_; }
  /// Begins a step of the log. Boxes and file dialogs promised in the step before must have come.
  void Step(const std::string& what);
  void Note(const std::string& text);
  void Check(bool holds, const std::string& what);
  [[noreturn]] void Fail(const std::string& why);

  /// The visible window of that form; waits for it for a moment.
  QWidget& Window(const std::string& form);
  /// Clicks the widget of that name with the mouse.
  void Click(QWidget& window, const char* name);
  /// Triggers the menu command of that name.
  void Command(QWidget& window, const char* name);
  /// Chooses a row of a drop-down list by keyboard.
  void Choose(QWidget& window, const char* name, int row);
  /// Replaces what stands in a field, key by key; in a list this finds a row by its beginning.
  void Type(QWidget& window, const char* name, const char* text);
  /// Presses a key where the focus is.
  void Press(QWidget& window, Qt::Key key);
  /// When the next box comes (or the one after those already told of): it must hold `text`, is photographed
  /// under `picture` unless that is empty, and is answered. To be called before what makes the box come.
  void AnswerNextBox(const std::string& text, QMessageBox::StandardButton answer,
                     const std::string& picture = {});
  /// The same for the next file dialog: this name is typed and confirmed with Enter.
  void AnswerNextFileDialog(const std::filesystem::path& name, const std::string& picture = {});
  /// The same for the next question for a printer: prints to a PDF file of that name.
  void AnswerNextPrintDialog(const std::filesystem::path& name, const std::string& picture = {});
  /// Saves a picture of the window; its file's name begins with a running number.
  void Picture(QWidget& window, const std::string& name);
  /// From now on the names of pictures have no number.
  void NameWithoutNumbers() { numbered_ = false; }
  /// Lets events run until `done` holds; the tour fails when that takes longer than `seconds`.
  void WaitFor(const std::function<bool()>& done, double seconds, const std::string& what);
  void Pause(double seconds);

  int Steps() const { return steps_; }
  int Pictures() const { return pictures_; }

 private:
  struct BoxToCome {
    std::string text;
    QMessageBox::StandardButton answer;
    std::string picture;
  };
  struct FileToCome {
    std::filesystem::path name;
    std::string picture;
  };
  void LookForDialog();
  void AnswerBox(QMessageBox& box);
  void AnswerFileDialog(QFileDialog& dialog);
  void AnswerPrintDialog(QPrintDialog& dialog);

  std::filesystem::path folder_;
  std::ofstream log_;
  int steps_ = 0;
  int pictures_ = 0;
  bool numbered_ = true;
  std::deque<BoxToCome> boxes_;
  std::deque<FileToCome> files_;
  std::deque<FileToCome> prints_;
  QTimer dialogTimer_;
  QPointer<QWidget> answered_;
};

/// The simulated drive as a program of its own, on COM1 of the tour's folder.
class DriveProgram {
 public:
  DriveProgram(Stage& stage, const QString& program);
  ~DriveProgram();
  void Order(const char* line);

 private:
  Stage& stage_;
  QProcess process_;
};

}  // namespace kavr6
