#include "core/program/start_form.h"

namespace kavr6 {

void StartForm::Load() {
  SetCaption(kProgramTitle);
  CenterOnScreen(*this);
  mainScreen_.AppVersion = VersionText(Desk().Version());
  lblVersion.SetCaption("Version " + mainScreen_.AppVersion);
  Show();
  mainScreen_.EnsureLoaded();
  Hide();
  mainScreen_.Show();
}

About::About(Desktop& desktop, const MainScreen& mainScreen)
    : Form(desktop, "About"), mainScreen_(mainScreen) {
  SetCaption("Credits");
  OK.Clicked.Set([this] { Hide(); });
}

void About::Run() {
  lblVersion.SetCaption("Version " + mainScreen_.AppVersion);
  ShowModal();
}

}  // namespace kavr6
