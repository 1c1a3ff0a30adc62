// The credits.
#pragma once

#include "core/drive_state.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

/// Window "About".
class About : public Form {
 public:
  About(Desktop& desktop, const DriveState& state);

  Label lblVersion{*this, "lblVersion"};
  Button OK{*this, "OK", "OK", Button::Role::Default};

  /// Shows the version and waits until the window is closed.
  void Run();

 protected:
  void Load() override { CenterOnScreen(*this); }

 private:
  const DriveState& state_;
};

}  // namespace kavr6
