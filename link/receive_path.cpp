#include "link/receive_path.h"

#include <algorithm>
#include <array>

#include "core/drive_models.h"
#include "core/numbers.h"

namespace kavr6 {
namespace {

constexpr std::uint8_t kFirstHeader = 128;
constexpr int kMessageSize = 3;

enum Header : std::uint8_t {
  kZuFirmware = 0xEF,
  kDspReflash = 0xF0,
  kRevision = 0xF1,
  kStatus = 0xF3,
  kIgnoredF4 = 0xF4,
  kIgnoredF7 = 0xF7,
  kIgnoredF8 = 0xF8,
  kIgnoredF9 = 0xF9,
  kAlarm = 0xFC,
  kPowerUp = 0xFF,
};

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

ReceivePath::ReceivePath(MainScreen& screen, MSComm& comm) : screen_(screen), comm_(comm) {
  comm_.OnComm.Set([this](int event) {
    if (event == MSComm::kEventReceive) OnComm();
  });
}

void ReceivePath::AddLiveTool(const std::string& windowName, ProcessChar sink) {
  tools_[windowName] = std::move(sink);
}

void ReceivePath::Clear() {
  screen_.GlobalBuffer.clear();
  ring_.RingClear();
}

void ReceivePath::OnComm() {
  if (screen_.LiveToolActive) {
    FeedLiveTool();
    return;
  }
  // What a message does can let events run, and with them further notifications, a block transfer that takes
  // the notification away, or a live tool that takes the line.
  while (!screen_.LiveToolActive && comm_.RThreshold() > 0 && comm_.InBufferCount() >= comm_.RThreshold()) {
    ring_.RingPush(comm_.Input());
    ScanRing();
  }
}

void ReceivePath::FeedLiveTool() {
  ring_.RingPush(comm_.Input());
  const auto tool = tools_.find(screen_.Desk().ActiveFormName());
  if (tool == tools_.end()) return;
  while (ring_.RingCount() > 0) {
    tool->second(static_cast<char>(ring_.RingPop()));
    screen_.Desk().PumpEvents();
  }
}

void ReceivePath::ScanRing() {
  while (!screen_.LiveToolActive && ring_.RingCount() > 0) {
    // Text waits too while a message may be under way.
    if (ring_.RingCount() < kMessageSize && ring_.RingHasHigh()) return;
    ScanForHeader();
    ScanForPacket();
  }
}

void ReceivePath::ScanForHeader() {
  while (ring_.RingCount() > 0 && ring_.RingPeek(1) < kFirstHeader)
    screen_.GlobalBuffer += static_cast<char>(ring_.RingPop());
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
  switch (header) {
    case kAlarm:
      if (!screen_.AlarmPopupOff && ServoError152) ServoError152(b2 * 128 + b3);
      break;
    case kIgnoredF4:
    case kIgnoredF7:
    case kIgnoredF8:
    case kIgnoredF9:
      break;
    case kStatus:
      if (b2 != 0) screen_.DriveHasFault = true;
      break;
    case kRevision:
      screen_.DspRev = RevisionOf(b2);
      screen_.MinorRev = CharacterOf(b3);
      screen_.DriveVersion.SetCaption(RevisionText(screen_.DspRev) + " " + screen_.MinorRev);
      break;
    case kDspReflash:
      screen_.Desk().Ask(ReflashBox("DSP", "DSP"));
      break;
    case kZuFirmware:
      screen_.Desk().Ask(b2 == 1 ? MismatchBox() : ReflashBox("Zu chip", "Zu"));
      break;
    case kPowerUp:
      PowerUp(b2, b3);
      break;
    default:
      ring_.RingClear();
  }
}

void ReceivePath::PowerUp(int revision, int model) {
  comm_.SetRThreshold(1);
  screen_.DspRev = RevisionOf(revision);
  screen_.DriveModelCode = model;
  const int index = ModelIndex(model);
  if (index < 0) {
    screen_.DriveVersion.SetCaption("");
    return;
  }
  comm_.Output("QT");
  screen_.Desk().Beep();
  const Pause pause = kPowerUpPauses[static_cast<std::size_t>(index)];
  if (pause == Pause::BeforeModel) Delay(screen_.Desk(), kPowerUpPause);
  screen_.ModelList.SetListIndex(index);
  if (pause == Pause::AfterModel) Delay(screen_.Desk(), kPowerUpPause);
  screen_.DriveVersion.SetCaption(RevisionText(screen_.DspRev));
}

}  // namespace kavr6
