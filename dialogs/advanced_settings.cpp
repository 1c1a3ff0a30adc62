#include "dialogs/advanced_settings.h"

#include "core/numbers.h"
#include "dialogs/numeric_entry.h"
#include "image/byte_codec.h"
#include "link/drive_identity.h"
#include "link/wire.h"

namespace kavr6 {
namespace {

constexpr int kReplySize = 2;

}  // namespace

AdvancedSettings::AdvancedSettings(const SetupParts& parts, VelocityDialog& velocity, const DriveLine& line)
    : SetupDialog(parts, {"AdvancedSettings", "Advanced Analog Settings"}), velocity_(velocity), line_(line) {
  for (TextBox* box : {&txtCmdOffset, &txtAnalogDeadband, &txtAnalogFilter}) LimitEntry(*box);
  AutoOffset.Clicked.Set([this] { AutoOffsetClick(); });
}

void AdvancedSettings::Fill() {
  txtCmdOffset.SetText(NumberText(velocity_.PendingOffset));
  txtAnalogDeadband.SetText(NumberText(velocity_.PendingDeadband));
  txtAnalogFilter.SetText(NumberText(velocity_.PendingFilter));
}

void AdvancedSettings::Opened() { txtCmdOffset.Focus(); }

void AdvancedSettings::Commit() {
  velocity_.PendingOffset = EntryLong(txtCmdOffset);
  velocity_.PendingDeadband = EntryLong(txtAnalogDeadband);
  velocity_.PendingFilter = EntryLong(txtAnalogFilter);
  Hide();
  if (velocity_.Visible()) velocity_.Show();
}

void AdvancedSettings::AutoOffsetClick() {
  if (measuring_) return;  // events run meanwhile, a second click among them
  measuring_ = true;
  const BoxAnswer answer = Desk().Ask(
      {.text = "Make sure analog input to drive is set for zero.", .buttons = BoxButtons::OkCancel});
  if (answer == BoxAnswer::Ok) MeasureOffset();
  measuring_ = false;
}

void AdvancedSettings::MeasureOffset() {
  line_.comm.Input();
  state_.CommandActive = true;
  PauseBeforeCommand(line_);
  LineHold hold(line_, 0);
  const std::string_view command = OffsetCommand(state_.DspRev, state_.MinorRev);
  line_.comm.Output(command);
  if (hold.Await(kReplySize, ReplyLimit(command))) {
    const Bytes reply = hold.Read();
    state_.Drive.Heard();
    txtCmdOffset.SetText(NumberText(ImageReader(reply).SignedStr2Num16() / 2.0));
    state_.Modified = true;
  } else {
    hold.TellNoAnswer();
    Desk().Ask({.text = kDriveNotResponding});
  }
}

std::string_view OffsetCommand(float revision, const std::string& letter) {
  const std::string code = CharacterCodes(letter);
  if (code.size() != 1) return kMeasureOffset;
  const bool from100k = static_cast<unsigned char>(code[0]) >= 'k' || revision != 1.00F;
  const bool not101A = letter != "A" || revision != 1.01F;
  return from100k && not101A ? kMeasureOffsetGuarded : kMeasureOffset;
}

}  // namespace kavr6
