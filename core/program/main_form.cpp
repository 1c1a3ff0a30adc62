#include "core/program/main_form.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <utility>

#include "core/drive_models.h"
#include "core/program/status_words.h"
#include "platform/path_text.h"

namespace kavr6 {
namespace {

constexpr int kStartModel = 1;
constexpr int kMinWidthTwips = 9600;
constexpr int kMinHeightTwips = 7200;
constexpr int kStartWidthTwips = 12000;
constexpr int kStartHeightTwips = 9000;
constexpr double kDeviceNamesDelay = 0.3;  // seconds
constexpr char kCtrlT = 20;

/// A shown ampersand is doubled in a caption.
std::string AsCaption(const std::string& text) {
  std::string caption;
  for (const char c : text) caption += c == '&' ? std::string("&&") : std::string(1, c);
  return caption;
}

void ShowCell(Label& label, Picture& icon, const StatusCell& cell) {
  label.SetCaption(AsCaption(cell.words));
  icon.SetImage(cell.picture);
}

void Call(const std::function<void()>& opener) {
  if (opener) opener();
}

}  // namespace

MainForm::MainForm(Desktop& desktop, const MainFormParts& parts)
    : MainScreen(desktop), p_(parts), state_(parts.state) {
  SetMinSize(kMinWidthTwips, kMinHeightTwips);
  Resize(kMinWidthTwips, kStartHeightTwips);
  // Properties of the port from the beginning: a port that is first opened by the user's choice, after a
  // start without any, must be heard as well.
  p_.comm.SetRThreshold(1);
  p_.comm.SetParityReplace("");
  WireButtons();
  WireMenus();
  FollowState();
}

MainForm::~MainForm() { Desk().Cancel(namingDevices_); }

void MainForm::WireButtons() {
  const std::array<std::pair<ImageButton*, std::function<void()> MainFormOpeners::*>, 7> openers{{
      {&Motion, &MainFormOpeners::Motion},
      {&Motor, &MainFormOpeners::Motor},
      {&Encoder, &MainFormOpeners::Encoder},
      {&IO, &MainFormOpeners::IO},
      {&Regen, &MainFormOpeners::Regen},
      {&Download, &MainFormOpeners::Download},
      {&Upload, &MainFormOpeners::Upload},
  }};
  for (const auto& [button, opener] : openers)
    button->Clicked.Set([this, opener = opener] { Call(Openers.*opener); });
  ModelList.Clicked.Set([this] { ModelListClick(); });
  CommList.Clicked.Set([this] { p_.ports.Select(CommList.ListIndex()); });
  CommList.ClickedAgain.Set([this] { p_.ports.SelectAgain(); });
  Summary.DoubleClicked.Set([this](int row) {
    const std::map<SummaryRow, ImageButton*> buttons{{kMotorRow, &Motor},
                                                     {kMotionRow, &Motion},
                                                     {kRegenRow, &Regen},
                                                     {kIoRow, &IO},
                                                     {kEncoderRow, &Encoder}};
    if (const auto section = SectionOf(row)) buttons.at(*section)->Press();
  });
  for (HotSpot* spot :
       {&HSACPower, &HSdomelabel, &HSencoder, &HSinout1, &HSinout2, &HSled, &HSmotor, &HSregen, &HSrs485}) {
    spot->Clicked.Set([this, spot] {
      if (Openers.HelpOn) Openers.HelpOn(*spot);
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
      Command{&MenuCompareFile, &MainFormOpeners::CompareFile},
      Command{&MenuPrint, &MainFormOpeners::Print},
      Command{&MenuPreview, &MainFormOpeners::Preview},
      Command{&MenuCompareDrive, &MainFormOpeners::CompareDrive},
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
  MoreEvents.Clicked.Set([this] { Call(Openers.Events); });
  MenuExit.Clicked.Set([this] { Leave(); });
}

void MainForm::FollowState() {
  p_.comm.StateChanged.Set([this] { PortChanged(); });
  p_.ports.StillClosed.Set([this] { ShowLine(); });  // its device may have gone, or may be another's now
  state_.CommNumber.Changed.Set([this] { ShowLine(); });
  state_.Drive.Changed.Set([this] { ShowStatus(); });
  p_.watch.Compared.Set([this] { ShowStatus(); });
  state_.CommIndex.Changed.Set([this] { CommList.SetListIndex(state_.CommIndex); });
  state_.ModelIndex.Changed.Set([this] { ModelList.SetListIndex(state_.ModelIndex); });
  state_.DriveVersion.Changed.Set([this] { DriveVersion.SetCaption(state_.DriveVersion); });
  state_.Progress.Changed.Set([this] { ProgBar.SetFloodPercent(state_.Progress); });
  state_.MotionDesc.Changed.Set([this] { MotionDesc.SetCaption(state_.MotionDesc); });
  state_.TitleName.Changed.Set([this] { ShowTitle(); });
}

void MainForm::Load() {
  for (const auto& [item, opener] : greyWithoutOpener_) item->SetEnabled(static_cast<bool>(Openers.*opener));
  state_.AppVersion = VersionText(Desk().Version());
  state_.HelpDir = PathText(Desk().ProgramDirectory() / "KAVR6 help" / "");
  StartSharedValues();
  LoadModelList();
  LoadCommList();
  p_.ioDialog.FillLimitList();
  ShowTitle();
  state_.DspRev = 0;
  p_.ports.StartComm();
  state_.Modified = false;
  state_.InertiaSet = false;
  if (state_.StartPort != 0 && p_.identity.DriveStillThere()) p_.identity.CheckDrive();
  p_.files.SaveFile.InitDir = PathText(Desk().ProgramDirectory());
  PlaceWindow();
  InitVars(p_.settings);
  ShowModeName(state_, p_.settings);
  p_.motorDialog.EnsureLoaded();
  motorsLoaded_ = true;
  p_.summary.SummaryInit();
  Motor.Focus();
  ShowLine();
  ShowStatus();
}

void MainForm::StartSharedValues() {
  p_.receive.Clear();
  state_.FileName.clear();
  state_.CommandActive = false;
  state_.AlarmPopupOff = false;
  state_.LiveToolActive = false;
  state_.MotorTouched = false;
  state_.CommNumber = 1;
}

void MainForm::PlaceWindow() {
  if (Desk().ScreenSize().width >= kStartWidthTwips) Resize(kStartWidthTwips, Height());
  CenterOnScreen(*this);
}

void MainForm::LoadModelList() {
  for (const DriveModel& model : kDriveModels) ModelList.AddItem(std::string(model.name), model.code);
  ModelList.SetListIndex(kStartModel);
}

void MainForm::LoadCommList() {
  for (int port = 1; port <= kPortCount; ++port) CommList.AddItem("COM" + std::to_string(port));
  NameDevicesSoon();
}

void MainForm::ModelListClick() {
  state_.ModelIndex = ModelList.ListIndex();
  state_.Drive.ListMoved(false);  // where it was the drive, that follows
  ShowModeName(state_, p_.settings);
  // The limits need a motor. Before the motor table is loaded all currents are 0 and no limit can hold them.
  if (!motorsLoaded_) return;
  p_.limits.LimitContCurrent();
  p_.limits.LimitIdleCurrent();
}

bool MainForm::KeyPressed(char character) {
  if (character != kCtrlT) return false;
  MenuTerminal.Press();
  return true;
}

bool MainForm::TakesFiles(const std::vector<std::string>& files) const {
  if (files.size() != 1 || p_.comm.RThreshold() != 1) return false;
  std::string ending = files[0].substr(files[0].size() - std::min<std::size_t>(files[0].size(), 4));
  for (char& letter : ending) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return ending == "." + p_.files.SaveFile.DefaultExt;
}

void MainForm::FilesDropped(const std::vector<std::string>& files) { p_.files.OpenChosen(files[0]); }

bool MainForm::MayClose() {
  Leave();
  return false;
}

void MainForm::Leave() {
  if (MayLose()) Desk().EndProgram(0);
}

bool MainForm::MaySessionEnd(const std::function<bool()>& mayAsk) {
  if (!state_.Modified) return true;
  if (!mayAsk() || !Desk().WhatBlocks(*this).empty()) return false;
  Show();  // it may have been made an icon
  return MayLose();
}

bool MainForm::MayLose() {
  if (!state_.Modified) return true;
  return Desk().Ask(
             {.text = "You have made changes without Saving or Downloading.  Do you really want to quit?",
              .icon = BoxIcon::Question,
              .title = "Quit",
              .buttons = BoxButtons::OkCancel,
              .careful = true}) == BoxAnswer::Ok;
}

void MainForm::PortChanged() {
  NameDevicesSoon();
  ShowLine();
  if (p_.comm.PortOpen()) {
    state_.Drive.PortOpened(p_.comm.CommPort());
  } else {
    state_.Drive.PortClosed(p_.comm.Refusal(p_.comm.CommPort()) != 0);
  }
}

void MainForm::ShowStatus() {
  ShowCell(StatusDrive, DriveIcon, DriveCell(state_, p_.comm.PortOpen()));
  ShowCell(StatusInDrive, InDriveIcon, InDriveCell(p_.watch.Drive()));
  ShowCell(StatusInFile, InFileIcon, InFileCell(p_.watch.File()));
  StatusLamp.SetImage(LampPicture(state_.Drive));
}

void MainForm::ShowLine() {
  const bool open = p_.comm.PortOpen();
  ShowCell(StatusLine, LineIcon, LineCell(p_.comm, state_));
  PortPlug.SetImage(open ? "PlugIn" : "PlugOut");
  CommLine.SetPlugged(open);
}

void MainForm::ShowLastEvent() { LastEvent.SetCaption(AsCaption(state_.Happened.Lines().back())); }

void MainForm::NameDevicesSoon() {
  // Not while the user waits for the main screen or for a port: it takes milliseconds.
  Desk().Cancel(namingDevices_);
  namingDevices_ = Desk().CallAfter(kDeviceNamesDelay, [this] { NameDevices(); });
}

void MainForm::NameDevices() {
  for (int row = 0; row < CommList.Count(); ++row) {
    const std::string device = p_.comm.DeviceName(row + 1);
    CommList.SetItemToolTip(row, device.empty() ? "no device" : device);
  }
}

void MainForm::ShowTitle() {
  SetCaption(std::string(kProgramTitle) + "  V" + state_.AppVersion + " - " +
             (state_.TitleName.Get().empty() ? "untitled" : state_.TitleName.Get()));
}

}  // namespace kavr6
