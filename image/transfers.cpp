#include "image/transfers.h"

#include <algorithm>

#include "core/io_modes.h"
#include "core/numbers.h"
#include "image/transfer_news.h"
#include "link/wire.h"

namespace kavr6 {
namespace {

constexpr double kDownloadAnswerPause = 0.1;
constexpr float kTachFirmware = 1.02F;

MessageBox ChecksumBox(const std::string& what) {
  return {
      .text = what +
              " correctly.  Make sure the cable connections are secure and that you are not working around "
              "electrical noise, such as a welder, a high powered motor or big relays.",
      .title = "Checksum Error"};
}

}  // namespace

TransferEnd Transfers::DownloadClick() {
  const TransferEnd end = TryDownload();
  TellDownload(State(), end);
  return end;
}

TransferEnd Transfers::TryDownload() {
  if (NoCommPort(p_.line.comm)) {
    Ask({.text = "Cannot download to drive: there is no comm port open.", .icon = BoxIcon::Information});
    return TransferEnd::NoPort;
  }
  if (CommitOpenDialogs) CommitOpenDialogs();
  return InertiaConfirmed() ? DoDownload() : TransferEnd::Declined;
}

bool Transfers::InertiaConfirmed() {
  if (State().InertiaSet) return true;
  const BoxAnswer answer =
      Ask({.text = "You have not set the load inertia in the Motor Settings.  The electronic damping and "
                   "anti-resonance will work better if you set the load inertia accurately.  Do you want to "
                   "download your settings anyway?",
           .icon = BoxIcon::Question,
           .title = kInertiaQuestion,
           .buttons = BoxButtons::YesNo,
           .careful = true});
  if (answer == BoxAnswer::Yes) State().InertiaSet = true;
  return answer == BoxAnswer::Yes;
}

TransferEnd Transfers::DoDownload() {
  if (!p_.line.comm.PortOpen()) return TransferEnd::NoPort;
  p_.line.comm.Output(kBeforeTransfer);
  TransferEnd end = CheckDriveAndLimits();
  if (end == TransferEnd::Done) {
    end = DataDownload();
    // A failed exchange clears the flag as well.
    State().Modified = false;
  }
  p_.line.comm.SetRThreshold(1);
  return end;
}

TransferEnd Transfers::DoDownloadNoCheckDrive() {
  const TransferEnd end = DataDownload();
  State().Modified = false;
  return end;
}

TransferEnd Transfers::CheckDriveAndLimits() {
  const std::string identity = p_.identity.CheckDrive();
  if (identity.size() < 2) return TransferEnd::NoDrive;
  State().DspRev = RevisionOf(static_cast<unsigned char>(identity[0]));
  State().DriveModelCode = static_cast<unsigned char>(identity[1]);
  if (p_.limits.MaxDriveCurrent() < static_cast<float>(p_.settings.RunCurrent)) {
    Ask({.text = "The motor current setting exceeds the maximum capacity of this drive.  Please click "
                 "the Motor button to change the current setting."});
    return TransferEnd::OverLimit;
  }
  if (State().DspRev < kTachFirmware && p_.settings.MotionOutMode > kFirstTach) {
    Ask({.text = "You need DSP firmware 1.02 or later to use a Tach output with greater than 100 "
                 "pulses/rev.  Please click the I/O button and change the tach setting to 100 "
                 "pulses/rev or contact the factory for a firmware upgrade."});
    return TransferEnd::OverLimit;
  }
  return TransferEnd::Done;
}

void Transfers::ShowProgress(double percent) { State().Progress = ToLong(std::clamp(percent, 0.0, 100.0)); }

TransferEnd Transfers::DataDownload() {
  // The answer is one byte: it must not reach the receive path.
  LineHold hold(p_.line, 3);
  ShowProgress(0);
  p_.line.comm.Output(kDownload);
  State().Drive.ForgetImage();
  ParameterImage image{};
  DownloadString(image, p_.settings, p_.motorTable.Row());
  StoreChecksum(image);
  SendImage(image, hold);
  hold.Await(1, ReplyLimit(kDownload));
  Delay(p_.line.pump, kDownloadAnswerPause);
  if (hold.Broken()) hold.Read();
  const TransferEnd end = ReadAnswer(hold);
  if (end == TransferEnd::Done) {
    State().Drive.Holds(image);
  } else {
    State().Drive.ForgetImage();
    State().Drive.Doubt();
  }
  return end;
}

void Transfers::SendImage(const ParameterImage& image, const LineHold& hold) {
  for (std::size_t i = 0; i < image.size() && !hold.Broken(); ++i) {
    WriteByte(p_.line.comm, image[i]);
    ShowProgress(static_cast<double>(i * 100) / (kImageSize - 1));
    p_.line.pump.PumpEvents();
  }
}

TransferEnd Transfers::ReadAnswer(const LineHold& hold) {
  if (p_.line.comm.InBufferCount() == 0) {
    hold.TellNoAnswer();
    Ask({.text = "The download did not work.  Is it connected to the right port and turned on?",
         .icon = BoxIcon::Question});
    return TransferEnd::NoReply;
  }
  const Byte answer = p_.line.comm.Input().front();
  State().Drive.Heard();
  if (answer == kRefusal) {
    Ask(ChecksumBox("The data did not download"));
    return TransferEnd::BadSum;
  }
  if (answer != kAcknowledge) return TransferEnd::Unknown;
  State().Modified = false;
  return TransferEnd::Done;
}

TransferEnd Transfers::UploadClick() {
  const TransferEnd end = TryUpload();
  TellUpload(State(), end);
  return end;
}

TransferEnd Transfers::TryUpload() {
  if (State().Modified) {
    const BoxAnswer answer =
        Ask({.text = "You have made changes without Saving or Downloading.  Do you really want to upload and "
                     "replace your program?",
             .icon = BoxIcon::Question,
             .title = "Open",
             .buttons = BoxButtons::OkCancel,
             .careful = true});
    if (answer != BoxAnswer::Ok) return TransferEnd::Declined;
  }
  if (NoCommPort(p_.line.comm)) {
    Ask({.text = "Cannot upload from drive: there is no comm port open.", .icon = BoxIcon::Information});
    return TransferEnd::NoPort;
  }
  p_.line.comm.Output(kBeforeTransfer);
  if (p_.identity.SilentCheckDrive().empty()) return TransferEnd::NoDrive;
  if (p_.identity.CheckDrive().size() < 2) return TransferEnd::NoDrive;
  const TransferEnd end = DataUpload();
  p_.identity.CheckDrive();
  return end;
}

TransferEnd Transfers::DataUpload() {
  State().CommandActive = true;
  PauseBeforeCommand(p_.line);
  LineHold hold(p_.line, 0);
  Bytes image;
  if (const TransferEnd end = Fetch(hold, image); end != TransferEnd::Done) return end;
  ExtractUploadData(image);
  State().Drive.Holds(image);
  hold.Release();
  if (SummarizeAll) SummarizeAll();
  if (SettingsReplaced) SettingsReplaced();
  State().Modified = false;
  return TransferEnd::Done;
}

TransferEnd Transfers::ReadImage(Bytes& image) {
  LineHold hold(p_.line, 0);
  const TransferEnd end = Fetch(hold, image);
  if (end == TransferEnd::Done) State().Drive.Holds(image);
  return end;
}

TransferEnd Transfers::Fetch(LineHold& hold, Bytes& image) {
  ShowProgress(0);
  p_.line.comm.Output(kUpload);
  int count = 0;
  const bool inTime = hold.Await(static_cast<int>(kImageSize), ReplyLimit(kUpload), [&](int waiting) {
    count = waiting;
    ShowProgress(waiting * 100.0 / kImageSize);
  });
  if (inTime) return TakeImage(hold, image);
  // What has come may have been the word of a drive that starts.
  State().Drive.ForgetImage();
  hold.TellNoAnswer();
  Ask({.text = "We are having trouble uploading tuning data from the drive. Is it connected to the "
               "right port and turned on?  If you are using your PC for anything processor intensive, "
               "such as opening a large file in another application, this can interfere with drive "
               "communication.",
       .icon = BoxIcon::Question,
       .title = "Tuner Upload Problem " + std::to_string(count) + " " +
                std::to_string(p_.line.comm.RThreshold())});
  return TransferEnd::NoReply;
}

TransferEnd Transfers::TakeImage(LineHold& hold, Bytes& image) {
  image = hold.Read();
  State().Drive.Heard();
  if (ChecksumHolds(image)) return TransferEnd::Done;
  State().Drive.ForgetImage();
  State().Drive.Doubt();
  Ask(ChecksumBox("Your program did not upload"));
  return TransferEnd::BadSum;
}

void Transfers::ExtractUploadData(std::span<const Byte> buffer) {
  const UploadedMotor uploaded = DecodeImage(buffer, p_.settings);
  if (AddMotorIfMissing) AddMotorIfMissing(uploaded.Motor);
  // Works from the motor that has just been selected.
  CalcLoadInertia(p_.settings, p_.motorTable.Row(), uploaded.ARfreq);
  p_.limits.LimitContCurrent();
  p_.limits.LimitIdleCurrent();
  ShowModeName(State(), p_.settings);
}

}  // namespace kavr6
