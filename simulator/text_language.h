// The text language of a drive: commands of two letters with an argument, a line each.
#pragma once

#include <deque>
#include <functional>
#include <string>

#include "simulator/text_commands.h"

namespace kavr6 {

/// Letters alone ask for a value, "XX=value", or do something; letters with a value set it. What the drive
/// does not know or cannot do is answered with "?". With the acknowledgements of the protocol switched on,
/// what has no answer is answered with "%". Small letters are taken for capitals.
///
/// Commands that move the motor, and those that prepare a move, wait in a buffer while a motion that will end
/// by itself, a wait or a pause holds them up.
class TextLanguage {
 public:
  TextLanguage(DriveWorks& works, std::function<void(const std::string& bytes)> answer);
  TextLanguage(const TextLanguage&) = delete;
  TextLanguage& operator=(const TextLanguage&) = delete;
  ~TextLanguage();

  /// One line without its end, not empty.
  void Take(const std::string& line);
  /// Whether this line does nothing but ask.
  static bool Asks(const std::string& line);
  /// What a line or a wait has to do with the line and the store.
  TextSession& Session() { return session_; }

  /// Of the status word: the waiting of the buffer.
  int WaitBits() const;
  void InputChanged(std::size_t input);
  /// Forgets what waits in the buffer.
  void Kill();

 private:
  struct Line {
    std::string letters;
    std::string argument;
  };
  struct Answer {
    std::string text;
    std::string_view end = "\r";
  };
  static constexpr std::size_t kPlaces = 63;

  static Line Split(const std::string& line);
  static bool Buffered(const Line& line);
  Answer Execute(const Line& line);
  std::string Value(const Register& row, const std::string& argument);
  void Tell(const Answer& answer);
  bool HeldUp() const { return paused_ || waiting_ || awaited_ || works_.motor.Busy(); }
  void RunBuffer();
  void Wait(double seconds);
  void WaitInput(const InputCondition& condition);

  DriveWorks& works_;
  std::function<void(const std::string&)> answer_;
  TextSession session_;
  std::deque<Line> buffer_;
  bool paused_ = false;
  bool waiting_ = false;
  Scheduler::TaskId waitEnd_ = 0;
  std::optional<InputCondition> awaited_;
};

}  // namespace kavr6
