// Start, port choice, menus and the end of the program.
#include "tests/support/scenario.h"

namespace kavr6 {
namespace {

using ProgramScenario = Scenario;

constexpr const char* kWholeStart = "start_with_a_drive_that_is_only_seen";

TEST_F(ProgramScenario, StartWithADriveThatIsOnlySeen) {
  Start();
  Wait(0.5);
}

TEST_F(ProgramScenario, StartWithoutAnyPort) {
  for (int port = 1; port <= 8; ++port) comm.Refuse(port, "Port in use");
  desktop.SetScreen({11999, 7200});
  desktop.SetVersion({2, 1, 3});
  Start(kWholeStart, "OOOOOOOO");
  Click(main.Download, "O");
  state.Modified = true;
  Click(main.Upload, "OO");
  Do("Ctrl+T", [&] { EXPECT_TRUE(main.PressKey(20)); });
  comm.Connect(3, &drive);
  Select(main.CommList, 0);
  Select(main.CommList, 2);
  Do("the drive is switched on", [&] { drive.Restart(); });
  Wait(0.5);
}

TEST_F(ProgramScenario, StartBehindTwoBusyPorts) {
  comm.Connect(3, &drive);
  comm.Refuse(1, "Port in use");
  comm.Refuse(2, "Port in use");
  desktop.SetScreen({12000, 9000});
  Start(kWholeStart, "OO");
}

TEST_F(ProgramScenario, StartForgetsWhatStandsInTheSharedValues) {
  state.MotorTouched = state.LiveToolActive = state.AlarmPopupOff = state.CommandActive = true;
  state.FileName = state.GlobalBuffer = "old";
  state.DspRev = 3;
  comm.SetRThreshold(5);
  comm.Connect(2, nullptr);
  comm.Refuse(1, "Port in use");
  Later(0.1, "the settings are changed", [&] { state.InertiaSet = true, state.Modified = true; });
  Answer("O", 0.2);
  Start(kWholeStart);
}

TEST_F(ProgramScenario, StartWithADriveOfAnEarlierFamily) {
  drive.SetIdentity(20, 18, 'b');
  Start(kWholeStart);
}

TEST_F(ProgramScenario, StartWithASilentDriveThatThenSpeaks) {
  drive.SetSilent(true);
  Later(0.3, "the drive is switched on", [&] {
    drive.SetSilent(false);
    drive.Restart();
  });
  Start(kWholeStart);
}

TEST_F(ProgramScenario, PortIsChanged) {
  comm.Connect(2, nullptr);
  StartUnseen();
  Select(main.CommList, 0);
  Select(main.CommList, 1);
  Wait(0.5);
  Select(main.CommList, 6, "O");
  comm.Refuse(2, "Port in use");
  Select(main.CommList, 7, "O");
  Select(main.CommList, 0);
}

TEST_F(ProgramScenario, ModelIsChosen) {
  StartUnseen();
  const auto use = [&](const std::string& motor) {
    Do("use " + motor + " with 6.5 A, idle 95 %, in the next mode", [&] {
      scene.program.MotorSetup.SetMotorList(motor);
      settings.RunCurrent = 6.5;
      settings.IdlePercent = 95;
      ++settings.OpMode;
    });
  };
  use("KM34-3S-670");
  for (const int model : {4, 0, 1}) Select(main.ModelList, model);
  use("KM17-1S-170");
  Select(main.ModelList, 4);
}

TEST_F(ProgramScenario, LeavingWithAndWithoutChanges) {
  StartUnseen();
  Do("something is changed", [&] { state.Modified = true; });
  for (const char* answer : {"C", "O"}) {
    Do(
        "close the window", [&] { main.RequestClose(); }, answer);
    Click(main.MenuExit, answer);
  }
  Do("nothing is changed", [&] { state.Modified = false; });
  Do("close the window", [&] { main.RequestClose(); });
  Click(main.MenuExit);
}

TEST_F(ProgramScenario, ButtonsMenusKeysAndGridReachTheirOpeners) {
  using O = MainFormOpeners;
  const std::pair<std::function<void()> O::*, std::string> openers[] = {
      {&O::Motion, "Motion"},     {&O::Motor, "Motor"},
      {&O::Encoder, "Encoder"},   {&O::IO, "IO"},
      {&O::Regen, "Regen"},       {&O::Open, "Open"},
      {&O::Save, "Save"},         {&O::SaveAs, "SaveAs"},
      {&O::History, "History"},   {&O::ClearFault, "ClearFault"},
      {&O::IOStatus, "IOStatus"}, {&O::Restore, "Restore"},
      {&O::Terminal, "Terminal"}, {&O::SelfTest, "SelfTest"},
      {&O::Contents, "Contents"}, {&O::ContactUs, "ContactUs"},
      {&O::WebSite, "WebSite"}};
  for (const auto& [opener, name] : openers)
    main.Openers.*opener = [this, what = name] { recorder->Note("opens " + what); };
  main.Openers.HelpOn = [this](const std::string& spot) { recorder->Note("opens help on " + spot); };
  StartUnseen();
  for (ImageButton* button : {&main.Motion, &main.Motor, &main.Encoder, &main.IO, &main.Regen})
    Click(*button);
  for (const bool open : {true, false}) {
    if (!open) Do("the adapter is pulled out", [&] { comm.Unplug(); });
    for (Control* control : main.Controls()) {
      auto* const item = dynamic_cast<MenuItem*>(control);
      const bool ends = item == &main.MenuExit || item == &main.MenuAbout;
      if (item != nullptr && item->Enabled() && !ends) Click(*item);
    }
    Do("Ctrl+T", [&] { EXPECT_TRUE(main.PressKey(20)); });
  }
  Do("another key", [&] { EXPECT_FALSE(main.PressKey('t')); });
  for (int row = 0; row < main.Summary.Rows(); ++row)
    Do("double click row " + std::to_string(row), [&] { main.Summary.DoubleClick(row); });
  for (HotSpot* spot : {&main.HSACPower, &main.HSdomelabel, &main.HSencoder, &main.HSinout1, &main.HSinout2,
                        &main.HSled, &main.HSrs485})
    Click(*spot);
  Later(1.0, "click OK", [&] { scene.program.Credits.OK.Click(); });
  Click(main.MenuAbout);
  for (ImageButton* button :
       {&main.Motion, &main.Motor, &main.Encoder, &main.IO, &main.Regen, &main.Download, &main.Upload}) {
    Do("press " + button->Name(), [&] { button->MouseDown(); });
    Do("release", [&] { button->MouseUp(); });
  }
  Do("make the window small", [&] { main.Resize(100, 100); });
}

}  // namespace
}  // namespace kavr6
