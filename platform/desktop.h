// The windowing services of the machine, as the logic sees them.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "platform/event_pump.h"
#include "platform/file_dialog.h"
#include "platform/message_box.h"
#include "platform/program_version.h"
#include "platform/runtime_error.h"

namespace kavr6 {

class Form;

/// Screen measures are in twips, 1440 to the inch.
struct TwipSize {
  int width = 0;
  int height = 0;
};

/// Windows, boxes, the event pump and the end of the process.
///
/// The front window is the front one among the program's own windows: a message box or a file dialog is
/// none of them, and switching to another program changes nothing.
///
/// A box or a modal window is a wait like any other: what lies behind it looks at the world anew.
class Desktop : public EventPump, public Boxes {
 public:
  BoxAnswer Ask(const MessageBox& box) final;
  /// Asks for a file and waits for the choice; events keep running meanwhile. Full path in UTF-8, empty when
  /// the user gives up. An open dialog names a file that is there; a save dialog asks before an existing file
  /// is to be replaced.
  std::string ChooseFile(const FileDialog& dialog);
  /// Runs a dialog of the machine that stands above all windows until it has its answer; events keep running
  /// meanwhile.
  bool RunDialog(const std::function<bool()>& dialog);
  /// Opens a web or mail address in the system's program for it; a box says so where there is none.
  void OpenOutside(const std::string& address);
  /// The user asks for help, by F1: in the window of that name, or in one of the places below.
  void WantHelp(const std::string& where);
  std::function<void(const std::string& where)> HelpWanted;
  static constexpr const char* kInBox = "message box";
  static constexpr const char* kInFileDialog = "file dialog";
  static constexpr const char* kInPrintDialog = "print dialog";  ///< and the preview
  virtual bool ShiftDown() const = 0;
  /// What stands before the decimals of a number where the system's user writes one, UTF-8.
  virtual std::string DecimalSign() const = 0;
  /// Local time as the clock on the wall shows it, in seconds since midnight.
  virtual double SecondsOfDay() const;
  /// Puts a text, UTF-8, where other programs take it from when the user pastes.
  virtual void CopyText(const std::string& text) = 0;
  virtual TwipSize ScreenSize() const = 0;
  /// Where motor table and help pages lie.
  virtual std::filesystem::path ProgramDirectory() const = 0;
  virtual ProgramVersion Version() const = 0;
  /// Ends the process at once, from whatever depth, when what AtEnd was told is done. Does not return.
  [[noreturn]] void EndProgram(int exitCode);
  /// `task` is to be done when the program ends. The tasks given last come first: a drive is told what it has
  /// to hear before the port is let go. None of them waits, and what one throws does not stop the others.
  void AtEnd(Task task) { atEnd_.push_back(std::move(task)); }

  /// The form is about to be shown: whatever that needs may be made ready while the program waits for
  /// something else meanwhile.
  virtual void BuildAhead(Form& /*form*/) {}
  /// Shows a form that is not shown, or brings a shown one to the front. Used by Form.
  void ShowForm(Form& form, bool modal);
  /// Hides a form; the front goes to the form shown before it. Used by Form.
  void HideForm(Form& form);
  /// Takes a form that ends its life off the screen, without events. Used by Form.
  void ForgetForm(Form& form);
  /// Tells that the user has brought a shown form to the front. Ignored where the user cannot do that.
  void BroughtToFront(Form& form);
  /// What has opened above a shown form and keeps the user from it, in words; empty when nothing does.
  std::string WhatBlocks(const Form& form) const;
  /// Told of what a user has tried in vain, by the names of window and control, and why. On a real screen
  /// such a thing can be on its way when a box opens, and is forgotten.
  virtual void Refused(const std::string& /*what*/) {}
  /// Name of the front window, empty without one.
  std::string ActiveFormName() const;
  /// The shown forms, the front one last.
  const std::vector<Form*>& ShownForms() const { return shown_; }

  /// Lets the user save what would be lost when the program ends by an error.
  std::function<void()> RescueWork;
  /// The user's session at the computer is about to end, and the program with it: false keeps the session.
  /// `mayAsk` gets the system's leave to ask the user; it may wait for that.
  std::function<bool(const std::function<bool()>& mayAsk)> MaySessionEnd;
  /// Called at the end of each event's work, at whatever depth, and before a box or a modal window stands
  /// open: whatever rests on the screen, nothing of the program has changed that this has not seen. It is
  /// quick, and throws nothing.
  std::function<void()> EventDone;
  /// The user has come back from another program.
  std::function<void()> CameBack;
  /// Runs one event's work. A RuntimeError that leaves it is reported in a box and ends the program; while
  /// that box stands open, a further one is dropped.
  void Enter(const Task& work);
  /// The report of an error that nobody handles: one box, then the end with exit code 1. Where RescueWork is
  /// set the box offers to run it first.
  [[noreturn]] void ReportError(const RuntimeError& error);

 protected:
  virtual void OpenWindow(Form& form, bool modal) = 0;
  virtual void CloseWindow(Form& form) = 0;
  /// A box or a dialog of the machine has gone from the screen.
  virtual void BoxGone() {}
  /// The form ends its life; it must not be touched again.
  virtual void DropWindow(Form& /*form*/) {}
  virtual BoxAnswer ShowBox(const MessageBox& box) = 0;
  virtual std::string ShowFileDialog(const FileDialog& dialog) = 0;
  /// False when the system has no program for the address.
  virtual bool OpenAddress(const std::string& address) = 0;
  /// The last act of EndProgram.
  [[noreturn]] virtual void EndProcess(int exitCode) = 0;
  /// For a process that ends in another way than by EndProgram.
  void DoAtEnd();

 private:
  struct Opened {
    const Form* form;  // null: a box or a file dialog
    bool modal;
  };
  class BoxOnScreen;
  void Settled() const {
    if (EventDone) EventDone();
  }
  void ToFront(Form& form);
  void TakeOff(const Form& form);
  void TellFront();
  Form* Front() const { return shown_.empty() ? nullptr : shown_.back(); }

  std::vector<Task> atEnd_;
  bool reporting_ = false;
  std::vector<Form*> shown_;
  std::vector<Opened> opened_;  // in the order of opening, whatever came to the front since
  Form* active_ = nullptr;      // has been told of its activation and not yet of its end
};

}  // namespace kavr6
