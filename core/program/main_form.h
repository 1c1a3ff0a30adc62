// The main screen at work.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "config_file/config_files.h"
#include "core/drive_state.h"
#include "core/program/main_screen.h"
#include "core/program/port_notes.h"
#include "core/program/settings_watch.h"
#include "core/settings.h"
#include "dialogs/io_dialog.h"
#include "link/comm_ports.h"
#include "link/drive_identity.h"
#include "link/receive_path.h"
#include "motor/dialogs/motor_dialog.h"
#include "motor/motor_calculations.h"
#include "platform/mscomm.h"
#include "reports/summarizer.h"

namespace kavr6 {

/// What opens from the main screen. An empty opener does nothing, and its menu command is greyed.
struct MainFormOpeners {
  std::function<void()> Motion, Motor, Encoder, IO, Regen, Download, Upload;
  std::function<void()> Open, Save, SaveAs, Print, Preview, CompareFile, CompareDrive;
  std::function<void()> History, ClearFault, IOStatus, Restore, Terminal, SelfTest;
  std::function<void()> Events;
  std::function<void()> Contents, ContactUs, WebSite, About;
  std::function<void(const Control& hotSpot)> HelpOn;
};

/// What the main screen works with; all of it outlives the main screen.
struct MainFormParts {
  DriveState& state;
  Settings& settings;
  MSComm& comm;
  CommPorts& ports;
  ReceivePath& receive;
  DriveIdentity& identity;
  CurrentLimits& limits;
  MotorDialog& motorDialog;
  IOdialog& ioDialog;
  Summarizer& summary;
  ConfigFiles& files;
  SettingsWatch& watch;
};

/// The window "MainForm": the order of the start, dispatch of all buttons and menu commands, the question
/// before changes are thrown away, and the status strip. It shows the drive state as that changes.
class MainForm : public MainScreen {
 public:
  MainForm(Desktop& desktop, const MainFormParts& parts);
  ~MainForm() override;

  /// To be set before the window is loaded.
  MainFormOpeners Openers;

  /// Something has happened.
  void ShowLastEvent();
  /// Leaves the program, after the question when there are changes; returns when the user stays.
  void Leave();
  /// Answers Desktop::MaySessionEnd: the same question. What cannot be asked because there is no leave for
  /// it, or because the window stands behind a box or a modal one, counts as answered by Cancel.
  bool MaySessionEnd(const std::function<bool()>& mayAsk);

 protected:
  void Load() override;
  bool MayClose() override;
  bool KeyPressed(char character) override;
  /// One configuration file, unless a block transfer has the line.
  bool TakesFiles(const std::vector<std::string>& files) const override;
  void FilesDropped(const std::vector<std::string>& files) override;

 private:
  bool MayLose();
  void StartSharedValues();
  void PlaceWindow();
  void WireButtons();
  void WireMenus();
  void FollowState();
  void LoadModelList();
  void LoadCommList();
  void NameDevices();
  void ModelListClick();
  void NameDevicesSoon();
  void ShowTitle();
  void PortChanged();
  void ShowLine();
  void ShowStatus();

  MainFormParts p_;
  DriveState& state_;
  bool motorsLoaded_ = false;
  std::vector<std::pair<MenuItem*, std::function<void()> MainFormOpeners::*>> greyWithoutOpener_;
  Scheduler::TaskId namingDevices_ = 0;
  PortNotes portNotes_{CommList, p_.comm};
};

}  // namespace kavr6
