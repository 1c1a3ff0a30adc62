// A test whose whole outcome is a text file beside it.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/recorder.h"

namespace kavr6 {

/// Compares a transcript with the file `name`.txt in the folder `scenarios` below `folder`. With
/// KAVR6_WRITE_TRANSCRIPTS set, a differing one is left in `name`.got beside it, for a person to read and to
/// rename once every line of it is known to be right.
void ExpectTranscript(const std::string& folder, const std::string& name, const std::string& text);

/// A scene with its recorder. A test prepares the scene, calls Start or StartUnseen, then does things; its
/// end compares. `name` is the test's own name in small letters.
class Scenario : public testing::Test {
 protected:
  Scenario() = default;
  void TearDown() override;

  /// Starts the program and writes that down too. With the name of another transcript that tells of a whole
  /// start, what goes as there is only counted.
  void Start(const std::string& likeThere = {}, const std::string& answers = {});
  /// Starts the program and begins to write when it rests.
  void StartUnseen();

  /// Does something at once, then looks at what has come of it. The end of the program, or an error that
  /// ends it, is part of the outcome. `answers` are those to the boxes that come, a letter each: O for OK, C
  /// for Cancel, Y and N; what the boxes say is in the transcript.
  void Do(const std::string& what, const std::function<void()>& action, const std::string& answers = {});
  void Click(ClickableControl& control, const std::string& answers = {});
  void Click(MenuItem& item, const std::string& answers = {});
  void Select(ListBox& list, int row, const std::string& answers = {});
  void Wait(double seconds);
  /// Does something `seconds` from now, whatever the program is at then.
  void Later(double seconds, const std::string& what, const std::function<void()>& action);
  /// The next boxes are answered so, each after it has stood open for a while.
  void Answer(const std::string& answers, double after = 0.0);

  Scene scene;
  Configurator& program = scene.program;
  DriveState& state = scene.state;
  MainForm& main = scene.main;
  Settings& settings = scene.settings;
  SimulatedDrive& drive = scene.drive;
  WatchedComm& comm = scene.comm;
  HeadlessDesktop& desktop = scene.desktop;
  std::unique_ptr<Recorder> recorder;

 private:
  std::string likeThere_;
};

}  // namespace kavr6
