#include "core/configurator.h"

namespace kavr6 {

Configurator::Configurator(Desktop& desktop, MSComm& comm, TableAccess& table, FileStore& files)
    : motorTable(table),
      Main(desktop, {settings, comm, motorTable, MotorSetup, IOSetup}),
      MotorSetup(desktop, Main, motorTable, settings, Main.Calculations),
      CustomMotorSetup(desktop, Main, settings, MotorSetup),
      IOSetup(desktop),
      Splash(desktop, Main),
      Credits(desktop, Main),
      Files(Main, settings, motorTable, files) {
  Files.AddMotorIfMissing = [this, &desktop](const MotorRecord& motor) {
    AddMotorIfMissing(desktop, motorTable, MotorSetup, motor);
  };
  Files.SummarizeAll = [this] { Main.Report.SummarizeAll(); };
  MotorSetup.OpenEditor = [this] { CustomMotorSetup.Open(); };
  MotorSetup.SummarizeMotor = [this] { Main.Report.SummarizeMotor(kMotorRow); };
  Main.CommittedDialogs = {{&CustomMotorSetup, &CustomMotorSetup.OK}, {&MotorSetup, &MotorSetup.OK}};
  Main.Openers.Motor = [this] { MotorSetup.Open(); };
  Main.Openers.Open = [this] { Files.MenuOpen(); };
  Main.Openers.Save = [this] { Files.MenuSave(); };
  Main.Openers.SaveAs = [this] { Files.MenuSaveAs(); };
  Main.Openers.About = [this] { Credits.Run(); };
}

}  // namespace kavr6
