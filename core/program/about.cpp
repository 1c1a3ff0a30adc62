#include "core/program/about.h"

namespace kavr6 {

About::About(Desktop& desktop, const DriveState& state) : Form(desktop, "About"), state_(state) {
  SetCaption("Credits");
  OK.Clicked.Set([this] { Hide(); });
}

void About::Run() {
  lblVersion.SetCaption("Version " + state_.AppVersion);
  ShowModal();
}

}  // namespace kavr6
