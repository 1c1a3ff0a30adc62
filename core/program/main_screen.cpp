#include "core/program/main_screen.h"

namespace kavr6 {

MainScreen::MainScreen(Desktop& desktop) : Form(desktop, "MainForm") { GridPanel.Hold({&Summary}); }

std::string VersionText(const ProgramVersion& version) {
  std::string text = std::to_string(version.major) + "." + std::to_string(version.minor);
  if (version.revision != 0) text += "." + std::to_string(version.revision);
  return text;
}

}  // namespace kavr6
