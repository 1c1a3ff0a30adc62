// What drive, line and settings are doing at this moment.
#pragma once

#include <string>

#include "core/drive_record.h"
#include "core/news.h"
#include "core/settings.h"
#include "platform/watched.h"

namespace kavr6 {

/// Ports COM1 to COM8.
inline constexpr int kPortCount = 8;

/// The values that all parts of the program share. One instance is one program. The watched ones are those
/// that the main screen follows, so that the parts below it need not know of any window.
struct DriveState {
  Watched<int> CommNumber;     ///< port in use as the list knows it, 1 to 8
  Watched<int> CommIndex{-1};  ///< selected row of the port list
  int StartPort = 0;           ///< port that the start has reached, 0 for none

  float DspRev = 0;                   ///< firmware revision of the drive, 0 before one has answered
  std::string MinorRev;               ///< its letter, empty when unknown
  int DriveModelCode = 0;             ///< model byte of the drive
  Watched<std::string> DriveVersion;  ///< revision and letter as they are shown
  Watched<int> ModelIndex{-1};        ///< selected row of the model list: the drive model index, -1 for none

  std::string GlobalBuffer;     ///< reply text of the drive: received bytes below 128
  bool LiveToolActive = false;  ///< a live tool has the serial stream
  bool AlarmPopupOff = false;   ///< alarm messages open no window
  bool DriveHasFault = false;   ///< raised by messages, read by nothing
  bool CommandActive = false;   ///< raised around an exchange, read by nothing
  bool CommandPause = false;    ///< a pause before each exchange; nothing sets it
  Watched<int> Progress;        ///< of a transfer, 0 to 100 percent

  bool Modified = false;            ///< changed since the last save, open, upload or download
  bool InertiaSet = false;          ///< the load inertia has been confirmed
  bool MotorTouched = false;        ///< the motor dialog has been opened
  Watched<std::string> MotionDesc;  ///< name of the motion mode, "&&" for a shown ampersand
  std::string FileName;             ///< full path of the configuration file, empty: untitled
  Watched<std::string> TitleName;   ///< file name in the main screen's title; empty: untitled

  std::string AppVersion;  ///< "1.0", or "1.0.3" when the revision is not 0
  std::string HelpDir;     ///< with its closing separator

  News Happened;                ///< what happened last
  DriveRecord Drive{Happened};  ///< what is known of the drive; the values above are what it said last

  /// The drive has told its model, by its index: the list of models follows.
  void SelectModelOfDrive(int index);
};

/// The revision of a drive from its revision byte.
float RevisionOf(int revisionByte);
/// Revision and letter for the screen: "1.52 k", or "1.52" without a letter or with one that cannot be shown.
std::string ShownRevision(float revision, const std::string& letter);
/// Sets MotionDesc from the settings.
void ShowModeName(DriveState& state, const Settings& settings);

}  // namespace kavr6
