// A desktop without a screen, on virtual time: for tests and benchmarks.
#pragma once

#include <deque>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop.h"
#include "platform/task_list.h"

namespace kavr6 {

/// The scene that a test has set does not fit what the program does.
class HeadlessFault : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// The program has ended itself.
struct ProgramEnded {
  int exitCode = 0;
};

/// How a test answers the next box. Without the whole box nothing is compared: a transcript does that.
struct ExpectedBox {
  std::optional<MessageBox> whole = {};
  BoxAnswer answer = BoxAnswer::Ok;
  double after = 0.0;           ///< seconds for which the box stands open, events running
  Scheduler::Task during = {};  ///< done while the box stands open, before the time passes
};

/// How a test answers the next file dialog.
struct ExpectedFile {
  FileDialog::Purpose purpose = FileDialog::Purpose::Open;
  std::string name;             ///< empty: the user gives up
  Scheduler::Task during = {};  ///< done while the dialog stands open
};

/// One queue, ordered by time and then by the order of entry, holds everything that will happen: timers, the
/// simulated line, the user's actions. The clock moves only when nothing is due, straight to the next entry.
///
/// While the program is blocked only what has come through Line runs: a test that pulls a cable or sends a
/// byte in the middle of that schedules it there.
class HeadlessDesktop : public Desktop {
 public:
  double Now() const override { return now_; }
  TaskId CallAfter(double seconds, Task task) override { return tasks_.Add(now_ + seconds, std::move(task)); }
  void Cancel(TaskId id) override { tasks_.Cancel(id); }
  LineScheduler& Line() { return line_; }
  void PumpEvents() override;
  /// Waiting for ever with nothing left to happen is a HeadlessFault that names the front window.
  bool PumpEventsUntil(const std::function<bool()>& done, double limit) override;
  void Beep() override { ++beeps_; }
  bool ShiftDown() const override { return shift_; }
  std::string DecimalSign() const override { return decimalSign_; }
  /// The scene begins at eight in the morning.
  double SecondsOfDay() const override { return 8 * 3600.0 + now_; }
  void CopyText(const std::string& text) override { copied_ = text; }
  /// What was copied last.
  const std::string& Copied() const { return copied_; }
  TwipSize ScreenSize() const override { return screen_; }
  std::filesystem::path ProgramDirectory() const override { return directory_; }
  ProgramVersion Version() const override { return version_; }
  /// A HeadlessFault that says what was refused, unless refusals are recorded.
  void Refused(const std::string& what) override;
  /// From now on what a user cannot do is no fault: it is recorded, as it is on a real screen forgotten.
  void RecordRefusals() { recordRefusals_ = true; }
  /// The refusals recorded so far, as in "window.control: it is disabled".
  const std::vector<std::string>& Refusals() const { return refusals_; }
  void Expect(MessageBox whole, BoxAnswer answer = BoxAnswer::Ok) {
    Expect({.whole = std::move(whole), .answer = answer});
  }
  void Expect(ExpectedBox box);
  void Expect(ExpectedFile file) { expectedFiles_.push_back(std::move(file)); }
  /// From now on a box that nobody expects is answered with OK or Yes.
  void AnswerAnything() { answerAnything_ = true; }
  /// All boxes shown so far.
  const std::vector<MessageBox>& Boxes() const { return boxes_; }
  /// The file dialogs shown so far.
  const std::vector<FileDialog>& FileDialogs() const { return fileDialogs_; }
  /// What the system was told to open.
  const std::vector<std::string>& Addresses() const { return addresses_; }
  /// HeadlessFault when an expected box or file dialog has not come.
  void CheckNothingLeft() const;

  int Beeps() const { return beeps_; }
  void SetShift(bool down) { shift_ = down; }
  void SetDecimalSign(std::string sign) { decimalSign_ = std::move(sign); }
  void SetScreen(TwipSize screen) { screen_ = screen; }
  void SetProgramDirectory(std::filesystem::path directory) { directory_ = std::move(directory); }
  void SetVersion(ProgramVersion version) { version_ = version; }

 protected:
  void OpenWindow(Form&, bool) override {}
  void CloseWindow(Form&) override {}
  /// Answered by the next expected box; without one, or with another text, a HeadlessFault.
  BoxAnswer ShowBox(const MessageBox& box) override;
  /// Answered by the next expected file dialog; without one, or with another purpose, a HeadlessFault.
  std::string ShowFileDialog(const FileDialog& dialog) override;
  bool OpenAddress(const std::string& address) override {
    addresses_.push_back(address);
    return true;
  }
  /// Throws ProgramEnded.
  [[noreturn]] void EndProcess(int exitCode) override;

 private:
  class LineView : public LineScheduler {
   public:
    explicit LineView(HeadlessDesktop& desktop) : desktop_(desktop) {}
    double Now() const override { return desktop_.now_; }
    TaskId CallAfter(double seconds, Task task) override {
      return desktop_.tasks_.Add(Now() + seconds, std::move(task), true);
    }
    void Cancel(TaskId id) override { desktop_.Cancel(id); }
    void Block(const std::function<bool()>& done, double limit) override;

   private:
    HeadlessDesktop& desktop_;
  };

  void Run(const TaskList::Entry& entry);

  TaskList tasks_;
  LineView line_{*this};
  double now_ = 0.0;
  double lastRun_ = 0.0;
  int runsAtThisTime_ = 0;
  std::deque<ExpectedBox> expected_;
  std::vector<MessageBox> boxes_;
  std::deque<ExpectedFile> expectedFiles_;
  std::vector<FileDialog> fileDialogs_;
  std::vector<std::string> addresses_;
  bool answerAnything_ = false;
  bool recordRefusals_ = false;
  std::vector<std::string> refusals_;
  std::string copied_;
  int beeps_ = 0;
  bool shift_ = false;
  std::string decimalSign_ = ".";
  TwipSize screen_{20490, 11520};
  std::filesystem::path directory_ = ".";
  ProgramVersion version_{1, 0, 0};
};

}  // namespace kavr6
