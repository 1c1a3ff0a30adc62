// Sending the settings to the drive and fetching them back.
#pragma once

#include <functional>
#include <string>

#include "core/drive_state.h"
#include "core/settings.h"
#include "image/parameter_image.h"
#include "image/transfer_news.h"
#include "link/drive_identity.h"
#include "link/drive_line.h"
#include "motor/motor_calculations.h"
#include "motor/motor_table.h"

namespace kavr6 {

/// Title of the question that a load inertia which nobody has confirmed leads to.
inline constexpr const char* kInertiaQuestion = "Load Inertia Not Set";

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
  /// Reads the image of the drive and changes nothing. Done: it has come whole, with the right sum; else a
  /// box has told what went wrong.
  TransferEnd ReadImage(Bytes& image);
  /// Replaces the settings by an image whose sum has been tested. RuntimeError as DecodeImage.
  void ExtractUploadData(std::span<const Byte> buffer);

 private:
  TransferEnd TryDownload();
  TransferEnd TryUpload();
  bool InertiaConfirmed();
  TransferEnd CheckDriveAndLimits();
  void SendImage(const ParameterImage& image, const LineHold& hold);
  TransferEnd ReadAnswer(const LineHold& hold);
  TransferEnd Fetch(LineHold& hold, Bytes& image);
  TransferEnd TakeImage(LineHold& hold, Bytes& image);
  BoxAnswer Ask(const MessageBox& box) { return p_.line.boxes.Ask(box); }
  DriveState& State() { return p_.line.state; }
  void ShowProgress(double percent);

  TransferParts p_;
};

}  // namespace kavr6
