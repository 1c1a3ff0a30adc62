// What the windows share that speak the drive's text language.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "link/drive_line.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "tools/alarm_look.h"

namespace kavr6 {

/// A window that gets every byte of the drive while LiveToolActive holds and it is the front one. It says in
/// a place of its own for how long the drive has owed it an answer.
class LiveTool : public Form {
 public:
  LiveTool(const DriveLine& line, Desktop& desktop, std::string name);

  /// "No answer from the drive since 3 s", or empty.
  Label Silence{*this, "Silence"};
  Timer SilenceClock{*this, "SilenceClock"};

  /// Hands over what has come in behind another window, which else waits for the next byte.
  std::function<void()> DeliverWaiting;
  /// A byte of the drive has come in.
  void Take(std::uint8_t byte);
  /// Gives the line back where this tool has it; the window stays. Also for the end of the program: a drive
  /// left in its text language would not answer the next start.
  void LeaveLine();

 protected:
  virtual void ProcessChar(std::uint8_t byte) = 0;
  /// The line is this tool's: the drive has just been told to speak its text language.
  void TakeLine();
  /// It is no longer: the drive has been told to leave that language.
  void LetGo();
  /// Bytes that the tool has read by itself.
  void Hear(std::span<const std::uint8_t> bytes);
  /// Leaves the drive as a closing window does, and lowers LiveToolActive. It does not wait.
  virtual void GiveBack() = 0;

  /// Writes letters and the carriage return that ends a command.
  void Send(std::string_view letters);
  /// The same with letters that change what the drive goes by.
  void Change(std::string_view letters);
  /// An answer is due from now on, or from a time that has passed, unless one has been due already.
  void AnswerDue() { AnswerDue(Desk().Now()); }
  void AnswerDue(double since);
  /// Something has come from the drive, or nothing is awaited any more.
  void NothingDue();

  DriveLine line_;

 private:
  void ShowSilence();

  AlarmLook alarms_;
  double dueSince_ = 0.0;
  int dueOpenings_ = 0;  // of the port, when the answer that is due was asked for
};

}  // namespace kavr6
