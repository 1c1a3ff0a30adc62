// The whole program on top of a desktop, a serial port and a motor table.
#pragma once

#include "config_file/config_files.h"
#include "core/program/main_form.h"
#include "core/program/start_form.h"
#include "core/settings.h"
#include "dialogs/advanced_settings.h"
#include "dialogs/encoder_dialog.h"
#include "dialogs/io_dialog.h"
#include "dialogs/motion_menu.h"
#include "dialogs/regen_dialog.h"
#include "motor/dialogs/edit_motor.h"
#include "motor/dialogs/motor_dialog.h"
#include "motor/motor_table.h"

namespace kavr6 {

/// Owns the settings and every window, and hands each what it needs. One instance is one program.
class Configurator {
 public:
  Configurator(Desktop& desktop, MSComm& comm, TableAccess& table, FileStore& files);

  /// Shows the splash, loads the main screen and shows it. Events run meanwhile.
  void Start() { Splash.EnsureLoaded(); }

  Configurator(const Configurator&) = delete;
  Configurator& operator=(const Configurator&) = delete;

  Settings settings;
  MotorTable motorTable;
  MainForm Main;
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
  StartForm Splash;
  About Credits;
  ConfigFiles Files;

 private:
  void WireFiles();
  void WireSetupDialogs();
};

}  // namespace kavr6
