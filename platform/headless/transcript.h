// The text of a run: a line for each thing that happened, in the order in which it happened.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "platform/scheduler.h"

namespace kavr6 {

/// Bytes that follow one another without anything between them stand together, an image in rows of 16 with
/// the progress shown behind each, unless just those rows have been written before. Several changes of one
/// value with nothing between them are one line. The time, in seconds from the beginning, stands on each line
/// that has another than the line before.
class Transcript {
 public:
  explicit Transcript(const Scheduler& clock) : clock_(clock), begin_(clock.Now()) {}

  /// A heading: what is done to the program next.
  void Step(const std::string& what);
  void Note(const std::string& what);
  /// Adds to the note `what`, if nothing has come and no time has passed since; false otherwise.
  bool Continue(const std::string& what, const std::string& more);
  void Wire(bool toDrive, std::span<const std::uint8_t> bytes);
  /// A progress of this many percent is shown; false when it does not belong to bytes that are passing.
  bool Progress(int percent);
  void Change(const std::string& name, const std::string& before, const std::string& after);
  /// A text has got more at its end. What comes to it while bytes pass stands below them in one line.
  void Growth(const std::string& name, const std::string& more);
  std::string Text();

 private:
  struct Run {
    bool toDrive = false;
    double begin = 0.0;
    double end = 0.0;
    std::vector<std::uint8_t> bytes;
    std::map<std::size_t, int> progress;  // behind so many bytes
  };
  struct Changing {
    double time = 0.0;
    std::string name, before, after;
  };
  struct Growing {
    double time = 0.0;
    std::string name, more;
  };
  void Line(double time, const std::string& text);
  void Close();
  void Write(const Run& run);
  static std::string Rows(const Run& run, std::size_t from);

  const Scheduler& clock_;
  double begin_;
  std::string text_;
  std::string lastTime_;
  std::set<std::string> written_;  // rows
  std::optional<Run> run_;
  std::optional<Growing> growing_;
  std::optional<Changing> changing_;
};

}  // namespace kavr6
