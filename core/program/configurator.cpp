#include "core/program/configurator.h"

namespace kavr6 {

Configurator::Configurator(Desktop& desktop, MSComm& comm, TableAccess& table, FileStore& files)
    : motorTable(table),
      Main(desktop, {settings, comm, motorTable, MotorSetup, IOSetup}),
      MotorSetup(Main, motorTable, settings, Main.Calculations),
      CustomMotorSetup(Main, settings, MotorSetup),
      PulseDirSetup(Main, settings),
      VelocitySetup(Main, settings),
      AdvancedSetup(Main, settings, VelocitySetup, comm),
      VTLSetup(Main, settings),
      ModeMenu(Main, settings, PulseDirSetup, VelocitySetup, VTLSetup),
      IOSetup(Main, settings, comm),
      EncoderSetup(Main, settings),
      RegenSetup(Main, settings),
      Splash(desktop, Main),
      Credits(desktop, Main),
      Files(Main, settings, motorTable, files) {
  WireFiles();
  WireSetupDialogs();
  Main.Openers.About = [this] { Credits.Run(); };
}

void Configurator::WireFiles() {
  Files.AddMotorIfMissing = [this](const MotorRecord& motor) {
    AddMotorIfMissing(Main.Desk(), motorTable, MotorSetup, motor);
  };
  Files.SummarizeAll = [this] { Main.Report.SummarizeAll(); };
  Main.Openers.Open = [this] { Files.MenuOpen(); };
  Main.Openers.Save = [this] { Files.MenuSave(); };
  Main.Openers.SaveAs = [this] { Files.MenuSaveAs(); };
}

void Configurator::WireSetupDialogs() {
  Main.Openers.Motor = [this] { MotorSetup.Open(); };
  Main.Openers.Motion = [this] { ModeMenu.MotionClick(); };
  Main.Openers.IO = [this] { IOSetup.Open(); };
  Main.Openers.Encoder = [this] { EncoderSetup.Open(); };
  Main.Openers.Regen = [this] { RegenSetup.Open(); };
  MotorSetup.OpenEditor = [this] { CustomMotorSetup.Open(); };
  VelocitySetup.OpenAdvanced = [this] { AdvancedSetup.Open(); };

  MotorSetup.Summarize = [this] { Main.Report.SummarizeMotor(kMotorRow); };
  const auto motion = [this] { Main.Report.SummarizeMotion(kMotionRow); };
  PulseDirSetup.Summarize = VelocitySetup.Summarize = VTLSetup.Summarize = ModeMenu.SummarizeMotion = motion;
  IOSetup.Summarize = [this] { Main.Report.SummarizeIO(kIoRow); };
  EncoderSetup.Summarize = [this] { Main.Report.SummarizeEncoder(kEncoderRow); };
  RegenSetup.Summarize = [this] { Main.Report.SummarizeRegen(kRegenRow); };

  Main.CommittedDialogs = {&CustomMotorSetup, &MotorSetup,   &VelocitySetup, &AdvancedSetup,
                           &PulseDirSetup,    &EncoderSetup, &RegenSetup};
}

}  // namespace kavr6
