#include "core/main_screen.h"

#include "core/numbers.h"

namespace kavr6 {

MainScreen::MainScreen(Desktop& desktop) : Form(desktop, "MainForm") { GridPanel.Hold({&Summary}); }

std::string VersionText(const ProgramVersion& version) {
  std::string text = std::to_string(version.major) + "." + std::to_string(version.minor);
  if (version.revision != 0) text += "." + std::to_string(version.revision);
  return text;
}

float RevisionOf(int revisionByte) { return static_cast<float>(revisionByte / 100.0 + 1.0); }

std::string RevisionText(float revision) { return FormatNumber(revision, "0.00"); }

void PauseBeforeCommand(MainScreen& screen) {
  if (screen.CommandPause) Delay(screen.Desk(), 0.1);
}

void ShowModeName(MainScreen& screen, const Settings& settings) {
  screen.MotionDesc.SetCaption(ModeName(settings, screen.MotionDesc.Caption()));
}

void ShowTitle(MainScreen& screen, const std::string& fileName) {
  screen.SetCaption(std::string(kProgramTitle) + "  V" + screen.AppVersion + " - " +
                    (fileName.empty() ? "untitled" : fileName));
}

}  // namespace kavr6
