// What the tour acts with: real windows, real clicks, pictures and a log.
#pragma once

#include <QMessageBox>
#include <QPointer>
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
  /// Begins a step of the log. Boxes promised in the step before must have come.
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
  /// When the next box comes (or the one after those already told of): it must hold `text`, is photographed
  /// under `picture` unless that is empty, and is answered. To be called before what makes the box come.
  void AnswerNextBox(const std::string& text, QMessageBox::StandardButton answer,
                     const std::string& picture = {});
  void Picture(QWidget& window, const std::string& name);
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
  void LookForBox();

  std::filesystem::path folder_;
  std::ofstream log_;
  int steps_ = 0;
  int pictures_ = 0;
  std::deque<BoxToCome> boxes_;
  QTimer boxTimer_;
  QPointer<QMessageBox> answered_;
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
