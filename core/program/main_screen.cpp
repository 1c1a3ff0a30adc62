#include "core/program/main_screen.h"

namespace kavr6 {

MainScreen::MainScreen(Desktop& desktop) : Form(desktop, "MainForm") { GridPanel.Hold({&Summary}); }

}  // namespace kavr6
