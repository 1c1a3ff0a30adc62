// The splash window.
#pragma once

#include "core/drive_state.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

/// Window "StartForm": stands on the screen while the main screen loads, then gives way to it.
class StartForm : public Form {
 public:
  StartForm(Desktop& desktop, DriveState& state, Form& mainForm)
      : Form(desktop, "StartForm"), state_(state), mainForm_(mainForm) {}

  Label lblVersion{*this, "lblVersion"};

 protected:
  void Load() override;

 private:
  DriveState& state_;
  Form& mainForm_;
};

}  // namespace kavr6
