#include "core/program/configurator.h"

#include "help/field_help.h"
#include "tools/drive_commands.h"

namespace kavr6 {

Configurator::Configurator(const Machine& machine)
    : line{state, machine.comm, machine.desktop, machine.desktop},
      motorTable(machine.motors),
      limits(settings, state, motorTable),
      ports(line),
      receive(line),
      identity(line),
      transfers({line, settings, identity, motorTable, limits}),
      Files({machine.desktop, state, settings, motorTable, machine.files}),
      watch({machine.desktop, state, settings, motorTable, Files}),
      Main(machine.desktop, {state, settings, machine.comm, ports, receive, identity, limits, MotorSetup,
                             IOSetup, summary, Files, watch}),
      summary({Main.Summary,
               {Main.MotorLine1, Main.MotorLine2, Main.MotionLine, Main.RegenLine1, Main.RegenLine2,
                Main.IOLine, Main.EncoderLine},
               state,
               settings,
               motorTable}),
      report({machine.desktop, machine.print, Files.SaveFile, {state, settings, motorTable}}),
      MotorSetup(Setup(), motorTable, limits),
      CustomMotorSetup(Setup(), MotorSetup),
      PulseDirSetup(Setup()),
      VelocitySetup(Setup()),
      AdvancedSetup(Setup(), VelocitySetup, line),
      VTLSetup(Setup()),
      ModeMenu(Setup(), PulseDirSetup, VelocitySetup, VTLSetup),
      IOSetup(Setup(), machine.comm),
      EncoderSetup(Setup()),
      RegenSetup(Setup()),
      Commands(machine.desktop),
      Terminal(line, machine.desktop, machine.files),
      StatusMonitor(line, machine.desktop, machine.files),
      LastAlarms(machine.desktop, line),
      FaultPopup(machine.desktop, line),
      MotorTest(Main, line),
      SmoothingWizard(line, {CustomMotorSetup, CustomMotorSetup.SliderGain, CustomMotorSetup.SliderPhase,
                             MotorSetup.txtDriveCurrent}),
      Splash(machine.desktop, state, Main),
      Credits(machine.desktop, state),
      Help(Main, state),
      LastEvents(Main, state.Happened),
      Compared({Main, line, settings, motorTable, identity, transfers, Files}) {
  WireTransfers();
  WireFiles();
  WireSetupDialogs();
  WireTools();
  WireHelp();
  WireStatus();
  Main.Openers.About = [this] { Credits.Run(); };
  machine.desktop.RescueWork = [this] { Files.RescueSettings(); };
  machine.desktop.MaySessionEnd = [this](const auto& mayAsk) { return Main.MaySessionEnd(mayAsk); };
}

// The desktop may live on.
Configurator::~Configurator() {
  Desktop& desk = Main.Desk();
  desk.EventDone = nullptr;
  desk.CameBack = nullptr;
  desk.RescueWork = nullptr;
  desk.MaySessionEnd = nullptr;
  desk.HelpWanted = nullptr;
}

void Configurator::WireTransfers() {
  receive.FrontWindow = [&desktop = Main.Desk()] { return desktop.ActiveFormName(); };
  transfers.CommitOpenDialogs = [this] { PressOpenOks(); };
  transfers.AddMotorIfMissing = [this](const MotorRecord& motor) { TakeMotor(motor); };
  transfers.SummarizeAll = [this] { summary.SummarizeAll(); };
  transfers.SettingsReplaced = [this] { RefillOpenDialogs(); };
  Main.Openers.Download = [this] { transfers.DownloadClick(); };
  Main.Openers.Upload = [this] { transfers.UploadClick(); };
}

void Configurator::WireFiles() {
  Files.SelectPort = [this](int row) { ports.Select(row); };
  Files.AddMotorIfMissing = [this](const MotorRecord& motor) { TakeMotor(motor); };
  Files.SummarizeAll = [this] { summary.SummarizeAll(); };
  Files.SettingsReplaced = [this] { RefillOpenDialogs(); };
  Main.Openers.Open = [this] { Files.MenuOpen(); };
  Main.Openers.Save = [this] { Files.MenuSave(); };
  Main.Openers.SaveAs = [this] { Files.MenuSaveAs(); };
  Main.Openers.CompareFile = [this] { Compared.CompareWithFile(); };
  Main.Openers.CompareDrive = [this] { Compared.CompareWithDrive(); };
  Main.Openers.Print = [this] { report.MenuPrint(); };
  Main.Openers.Preview = [this] { report.MenuPreview(); };
}

void Configurator::WireSetupDialogs() {
  Main.Openers.Motor = [this] { MotorSetup.Open(); };
  Main.Openers.Motion = [this] { ModeMenu.MotionClick(); };
  Main.Openers.IO = [this] { IOSetup.Open(); };
  Main.Openers.Encoder = [this] { EncoderSetup.Open(); };
  Main.Openers.Regen = [this] { RegenSetup.Open(); };
  MotorSetup.OpenEditor = [this] { CustomMotorSetup.Open(); };
  VelocitySetup.OpenAdvanced = [this] { AdvancedSetup.Open(); };
  VelocitySetup.PendingReplaced = [this] {
    if (AdvancedSetup.Visible()) AdvancedSetup.Refill();
  };

  MotorSetup.Summarize = [this] { summary.SummarizeMotor(kMotorRow); };
  const auto motion = [this] { summary.SummarizeMotion(kMotionRow); };
  PulseDirSetup.Summarize = VelocitySetup.Summarize = VTLSetup.Summarize = ModeMenu.SummarizeMotion = motion;
  IOSetup.Summarize = [this] { summary.SummarizeIO(kIoRow); };
  EncoderSetup.Summarize = [this] { summary.SummarizeEncoder(kEncoderRow); };
  RegenSetup.Summarize = [this] { summary.SummarizeRegen(kRegenRow); };
}

void Configurator::WireTools() {
  for (LiveTool* tool : std::initializer_list<LiveTool*>{&Terminal, &StatusMonitor, &SmoothingWizard}) {
    receive.AddLiveTool(tool->Name(), [tool](std::uint8_t byte) { tool->Take(byte); });
    tool->DeliverWaiting = [this] { receive.DeliverWaiting(); };
    Main.Desk().AtEnd([tool] { tool->LeaveLine(); });
  }
  Terminal.ShowCommandList = [this] {
    if (!Commands.Visible()) PlaceBeside(Terminal, Commands);
    Commands.Show();
  };
  Main.Openers.Terminal = [this] { Terminal.Show(); };
  Main.Openers.IOStatus = [this] { StatusMonitor.ShowModal(); };
  CustomMotorSetup.OpenWizard = [this] { SmoothingWizard.ShowModal(); };
  receive.ServoError152 = [this](int alarm) { FaultPopup.ServoError152(alarm); };
  Main.Openers.History = IOSetup.OpenHistory = [this] { LastAlarms.Run(); };
  Main.Openers.ClearFault = [this] { MenuClearFault(line, identity); };
  Main.Openers.Restore = [this] { MenuRestore(line, identity); };
  Main.Openers.SelfTest = [this] { MotorTest.ShowModal(); };
  Main.Desk().AtEnd([this] { MotorTest.StopMotor(); });
}

void Configurator::WireHelp() {
  const auto show = [this](const Control& caller) { Help.ShowFor(caller); };
  Main.Openers.Contents = [this] { Help.ShowFor(Main.MenuContents); };
  Main.Openers.ContactUs = [this] { Help.ShowFor(Main.menuContactUs); };
  Main.Openers.WebSite = [this] { Help.ShowFor(Main.menuWebSite); };
  Main.Openers.HelpOn = show;
  SetupDialog* const dialogs[] = {&MotorSetup,    &CustomMotorSetup, &PulseDirSetup,
                                  &VelocitySetup, &AdvancedSetup,    &VTLSetup,
                                  &IOSetup,       &EncoderSetup,     &RegenSetup};
  for (SetupDialog* dialog : dialogs) dialog->ShowHelp = show;
  Form* const told[] = {&ModeMenu, &SmoothingWizard, &Commands.MoveCalculator, &Help, &Compared};
  for (SetupDialog* dialog : dialogs) TellFields(*dialog);
  for (Form* form : told) TellFields(*form);
  Main.Desk().HelpWanted = [this](const std::string& where) { Help.ShowForKey(where); };
}

void Configurator::WireStatus() {
  Desktop& desk = Main.Desk();
  state.Happened.Clock = [&desk] { return desk.SecondsOfDay(); };
  state.Happened.Changed.Set([this] {
    Main.ShowLastEvent();
    LastEvents.Follow();
  });
  desk.EventDone = [this] { watch.Look(); };
  desk.CameBack = [this] { watch.CompareSoon(); };
  Main.Openers.Events = [this] { LastEvents.Show(); };
}

// The dialogs whose OK a download presses first, as the user would, where they are open; in this order. Those
// of the I/O and of the host commands are not among them.
void Configurator::PressOpenOks() {
  SetupDialog* const committed[] = {&CustomMotorSetup, &MotorSetup,   &VelocitySetup, &AdvancedSetup,
                                    &PulseDirSetup,    &EncoderSetup, &RegenSetup};
  for (SetupDialog* dialog : committed)
    if (dialog->Visible()) dialog->OK.Press();
}

void Configurator::RefillOpenDialogs() {
  // The advanced dialog goes with the pending values of the velocity dialog, and not with the settings.
  SetupDialog* const dialogs[] = {&MotorSetup, &CustomMotorSetup, &PulseDirSetup, &VelocitySetup,
                                  &VTLSetup,   &IOSetup,          &EncoderSetup,  &RegenSetup};
  for (SetupDialog* dialog : dialogs)
    if (dialog->Visible()) dialog->Refill();
}

}  // namespace kavr6
