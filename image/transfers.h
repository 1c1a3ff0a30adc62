// Sending the settings to the drive and fetching them back.
#pragma once

#include <functional>
#include <string>

#include "core/main_screen.h"
#include "core/settings.h"
#include "image/parameter_image.h"
#include "link/drive_identity.h"
#include "motor/motor_calculations.h"
#include "motor/motor_table.h"
#include "platform/mscomm.h"

namespace kavr6 {

/// What the transactions work on.
struct TransferParts {
  MainScreen& screen;
  Settings& settings;
  MSComm& comm;
  DriveIdentity& identity;
  MotorTable& motorTable;
  MotorCalculations& calculations;
};

/// Both transactions with their checks and messages. Events run in every wait and after every byte sent, so a
/// second click does start a second transaction inside the first, and a port may close under a running one:
/// its wait then runs into its limit. RThreshold is 1 again and ProgBar 0 on every way out but a
/// RuntimeError, which ends the program.
class Transfers {
 public:
  explicit Transfers(const TransferParts& parts) : p_(parts) {}

  /// Presses OK of each open setup dialog, in their fixed order.
  std::function<void()> CommitOpenDialogs;
  /// Selects the motor that the drive reports, or appends it to the table.
  std::function<void(const MotorRecord&)> AddMotorIfMissing;
  /// Shows all settings anew.
  std::function<void()> SummarizeAll;

  /// The user's two entry points.
  void DownloadClick();
  void UploadClick();

  /// Checks the drive and the limits, then sends. Modified is cleared once DataDownload has run, even when
  /// the drive did not take the image.
  void DoDownload();
  /// Sends without any check.
  void DoDownloadNoCheckDrive();
  /// The two exchanges themselves.
  void DataDownload();
  void DataUpload();
  /// Replaces the settings by an image whose sum has been tested. RuntimeError as DecodeImage.
  void ExtractUploadData(std::span<const Byte> buffer);

 private:
  bool DriveTakesSettings();
  void SendImage(const ParameterImage& image);
  void ReadAnswer();
  void TakeUpload(const Bytes& buffer);
  void ReleaseLine();
  void EndExchange();

  TransferParts p_;
};

}  // namespace kavr6
