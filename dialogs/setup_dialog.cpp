#include "dialogs/setup_dialog.h"

namespace kavr6 {

SetupDialog::SetupDialog(MainScreen& screen, Settings& settings, const SetupDialogTexts& texts)
    : Form(screen.Desk(), texts.name), screen_(screen), settings_(settings) {
  SetCaption(texts.caption);
  OK.Clicked.Set([this] { Commit(); });
  Cancel.Clicked.Set([this] { Hide(); });
  Help.Clicked.Set([this, page = texts.helpPage] { ShowHelp(page); });
}

void SetupDialog::Load() {
  CenterOn(screen_, *this);
  Help.SetEnabled(static_cast<bool>(ShowHelp));
}

void SetupDialog::Open() {
  if (Visible() && settings_ == filledFrom_) {
    Show();
    return;
  }
  EnsureLoaded();
  Cancel
      .Focus();  // a field in which the dialog was closed is not entered and left again: that would clean it
  filledFrom_ = settings_;
  Fill();
  Show();
  Opened();
}

void SetupDialog::Finish() {
  screen_.Modified = true;
  Hide();
  if (Summarize) Summarize();
}

}  // namespace kavr6
