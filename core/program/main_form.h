// The main screen at work.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "core/main_screen.h"
#include "dialogs/io_dialog.h"
#include "image/transfers.h"
#include "link/comm_ports.h"
#include "link/drive_identity.h"
#include "link/receive_path.h"
#include "motor/dialogs/motor_dialog.h"
#include "motor/motor_calculations.h"
#include "reports/summary_grid.h"

namespace kavr6 {

/// What the main screen works with; all of it outlives the main screen.
struct MainFormParts {
  Settings& settings;
  MSComm& comm;
  MotorTable& motorTable;
  MotorDialog& motorDialog;
  IOdialog& ioDialog;
};

/// What opens from the main screen. An empty opener does nothing, and its menu command is greyed.
struct MainFormOpeners {
  std::function<void()> Motion, Motor, Encoder, IO, Regen;
  std::function<void()> Open, Save, SaveAs, Print;
  std::function<void()> History, ClearFault, IOStatus, Restore, Terminal, SelfTest;
  std::function<void()> Contents, ContactUs, WebSite, About;
  std::function<void(const std::string& hotSpot)> HelpOn;
};

/// The window "MainForm": start of the link and the motor data, dispatch of all buttons and menu commands,
/// the question before changes are thrown away, and the status line.
class MainForm : public MainScreen {
 public:
  MainForm(Desktop& desktop, const MainFormParts& parts);
  ~MainForm() override;

  /// To be set before the window is loaded.
  MainFormOpeners Openers;
  /// The dialogs whose OK a download presses first, as the user would, where they are open; in this order.
  std::vector<SetupDialog*> CommittedDialogs;

  /// Leaves the program, after the question when there are changes; returns when the user stays.
  void Leave();

  MotorCalculations Calculations;
  SummaryGrid Report;
  ReceivePath Receive;
  DriveIdentity Identity;

 protected:
  void Load() override;
  bool MayClose() override;
  bool KeyPressed(char character) override;

 private:
  void StartSharedValues();
  void PlaceWindow();
  void WireButtons();
  void WireMenus();
  void WireStatusLine();
  void LoadModelList();
  void ModelListClick();
  void PressOpenOks();
  void NameDevicesSoon();
  void ShowPortStatus();
  void ShowDriveStatus();
  void ShowSettingsStatus();

  MainFormParts p_;
  std::vector<std::pair<MenuItem*, std::function<void()> MainFormOpeners::*>> greyWithoutOpener_;
  bool motorsLoaded_ = false;
  Scheduler::TaskId namingDevices_ = 0;
  CommPorts ports_;
  Transfers transfers_;
};

}  // namespace kavr6
