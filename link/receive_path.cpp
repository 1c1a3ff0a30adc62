#include "link/receive_path.h"

#include <algorithm>
#include <array>

#include "core/drive_models.h"
#include "core/numbers.h"
#include "link/wire.h"

namespace kavr6 {
namespace {

/// Where a freshly started drive is given time.
enum class Pause { BeforeModel, AfterModel, None };
constexpr double kPowerUpPause = 0.1;

/// By drive model index.
constexpr std::array<Pause, kDriveModels.size()> kPowerUpPauses{
    Pause::AfterModel, Pause::BeforeModel, Pause::None, Pause::AfterModel, Pause::BeforeModel, Pause::None};

MessageBox ReflashBox(const std::string& chip, const std::string& downloader) {
  return {.text =
              "If you just applied power to your drive and got this message, your drive is waiting for a "
              "firmware reflash of the " +
              chip +
              ".  You need to close this application, turn off the drive, then power it back up after "
              "starting the " +
              downloader +
              " Firmware Downloader.  If you have no idea what this means, please call Velmar at (800) "
              "555-0100 for technical support.  If your drive has been operating normally and you got "
              "this message, ignore it.",
          .icon = BoxIcon::Critical,
          .title = "Firmware reflash"};
}

MessageBox MismatchBox() {
  return {.text =
              "This version of the Zu firmware requires DSP firmware 1.52 or later.  You must upgrade "
              "your DSP firmware before running an Zu Program.",
          .icon = BoxIcon::Critical,
          .title = "Firmware mismatch"};
}

}  // namespace

ReceivePath::ReceivePath(const DriveLine& line) : line_(line), state_(line.state) {
  line_.comm.OnComm.Set([this](int event) {
    if (event == MSComm::kEventReceive) OnComm();
  });
}

void ReceivePath::AddLiveTool(const std::string& windowName, ProcessChar sink) {
  tools_[windowName] = std::move(sink);
}

void ReceivePath::Clear() {
  state_.GlobalBuffer.clear();
  ring_.RingClear();
}

void ReceivePath::DeliverWaiting() {
  if (state_.LiveToolActive) OnComm();
}

void ReceivePath::OnComm() {
  if (state_.LiveToolActive) {
    FeedLiveTool();
    ScanRing();  // the rest of a piece in the middle of which the tool has given the line back
  }
  // What a message does can let events run, and with them further notifications, a block transfer that takes
  // the notification away, or a live tool that takes the line.
  while (!state_.LiveToolActive && line_.comm.RThreshold() > 0 &&
         line_.comm.InBufferCount() >= line_.comm.RThreshold()) {
    ring_.RingPush(line_.comm.Input());
    ScanRing();
  }
}

void ReceivePath::FeedLiveTool() {
  const auto tool = FrontWindow ? tools_.find(FrontWindow()) : tools_.end();
  if (tool == tools_.end()) return ring_.RingPush(line_.comm.Input());
  while (state_.LiveToolActive) {
    // A tool in front loses nothing: of a burst, what the ring cannot hold waits in the port.
    ring_.RingPush(line_.comm.Input(RxRing::kRoom - ring_.RingCount()));
    if (ring_.RingCount() == 0) return;
    tool->second(ring_.RingPop());
    line_.pump.PumpEvents();
  }
}

void ReceivePath::ScanRing() {
  while (!state_.LiveToolActive && ring_.RingCount() > 0) {
    // Text waits too while a message may be under way.
    if (ring_.RingCount() < kMessageSize && ring_.RingHasHigh()) return;
    ScanForHeader();
    ScanForPacket();
  }
}

void ReceivePath::ScanForHeader() {
  while (ring_.RingCount() > 0 && ring_.RingPeek(1) < kFirstHeader)
    state_.GlobalBuffer += static_cast<char>(ring_.RingPop());
}

void ReceivePath::ScanForPacket() {
  if (ring_.RingCount() < kMessageSize) return;
  if (ring_.RingPeek(3) >= kFirstHeader) {
    ring_.RingPop();
    ring_.RingPop();
  } else if (ring_.RingPeek(2) >= kFirstHeader) {
    ring_.RingPop();
  } else if (ring_.RingPeek(1) >= kFirstHeader) {
    const std::uint8_t header = ring_.RingPop();
    const std::uint8_t b2 = ring_.RingPop();
    const std::uint8_t b3 = ring_.RingPop();
    HandleMsg(header, b2, b3);
  }
}

void ReceivePath::HandleMsg(std::uint8_t header, std::uint8_t b2, std::uint8_t b3) {
  switch (static_cast<MessageHeader>(header)) {
    case MessageHeader::Alarm:
      state_.Drive.Alarm(AlarmWord(b2, b3));
      if (ServoError152 && !state_.AlarmPopupOff) ServoError152(AlarmWord(b2, b3));
      return;
    case MessageHeader::IgnoredF4:
    case MessageHeader::IgnoredF7:
    case MessageHeader::IgnoredF8:
    case MessageHeader::IgnoredF9:
      return state_.Drive.Heard();
    case MessageHeader::Status:
      if (b2 == 0) return state_.Drive.FaultCleared();
      state_.DriveHasFault = true;
      return state_.Drive.FaultStands();
    case MessageHeader::Revision:
      state_.DspRev = RevisionOf(b2);
      state_.MinorRev = CharacterOf(b3);
      RevisionTold();
      state_.DriveVersion = ShownRevision(state_.DspRev, state_.MinorRev);
      return;
    case MessageHeader::DspReflash:
      state_.Drive.Heard();
      line_.boxes.Ask(ReflashBox("DSP", "DSP"));
      return;
    case MessageHeader::ZuFirmware:
      state_.Drive.Heard();
      line_.boxes.Ask(b2 == 1 ? MismatchBox() : ReflashBox("Zu chip", "Zu"));
      return;
    case MessageHeader::PowerUp:
      PowerUp(b2, b3);
      return;
  }
  ring_.RingClear();
}

void ReceivePath::RevisionTold() {
  const DriveRecord& drive = state_.Drive;
  // A revision alone does not tell whether it is still the model that is known.
  if (drive.Doubtful() || (drive.Known() && !drive.Sure())) return state_.Drive.Heard();
  state_.Drive.Identified(state_.DspRev, state_.Drive.ModelCode());
  state_.Drive.LetterIs(state_.MinorRev);
}

void ReceivePath::PowerUp(int revision, int model) {
  line_.comm.SetRThreshold(1);
  state_.DspRev = RevisionOf(revision);
  state_.DriveModelCode = model;
  state_.Drive.Restarted(state_.DspRev, model);
  const int index = ModelIndex(model);
  if (index < 0) {
    state_.DriveVersion = "";
    return;
  }
  line_.comm.Output(kQuitText);
  line_.boxes.Beep();
  const Pause pause = kPowerUpPauses[static_cast<std::size_t>(index)];
  if (pause == Pause::BeforeModel) Delay(line_.pump, kPowerUpPause);
  state_.SelectModelOfDrive(index);
  if (pause == Pause::AfterModel) Delay(line_.pump, kPowerUpPause);
  state_.DriveVersion = ShownRevision(state_.DspRev, {});
}

}  // namespace kavr6
