// Sending the settings to the drive and fetching them back.
#pragma once

#include <functional>
#include <string>

#include "core/drive_state.h"
#include "core/settings.h"
#include "image/parameter_image.h"
#include "link/drive_identity.h"
#include "link/drive_line.h"
#include "motor/motor_calculations.h"
#include "motor/motor_table.h"

namespace kavr6 {

/// How a transfer ended.
enum class TransferEnd {
  Done,       ///< acknowledged by the drive, or read from it with the right sum
  Declined,   ///< the user has said no to a question
  NoPort,     ///< no port is open
  NoDrive,    ///< nothing has answered, or a drive that is none of the family
  OverLimit,  ///< a setting is beyond what drive or firmware can do; nothing has been sent
  NoReply,    ///< nothing, or not all of it, has come in time
  BadSum,     ///< the drive has refused the sum, or that of its image does not hold
  Unknown,    ///< the drive's answer to an image was none that is known
};

/// What the transactions work on.
struct TransferParts {
  DriveLine line;
  Settings& settings;
  DriveIdentity& identity;
  MotorTable& motorTable;
  CurrentLimits& limits;
};

/// Both transactions with their checks and messages. Events run in every wait and after every byte sent, so a
/// second click does start a second transaction inside the first, and a port may close under a running one:
/// its wait then runs into its limit. RThreshold is 1 again and Progress 0 on every way out.
class Transfers {
 public:
  explicit Transfers(const TransferParts& parts) : p_(parts) {}

  /// Presses OK of each open setup dialog, in their fixed order.
  std::function<void()> CommitOpenDialogs;
  /// Selects the motor that the drive reports, or appends it to the table.
  std::function<void(const MotorRecord&)> AddMotorIfMissing;
  /// Shows all settings anew.
  std::function<void()> SummarizeAll;
  /// Called when all settings, or some of them, come from elsewhere now.
  std::function<void()> SettingsReplaced;

  /// The user's two entry points.
  TransferEnd DownloadClick();
  TransferEnd UploadClick();

  /// Checks the drive and the limits, then sends. Modified is cleared once DataDownload has run, even when
  /// the drive did not take the image.
  TransferEnd DoDownload();
  /// Sends without any check.
  TransferEnd DoDownloadNoCheckDrive();
  /// The two exchanges themselves.
  TransferEnd DataDownload();
  TransferEnd DataUpload();
  /// Replaces the settings by an image whose sum has been tested. RuntimeError as DecodeImage.
  void ExtractUploadData(std::span<const Byte> buffer);

 private:
  bool InertiaConfirmed();
  TransferEnd CheckDriveAndLimits();
  void SendImage(const ParameterImage& image, const LineHold& hold);
  TransferEnd ReadAnswer();
  TransferEnd TakeUpload(LineHold& hold);
  BoxAnswer Ask(const MessageBox& box) { return p_.line.boxes.Ask(box); }
  DriveState& State() { return p_.line.state; }
  void ShowProgress(double percent);

  TransferParts p_;
};

}  // namespace kavr6
