#include "dialogs/encoder_dialog.h"

#include "core/numbers.h"
#include "dialogs/numeric_entry.h"

namespace kavr6 {
namespace {

constexpr const char* kPhaseAB = "DC7ab";
constexpr const char* kPhaseBA = "DC7ba";
constexpr double kCountsPerLine = 4;

}  // namespace

EncoderDialog::EncoderDialog(const SetupParts& parts)
    : SetupDialog(parts, {"EncoderDialog", "Encoder Feedback (optional)"}) {
  for (TextBox* box : {&txtEncCounts, &txtMaxTorque, &txtAttempts}) LimitEntry(*box);
  txtEncCounts.Change.Set([this] { ShowLines(); });
  optCW.Clicked.Set([this] { DC7encpic.SetImage(kPhaseBA); });
  optCCW.Clicked.Set([this] { DC7encpic.SetImage(kPhaseAB); });
  optCCW.SetValue(true);
  // Stalls are either told or prevented.
  chkCorrect.Clicked.Set([this] {
    if (chkCorrect.Value()) chkStallDetect.SetValue(false);
  });
  chkStallDetect.Clicked.Set([this] {
    if (chkStallDetect.Value()) chkCorrect.SetValue(false);
  });
}

void EncoderDialog::ShowLines() {
  lblLines.SetCaption("counts/turn (" + NumberText(settings_.EncoderCounts / kCountsPerLine) + " lines)");
}

void EncoderDialog::Fill() {
  txtEncCounts.SetText(NumberText(settings_.EncoderCounts));
  ShowLines();  // the text may have stood there already
  txtMaxTorque.SetText(NumberText(settings_.MaxTorquePct));
  (settings_.EncoderCW ? optCW : optCCW).SetValue(true);
  ChkSingleEnded.SetValue(settings_.EncoderSingleEnded);
  chkCorrect.SetValue(settings_.StallPrevent);
  chkStallDetect.SetValue(settings_.StallDetect);
  txtAttempts.SetText(NumberText(settings_.StallFaultMs));
  chkAttemptsFault.SetValue(settings_.StallFaultOn && settings_.StallPrevent);
}

void EncoderDialog::Opened() { txtEncCounts.Focus(); }

void EncoderDialog::Commit() {
  settings_.EncoderCounts = EntryLong(txtEncCounts);
  settings_.MaxTorquePct = EntryLong(txtMaxTorque);
  settings_.EncoderCW = optCW.Value();
  settings_.EncoderSingleEnded = ChkSingleEnded.Value();
  settings_.StallPrevent = chkCorrect.Value();
  settings_.StallDetect = chkStallDetect.Value();
  settings_.StallFaultMs = EntryLong(txtAttempts);
  settings_.StallFaultOn = chkAttemptsFault.Value();
  Finish();
}

}  // namespace kavr6
