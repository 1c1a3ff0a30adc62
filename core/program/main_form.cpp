#include "core/program/main_form.h"

#include <array>
#include <utility>

#include "core/drive_models.h"

namespace kavr6 {
namespace {

constexpr int kStartModel = 1;
constexpr int kMinWidthTwips = 9600;
constexpr int kMinHeightTwips = 7200;
constexpr int kStartWidthTwips = 12000;
constexpr int kStartHeightTwips = 9000;
constexpr double kDeviceNamesDelay = 0.3;  // seconds
constexpr char kCtrlT = 20;

void Call(const std::function<void()>& opener) {
  if (opener) opener();
}

}  // namespace

MainForm::MainForm(Desktop& desktop, const MainFormParts& parts)
    : MainScreen(desktop),
      Calculations(parts.settings, *this, parts.motorTable),
      Report(*this, parts.settings, parts.motorTable),
      Receive(*this, parts.comm),
      Identity(*this, parts.comm),
      p_(parts),
      ports_(*this, parts.comm),
      transfers_({*this, parts.settings, parts.comm, Identity, parts.motorTable, Calculations}) {
  transfers_.CommitOpenDialogs = [this] { PressOpenOks(); };
  transfers_.AddMotorIfMissing = [this](const MotorRecord& motor) {
    AddMotorIfMissing(Desk(), p_.motorTable, p_.motorDialog, motor);
  };
  transfers_.SummarizeAll = [this] { Report.SummarizeAll(); };
  SetMinSize(kMinWidthTwips, kMinHeightTwips);
  Resize(kMinWidthTwips, kStartHeightTwips);
  // Properties of the port from the beginning: a port that is first opened by the user's choice, after a
  // start without any, must be heard as well.
  p_.comm.SetRThreshold(1);
  p_.comm.SetParityReplace("");
  WireButtons();
  WireMenus();
  WireStatusLine();
}

MainForm::~MainForm() { Desk().Cancel(namingDevices_); }

void MainForm::WireButtons() {
  const std::array<std::pair<ImageButton*, std::function<void()> MainFormOpeners::*>, 5> dialogs{{
      {&Motion, &MainFormOpeners::Motion},
      {&Motor, &MainFormOpeners::Motor},
      {&Encoder, &MainFormOpeners::Encoder},
      {&IO, &MainFormOpeners::IO},
      {&Regen, &MainFormOpeners::Regen},
  }};
  for (const auto& [button, opener] : dialogs)
    button->Clicked.Set([this, opener = opener] { Call(Openers.*opener); });
  Download.Clicked.Set([this] { transfers_.DownloadClick(); });
  Upload.Clicked.Set([this] { transfers_.UploadClick(); });
  ModelList.Clicked.Set([this] { ModelListClick(); });
  Summary.DoubleClicked.Set([this](int row) {
    if (ClickableControl* button = Report.ButtonOf(row)) button->Press();
  });
  for (HotSpot* spot : {&HSACPower, &HSdomelabel, &HSencoder, &HSinout1, &HSinout2, &HSled, &HSrs485}) {
    spot->Clicked.Set([this, spot] {
      if (Openers.HelpOn) Openers.HelpOn(spot->Name());
    });
  }
}

void MainForm::WireMenus() {
  struct Command {
    MenuItem* item;
    std::function<void()> MainFormOpeners::*opener;
    bool needsPort = false;
  };
  const std::array commands{
      Command{&MenuOpen, &MainFormOpeners::Open},
      Command{&MenuSave, &MainFormOpeners::Save},
      Command{&MenuSaveAs, &MainFormOpeners::SaveAs},
      Command{&MenuPrint, &MainFormOpeners::Print},
      Command{&MenuHistory, &MainFormOpeners::History, true},
      Command{&MenuClearFault, &MainFormOpeners::ClearFault},
      Command{&MenuIOStatus, &MainFormOpeners::IOStatus},
      Command{&MenuRestore, &MainFormOpeners::Restore, true},
      Command{&MenuTerminal, &MainFormOpeners::Terminal, true},
      Command{&MenuSelfTest, &MainFormOpeners::SelfTest},
      Command{&MenuContents, &MainFormOpeners::Contents},
      Command{&menuContactUs, &MainFormOpeners::ContactUs},
      Command{&menuWebSite, &MainFormOpeners::WebSite},
      Command{&MenuAbout, &MainFormOpeners::About},
  };
  for (const Command& command : commands) {
    command.item->Clicked.Set([this, command] {
      if (!command.needsPort || p_.comm.PortOpen()) Call(Openers.*command.opener);
    });
    greyWithoutOpener_.emplace_back(command.item, command.opener);
  }
  MenuExit.Clicked.Set([this] { Leave(); });
}

void MainForm::WireStatusLine() {
  p_.comm.StateChanged.Set([this] {
    NameDevicesSoon();
    ShowPortStatus();
  });
  CommNumber.Changed.Set([this] { ShowPortStatus(); });
  DspRev.Changed.Set([this] { ShowDriveStatus(); });
  DriveModelCode.Changed.Set([this] { ShowDriveStatus(); });
  DriveVersion.Change.Set([this] { ShowDriveStatus(); });
  Modified.Changed.Set([this] { ShowSettingsStatus(); });
}

void MainForm::Load() {
  for (const auto& [item, opener] : greyWithoutOpener_) item->SetEnabled(static_cast<bool>(Openers.*opener));
  AppVersion = VersionText(Desk().Version());
  HelpDir = (Desk().ProgramDirectory() / "KAVR6 help" / "").string();
  StartSharedValues();
  LoadModelList();
  ports_.LoadCommList();
  NameDevicesSoon();
  p_.ioDialog.FillLimitList();
  ShowTitle(*this, "");
  DspRev = 0;
  ports_.StartComm();
  Modified = false;
  InertiaSet = false;
  if (StartPort != 0 && Identity.DriveStillThere()) Identity.CheckDrive();
  const std::u8string folder = Desk().ProgramDirectory().u8string();
  SaveFile.InitDir.assign(folder.begin(), folder.end());
  PlaceWindow();
  InitVars(p_.settings);
  ShowModeName(*this, p_.settings);
  p_.motorDialog.EnsureLoaded();
  motorsLoaded_ = true;
  Report.SummaryInit();
  Motion.Focus();
  ShowPortStatus();
  ShowDriveStatus();
  ShowSettingsStatus();
}

void MainForm::StartSharedValues() {
  Receive.Clear();
  FileName.clear();
  CommandActive = false;
  AlarmPopupOff = false;
  LiveToolActive = false;
  MotorTouched = false;
  CommNumber = 1;
}

void MainForm::PlaceWindow() {
  if (Desk().ScreenSize().width >= kStartWidthTwips) Resize(kStartWidthTwips, Height());
  CenterOnScreen(*this);
}

void MainForm::LoadModelList() {
  for (const DriveModel& model : kDriveModels) ModelList.AddItem(std::string(model.name), model.code);
  ModelList.SetListIndex(kStartModel);
}

void MainForm::ModelListClick() {
  ShowModeName(*this, p_.settings);
  // The limits need a motor. Before the motor table is loaded all currents are 0 and no limit can hold them.
  if (!motorsLoaded_) return;
  Calculations.LimitContCurrent();
  Calculations.LimitIdleCurrent();
}

void MainForm::PressOpenOks() {
  for (SetupDialog* dialog : CommittedDialogs)
    if (dialog->Visible()) dialog->OK.Press();
}

bool MainForm::KeyPressed(char character) {
  if (character != kCtrlT) return false;
  MenuTerminal.Press();
  return true;
}

bool MainForm::MayClose() {
  Leave();
  return false;
}

void MainForm::Leave() {
  if (Modified) {
    const BoxAnswer answer = Desk().Ask(
        {.text = "You have made changes without Saving or Downloading.  Do you really want to quit?",
         .icon = BoxIcon::Question,
         .title = "Quit",
         .buttons = BoxButtons::OkCancel});
    if (answer != BoxAnswer::Ok) return;
  }
  Desk().EndProgram(0);
}

void MainForm::ShowPortStatus() {
  const std::string port = "COM" + std::to_string(CommNumber);
  if (!p_.comm.PortOpen()) {
    StatusPort.SetCaption("No port open");
    return;
  }
  const std::string device = p_.comm.DeviceName(CommNumber);
  StatusPort.SetCaption(device.empty() || device == port ? port : port + ": " + device);
}

void MainForm::NameDevicesSoon() {
  // Not while the user waits for the main screen or for a port.
  Desk().Cancel(namingDevices_);
  namingDevices_ = Desk().CallAfter(kDeviceNamesDelay, [this] { ports_.RefreshDeviceNames(); });
}

void MainForm::ShowDriveStatus() {
  if (DspRev == 0) {
    StatusDrive.SetCaption("No drive heard");
    return;
  }
  const int index = ModelIndex(DriveModelCode);
  const std::string model = index >= 0 ? std::string(kDriveModels[static_cast<std::size_t>(index)].name)
                                       : "Unknown model, code " + std::to_string(DriveModelCode);
  // The label may still hold, or have lost, what an earlier drive has told.
  const std::string revision = RevisionText(DspRev);
  const std::string& shown = DriveVersion.Caption();
  StatusDrive.SetCaption("Last heard: " + model + ", firmware " +
                         (shown.starts_with(revision) ? shown : revision));
}

void MainForm::ShowSettingsStatus() {
  StatusSettings.SetCaption(Modified ? "Settings changed" : "Settings unchanged");
}

}  // namespace kavr6
