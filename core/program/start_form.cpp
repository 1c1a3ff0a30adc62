#include "core/program/start_form.h"

#include "core/program/main_screen.h"

namespace kavr6 {

void StartForm::Load() {
  SetCaption(kProgramTitle);
  CenterOnScreen(*this);
  state_.AppVersion = VersionText(Desk().Version());
  lblVersion.SetCaption("Version " + state_.AppVersion);
  Show();
  Desk().BuildAhead(mainForm_);  // its window is made while the drive is asked who it is
  mainForm_.EnsureLoaded();
  Hide();
  mainForm_.Show();
}

}  // namespace kavr6
