// The splash window and the credits.
#pragma once

#include "core/main_screen.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

/// Window "StartForm": stands on the screen while the main screen loads, then gives way to it.
class StartForm : public Form {
 public:
  StartForm(Desktop& desktop, MainScreen& mainScreen) : Form(desktop, "StartForm"), mainScreen_(mainScreen) {}

  Label lblVersion{*this, "lblVersion"};

 protected:
  void Load() override;

 private:
  MainScreen& mainScreen_;
};

/// Window "About".
class About : public Form {
 public:
  About(Desktop& desktop, const MainScreen& mainScreen);

  Label lblVersion{*this, "lblVersion"};
  Button OK{*this, "OK", "OK", Button::Role::Default};

  /// Shows the version and waits until the window is closed.
  void Run();

 protected:
  void Load() override { CenterOnScreen(*this); }

 private:
  const MainScreen& mainScreen_;
};

}  // namespace kavr6
