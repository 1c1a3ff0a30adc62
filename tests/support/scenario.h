// A run of the whole program that is written in a text file: what is done, and all that comes of it.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "tests/support/recorder.h"
#include "tests/support/words.h"

namespace kavr6 {

/// A file may hold several runs, each below a line that begins with "## ".
///
/// Does what the headings of a transcript say and compares what comes of it with the transcript. A heading
/// holds one or more steps, "# click MainForm.Download; wait 0.5", and may end with a remark in brackets; the
/// steps are those of the table in steps.cpp. A step that cannot be done fails the test by file and line.
class Scenario {
 public:
  /// With KAVR6_WRITE_TRANSCRIPTS set, a differing transcript is left in `name`.got beside `name`.txt, for a
  /// person to read and to rename once every line of it is known to be right.
  static void Play(const std::string& path);

  /// Does the steps that follow one another in the text.
  void Do(Words steps);
  /// Begins to write down. With the name of a transcript in the same folder that tells of a whole start, what
  /// goes as there is only counted.
  void Record(const std::string& likeThere = {}, Recorder::Part part = Recorder::Part::AllButStrip);
  /// A control by its name, "Form.Control", or "Control" in the window that is in front.
  template <class Kind>
  Kind& The(const std::string& name);
  Form& Window(const std::string& name);

  Scene scene;
  Scheduler::Task meanwhile;  ///< for the next box or file dialog
  std::unique_ptr<Recorder> recorder;

 private:
  void DoHeading(const std::string& heading);
  std::string TranscriptOf(const std::string& text);
  Control& ControlOf(const std::string& name);

  std::string path_;
  std::string likeThere_;
  int line_ = 0;
  bool failed_ = false;
};

template <class Kind>
Kind& Scenario::The(const std::string& name) {
  if (auto* const control = dynamic_cast<Kind*>(&ControlOf(name))) return *control;
  throw std::runtime_error("of another kind: " + name);
}

using StepDone = void (*)(Scenario&, Words&);
/// What the word does; null when it is no step.
StepDone FindStep(const std::string& word);

}  // namespace kavr6
