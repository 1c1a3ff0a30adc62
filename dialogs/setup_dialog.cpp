#include "dialogs/setup_dialog.h"

namespace kavr6 {

SetupDialog::SetupDialog(const SetupParts& parts, const SetupDialogTexts& texts)
    : Form(parts.over.Desk(), texts.name), state_(parts.state), settings_(parts.settings), over_(parts.over) {
  SetCaption(texts.caption);
  OK.Clicked.Set([this] { Commit(); });
  Cancel.Clicked.Set([this] { Hide(); });
  Help.Clicked.Set([this] { ShowHelp(Help); });
}

void SetupDialog::Load() {
  CenterOn(over_, *this);
  Help.SetEnabled(static_cast<bool>(ShowHelp));
}

void SetupDialog::Open() {
  if (Visible()) return Show();
  EnsureLoaded();
  // A field in which the dialog was closed must not be entered and left again: that would clean it.
  Cancel.Focus();
  Fill();
  Show();
  Opened();
}

void SetupDialog::Refill() {
  Fill();
  Refilled();
}

void SetupDialog::Finish() {
  state_.Modified = true;
  Hide();
  if (Summarize) Summarize();
}

}  // namespace kavr6
