// The main screen's controls and the values that it shares with the rest of the program.
#pragma once

#include <string>

#include "core/settings.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/grid.h"
#include "platform/watched.h"

namespace kavr6 {

inline constexpr const char* kProgramTitle = "KAVR6 Configurator";

/// What the questions for a file, to open, save or print, have in common.
struct FileDialogState {
  std::string Filter = "Configurator Files|*.cnf";
  std::string DefaultExt = "cnf";
  std::string InitDir;  ///< where the next one begins, UTF-8
};

/// The window "MainForm" without its behaviour: what the link, the transfers and the dialogs show things on
/// and read shared values from.
class MainScreen : public Form {
 public:
  explicit MainScreen(Desktop& desktop);

  ImageButton Motion{*this, "Motion", "MotionUp", "MotionDown"};
  ImageButton Motor{*this, "Motor", "MotorUp", "MotorDown"};
  ImageButton Encoder{*this, "Encoder", "EncoderUp", "EncoderDown"};
  ImageButton IO{*this, "IO", "IOup", "IOdown"};
  ImageButton Regen{*this, "Regen", "RegenUp", "RegenDown"};
  ImageButton Download{*this, "Download", "DownloadUp", "DownloadDown"};
  ImageButton Upload{*this, "Upload", "UploadUp", "UploadDown"};
  ListBox CommList{*this, "CommList"};
  ListBox ModelList{*this, "ModelList"};
  Label Label2{*this, "Label2", "Revision"};
  Label DriveVersion{*this, "DriveVersion"};
  PercentPanel ProgBar{*this, "ProgBar"};
  Frame GridPanel{*this, "GridPanel"};
  Grid Summary{*this, "Summary", 23, 2};
  Label MotionDesc{*this, "MotionDesc"};

  HotSpot HSACPower{*this, "HSACPower"};
  HotSpot HSdomelabel{*this, "HSdomelabel"};
  HotSpot HSencoder{*this, "HSencoder"};
  HotSpot HSinout1{*this, "HSinout1"};
  HotSpot HSinout2{*this, "HSinout2"};
  HotSpot HSled{*this, "HSled"};
  HotSpot HSrs485{*this, "HSrs485"};

  ConnectorLine MotorLine1{*this, "MotorLine1"};
  ConnectorLine MotorLine2{*this, "MotorLine2"};
  ConnectorLine MotionLine{*this, "MotionLine"};
  ConnectorLine RegenLine1{*this, "RegenLine1"};
  ConnectorLine RegenLine2{*this, "RegenLine2"};
  ConnectorLine IOLine{*this, "IOLine"};
  ConnectorLine EncoderLine{*this, "EncoderLine"};
  ConnectorLine CommLine{*this, "CommLine"};
  ConnectorLine DriveLine1{*this, "DriveLine1"};
  ConnectorLine DriveLine2{*this, "DriveLine2"};

  Label StatusPort{*this, "StatusPort"};
  Label StatusDrive{*this, "StatusDrive"};
  Label StatusSettings{*this, "StatusSettings"};

  MenuItem MenuOpen{*this, "MenuOpen", "Open..."};
  MenuItem MenuSave{*this, "MenuSave", "Save"};
  MenuItem MenuSaveAs{*this, "MenuSaveAs", "Save As..."};
  MenuItem MenuPrint{*this, "MenuPrint", "Print..."};
  MenuItem MenuExit{*this, "MenuExit", "Exit"};
  MenuItem MenuHistory{*this, "MenuHistory", "Alarm History"};
  MenuItem MenuClearFault{*this, "MenuClearFault", "Clear Alarm"};
  MenuItem MenuIOStatus{*this, "MenuIOStatus", "Status Monitor..."};
  MenuItem MenuRestore{*this, "MenuRestore", "Restore Factory Defaults"};
  MenuItem MenuTerminal{*this, "MenuTerminal", "VTL Terminal..."};
  MenuItem MenuSelfTest{*this, "MenuSelfTest", "Self Test"};
  MenuItem MenuContents{*this, "MenuContents", "Contents"};
  MenuItem menuContactUs{*this, "menuContactUs", "Contact Us"};
  MenuItem menuWebSite{*this, "menuWebSite", "Website"};
  MenuItem MenuAbout{*this, "MenuAbout", "About"};

  FileDialogState SaveFile;

  std::string AppVersion;
  std::string HelpDir;          ///< with its closing separator
  std::string FileName;         ///< empty: untitled
  Watched<bool> Modified;       ///< changed since the last save, open, upload or download
  bool InertiaSet = false;      ///< the load inertia has been confirmed
  bool MotorTouched = false;    ///< the motor dialog has been opened
  Watched<int> CommNumber;      ///< port in use as the list knows it, 1 to 8
  int StartPort = 0;            ///< port that the start has reached, 0 for none
  Watched<float> DspRev;        ///< firmware revision of the drive, 0 before one has answered
  std::string MinorRev;         ///< its letter, empty when unknown
  Watched<int> DriveModelCode;  ///< model byte of the drive
  std::string GlobalBuffer;     ///< reply text of the drive: received bytes below 128
  bool LiveToolActive = false;  ///< a live tool has the serial stream
  bool AlarmPopupOff = false;   ///< alarm messages are dropped
  bool DriveHasFault = false;   ///< raised by messages, read by nothing
  bool CommandActive = false;   ///< raised around an exchange, read by nothing
  bool CommandPause = false;    ///< a pause before each exchange; nothing sets it
};

/// "1.0", or "1.0.3" when the revision is not 0.
std::string VersionText(const ProgramVersion& version);
/// The revision of a drive from its revision byte, and as text.
float RevisionOf(int revisionByte);
std::string RevisionText(float revision);
/// The pause before an exchange, where CommandPause asks for it.
void PauseBeforeCommand(MainScreen& screen);
/// Sets the MotionDesc caption from the settings.
void ShowModeName(MainScreen& screen, const Settings& settings);
/// Sets the title: the program's title and version, then the file's name or "untitled".
void ShowTitle(MainScreen& screen, const std::string& fileName);

}  // namespace kavr6
