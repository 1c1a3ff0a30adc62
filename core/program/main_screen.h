// The main screen's controls and the values that it shares with the rest of the program.
#pragma once

#include <string>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/grid.h"

namespace kavr6 {

inline constexpr const char* kProgramTitle = "KAVR6 Configurator";

/// The window "MainForm" without its behaviour.
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
  HotSpot HSmotor{*this, "HSmotor"};
  HotSpot HSregen{*this, "HSregen"};
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

  Label LastEvent{*this, "LastEvent"};
  Button MoreEvents{*this, "MoreEvents", "Last Twenty..."};

  Picture LineIcon{*this, "LineIcon"};
  Label StatusLine{*this, "StatusLine"};
  Picture DriveIcon{*this, "DriveIcon"};
  Label StatusDrive{*this, "StatusDrive"};
  Picture InDriveIcon{*this, "InDriveIcon"};
  Label StatusInDrive{*this, "StatusInDrive"};
  Picture InFileIcon{*this, "InFileIcon"};
  Label StatusInFile{*this, "StatusInFile"};
  /// On the picture of the drive.
  Picture StatusLamp{*this, "StatusLamp"};
  Picture PortPlug{*this, "PortPlug"};

  MenuItem MenuOpen{*this, "MenuOpen", "Open..."};
  MenuItem MenuSave{*this, "MenuSave", "Save"};
  MenuItem MenuSaveAs{*this, "MenuSaveAs", "Save As..."};
  MenuItem MenuCompareFile{*this, "MenuCompareFile", "Compare with File..."};
  MenuItem MenuPrint{*this, "MenuPrint", "Print..."};
  MenuItem MenuPreview{*this, "MenuPreview", "Print Preview..."};
  MenuItem MenuExit{*this, "MenuExit", "Exit"};
  MenuItem MenuCompareDrive{*this, "MenuCompareDrive", "Compare with Drive..."};
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
};

}  // namespace kavr6
