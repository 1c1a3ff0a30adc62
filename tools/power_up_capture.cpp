#include "tools/power_up_capture.h"

#include "core/drive_state.h"
#include "link/wire.h"

namespace kavr6 {
namespace {

constexpr std::uint8_t kAnnouncement = static_cast<std::uint8_t>(MessageHeader::PowerUp);
constexpr int kFirstSilentModel = 100;

}  // namespace

bool PowerUpCapture::Take(std::uint8_t byte) {
  if (!InPowerUp && byte != kAnnouncement) return false;
  if (!InPowerUp) PowerUpText.clear();
  PowerUpText += static_cast<char>(byte);
  InPowerUp = PowerUpText.size() < kMessageSize;
  if (!InPowerUp && DoPowerUp) DoPowerUp(PowerUpText);
  return true;
}

void TellRestart(DriveRecord& drive, std::uint8_t revision, std::uint8_t model) {
  if (revision < kFirstHeader && model < kFirstHeader) drive.Restarted(RevisionOf(revision), model);
}

void AnswerPowerUp(const DriveLine& line, std::uint8_t revision, std::uint8_t model) {
  if (model < kFirstSilentModel) line.comm.Output(kTakeUpText);
  line.boxes.Beep();
  TellRestart(line.state.Drive, revision, model);
  line.state.DriveVersion = ShownRevision(RevisionOf(revision), {});
}

}  // namespace kavr6
