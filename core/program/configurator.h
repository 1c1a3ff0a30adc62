// The whole program on top of a machine.
#pragma once

#include <vector>

#include "comparison/window/compare_window.h"
#include "config_file/config_files.h"
#include "core/drive_state.h"
#include "core/program/about.h"
#include "core/program/event_list.h"
#include "core/program/main_form.h"
#include "core/program/settings_watch.h"
#include "core/program/start_form.h"
#include "core/settings.h"
#include "dialogs/advanced_settings.h"
#include "dialogs/encoder_dialog.h"
#include "dialogs/io_dialog.h"
#include "dialogs/motion_menu.h"
#include "dialogs/regen_dialog.h"
#include "help/help_screen.h"
#include "help/summary.h"
#include "image/transfers.h"
#include "link/comm_ports.h"
#include "link/drive_identity.h"
#include "link/receive_path.h"
#include "motor/dialogs/edit_motor.h"
#include "motor/dialogs/motor_dialog.h"
#include "motor/motor_calculations.h"
#include "motor/motor_table.h"
#include "platform/print_job.h"
#include "reports/printed_report.h"
#include "reports/summarizer.h"
#include "tools/alarm_history.h"
#include "tools/exec_status.h"
#include "tools/harmonizer.h"
#include "tools/self_test.h"
#include "tools/servo_fault.h"
#include "tools/vtl_term.h"

namespace kavr6 {

/// What the program needs of the world; all of it outlives the program.
struct Machine {
  Desktop& desktop;
  MSComm& comm;
  TableAccess& motors;
  FileStore& files;
  PrintJob& print;
};

/// Owns the settings, the drive state and every window, and hands each what it needs. One instance is one
/// program.
class Configurator {
 public:
  explicit Configurator(const Machine& machine);
  ~Configurator();
  Configurator(const Configurator&) = delete;
  Configurator& operator=(const Configurator&) = delete;

  /// Shows the splash, loads the main screen and shows it. Events run meanwhile.
  void Start() { Splash.EnsureLoaded(); }

  Settings settings;
  DriveState state;
  DriveLine line;
  MotorTable motorTable;
  CurrentLimits limits;
  CommPorts ports;
  ReceivePath receive;
  DriveIdentity identity;
  Transfers transfers;
  ConfigFiles Files;
  SettingsWatch watch;

  MainForm Main;
  Summarizer summary;
  PrintedReport report;
  MotorDialog MotorSetup;
  EditMotor CustomMotorSetup;
  PulseDirDialog PulseDirSetup;
  VelocityDialog VelocitySetup;
  AdvancedSettings AdvancedSetup;
  VTLdialog VTLSetup;
  MotionMenu ModeMenu;
  IOdialog IOSetup;
  EncoderDialog EncoderSetup;
  RegenDialog RegenSetup;
  Summary Commands;
  VTLterm Terminal;
  ExecStatus StatusMonitor;
  AlarmHistory LastAlarms;
  ServoFault FaultPopup;
  SelfTest MotorTest;
  Harmonizer SmoothingWizard;
  StartForm Splash;
  About Credits;
  HelpScreen Help;
  EventList LastEvents;
  CompareWindow Compared;

 private:
  SetupParts Setup() { return {Main, state, settings}; }
  void WireTransfers();
  void WireFiles();
  void WireSetupDialogs();
  void WireTools();
  void WireHelp();
  void WireStatus();
  void PressOpenOks();
  void RefillOpenDialogs();
  void TakeMotor(const MotorRecord& motor) { AddMotorIfMissing(motorTable, MotorSetup, motor); }
};

}  // namespace kavr6
