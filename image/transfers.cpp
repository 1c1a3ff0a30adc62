#include "image/transfers.h"

#include "core/numbers.h"
#include "link/comm_ports.h"

namespace kavr6 {
namespace {

constexpr Byte kAcknowledge = 6;
constexpr Byte kRefusal = 21;
constexpr double kDownloadAnswerLimit = 1.0;
constexpr double kDownloadAnswerPause = 0.1;
constexpr double kUploadLimit = 0.5;
constexpr float kTachFirmware = 1.02F;
constexpr Long kLastSlowTachMode = 4;

MessageBox ChecksumBox(const std::string& what) {
  return {
      .text = what +
              " correctly.  Make sure the cable connections are secure and that you are not working around "
              "electrical noise, such as a welder, a high powered motor or big relays.",
      .title = "Checksum Error"};
}

}  // namespace

void Transfers::DownloadClick() {
  Desktop& desktop = p_.screen.Screen();
  if (NoCommPort(p_.comm)) {
    desktop.Ask(
        {.text = "Cannot download to drive: there is no comm port open.", .icon = BoxIcon::Information});
    return;
  }
  if (CommitOpenDialogs) CommitOpenDialogs();
  if (!p_.screen.InertiaSet) {
    const BoxAnswer answer = desktop.Ask(
        {.text = "You have not set the load inertia in the Motor Settings.  The electronic damping and "
                 "anti-resonance will work better if you set the load inertia accurately.  Do you want to "
                 "download your settings anyway?",
         .icon = BoxIcon::Question,
         .title = "Load Inertia Not Set",
         .buttons = BoxButtons::YesNo});
    if (answer != BoxAnswer::Yes) return;
    p_.screen.InertiaSet = true;
  }
  DoDownload();
}

void Transfers::DoDownload() {
  if (!p_.comm.PortOpen()) return;
  p_.comm.Output("S");
  if (DriveTakesSettings()) {
    DataDownload();
    // A failed exchange clears the flag as well.
    p_.screen.Modified = false;
  }
  p_.comm.SetRThreshold(1);
}

void Transfers::DoDownloadNoCheckDrive() {
  DataDownload();
  p_.screen.Modified = false;
}

bool Transfers::DriveTakesSettings() {
  const std::string identity = p_.identity.CheckDrive();
  if (identity.size() < 2) return false;
  p_.screen.DspRev = RevisionOf(static_cast<unsigned char>(identity[0]));
  p_.screen.DriveModelCode = static_cast<unsigned char>(identity[1]);
  Desktop& desktop = p_.screen.Screen();
  if (p_.calculations.MaxDriveCurrent() < static_cast<float>(p_.settings.RunCurrent)) {
    desktop.Ask({.text =
                     "The motor current setting exceeds the maximum capacity of this drive.  Please click "
                     "the Motor button to change the current setting."});
    return false;
  }
  if (p_.screen.DspRev < kTachFirmware && p_.settings.MotionOutMode > kLastSlowTachMode) {
    desktop.Ask({.text = "You need DSP firmware 1.02 or later to use a Tach output with greater than 100 "
                         "pulses/rev.  Please click the I/O button and change the tach setting to 100 "
                         "pulses/rev or contact the factory for a firmware upgrade."});
    return false;
  }
  return true;
}

void Transfers::DataDownload() {
  p_.screen.CommandActive = true;
  // The answer is one byte: it must not reach the receive path.
  p_.comm.SetRThreshold(3);
  p_.comm.Input();
  p_.screen.ProgBar.SetFloodPercent(0);
  p_.comm.Output("d");
  ParameterImage image{};
  DownloadString(image, p_.settings, p_.motorTable, p_.calculations);
  StoreChecksum(image);
  SendImage(image);
  AwaitBytes(p_.screen.Screen(), p_.comm, 1, kDownloadAnswerLimit);
  Delay(p_.screen.Screen(), kDownloadAnswerPause);
  ReadAnswer();
  EndExchange();
}

void Transfers::SendImage(const ParameterImage& image) {
  for (std::size_t i = 0; i < image.size(); ++i) {
    WriteByte(p_.comm, image[i]);
    p_.screen.ProgBar.SetFloodPercent(ToLong(static_cast<double>(i * 100) / (kImageSize - 1)));
    p_.screen.Screen().PumpEvents();
  }
}

void Transfers::ReadAnswer() {
  if (p_.comm.InBufferCount() == 0) {
    p_.screen.Screen().Ask(
        {.text = "The download did not work.  Is it connected to the right port and turned on?",
         .icon = BoxIcon::Question});
    return;
  }
  const Byte answer = p_.comm.Input().front();
  if (answer == kRefusal) p_.screen.Screen().Ask(ChecksumBox("The data did not download"));
  if (answer == kAcknowledge) p_.screen.Modified = false;
}

void Transfers::ReleaseLine() {
  p_.comm.SetRThreshold(1);
  p_.screen.ProgBar.SetFloodPercent(0);
}

void Transfers::EndExchange() {
  ReleaseLine();
  p_.screen.CommandActive = false;
}

void Transfers::UploadClick() {
  Desktop& desktop = p_.screen.Screen();
  if (p_.screen.Modified) {
    const BoxAnswer answer = desktop.Ask(
        {.text =
             "You have made changes without Saving or Downloading.  Do you really want to upload and replace "
             "your program?",
         .icon = BoxIcon::Question,
         .title = "Open",
         .buttons = BoxButtons::OkCancel});
    if (answer != BoxAnswer::Ok) return;
  }
  if (NoCommPort(p_.comm)) {
    desktop.Ask(
        {.text = "Cannot upload from drive: there is no comm port open.", .icon = BoxIcon::Information});
    return;
  }
  p_.comm.Output("S");
  if (p_.identity.SilentCheckDrive().empty()) return;
  if (p_.identity.CheckDrive().size() < 2) return;
  DataUpload();
  p_.identity.CheckDrive();
}

void Transfers::DataUpload() {
  Desktop& desktop = p_.screen.Screen();
  p_.screen.CommandActive = true;
  PauseBeforeCommand(p_.screen);
  p_.comm.SetRThreshold(0);
  p_.comm.Input();
  p_.screen.ProgBar.SetFloodPercent(0);
  p_.comm.Output("u");
  int count = 0;
  const bool inTime =
      AwaitBytes(p_.screen.Screen(), p_.comm, static_cast<int>(kImageSize), kUploadLimit, [&] {
        count = p_.comm.InBufferCount();
        p_.screen.ProgBar.SetFloodPercent(ToLong(count * 100.0 / kImageSize));
      });
  if (inTime) {
    TakeUpload(p_.comm.Input());
  } else {
    desktop.Ask({.text =
                     "We are having trouble uploading tuning data from the drive. Is it connected to the "
                     "right port and turned on?  If you are using your PC for anything processor intensive, "
                     "such as opening a large file in another application, this can interfere with drive "
                     "communication.",
                 .icon = BoxIcon::Question,
                 .title = "Tuner Upload Problem " + std::to_string(count) + " " +
                          std::to_string(p_.comm.RThreshold())});
  }
  EndExchange();
}

void Transfers::TakeUpload(const Bytes& buffer) {
  if (!ChecksumHolds(buffer)) {
    p_.screen.Screen().Ask(ChecksumBox("Your program did not upload"));
    return;
  }
  ExtractUploadData(buffer);
  ReleaseLine();
  if (SummarizeAll) SummarizeAll();
  p_.screen.Modified = false;
}

void Transfers::ExtractUploadData(std::span<const Byte> buffer) {
  const UploadedMotor uploaded = DecodeImage(buffer, p_.settings);
  if (AddMotorIfMissing) AddMotorIfMissing(uploaded.Motor);
  // Works from the motor that has just been selected.
  p_.calculations.CalcLoadInertia(uploaded.ARfreq);
  p_.calculations.LimitContCurrent();
  p_.calculations.LimitIdleCurrent();
  ShowModeName(p_.screen, p_.settings);
}

}  // namespace kavr6
