#include "core/program/main_form.h"

#include <gtest/gtest.h>

#include "tests/support/scene.h"

namespace kavr6 {
namespace {

class MainFormTest : public testing::Test {
 protected:
  void TearDown() override { scene.desktop.CheckNothingLeft(); }
  Scene scene;
  DriveState& state = scene.state;
  MainForm& main = scene.main;
};

TEST_F(MainFormTest, StartsOnDefaultsWithADriveThatIsOnlySeen) {
  scene.program.Start();
  EXPECT_EQ(main.Caption(), "KAVR6 Configurator  V1.0 - untitled");
  EXPECT_FALSE(scene.program.Splash.Visible());
  EXPECT_EQ(scene.comm.Written(), "C") << "a KAVR6 is not asked any further at the start";
  EXPECT_EQ(main.ModelList.ListIndex(), 1);
  EXPECT_EQ(main.Left(), (20490 - 12000) / 2);
  EXPECT_EQ(main.StatusPort.Caption(), "COM1: simulated port 1");
  EXPECT_EQ(main.StatusDrive.Caption(), "Last heard: KAVR6-Bx, firmware 1.52");
  EXPECT_EQ(main.StatusSettings.Caption(), "Settings unchanged");
  EXPECT_EQ(scene.program.IOSetup.ListLimits.Text(), "closed");
  scene.ExpectCalm();
}

TEST_F(MainFormTest, StartsWithoutAnyPortAndRefusesDriveActions) {
  for (int port = 1; port <= 8; ++port) scene.comm.Refuse(port, "no such device");
  for (int port = 1; port <= 7; ++port) scene.desktop.Expect({.textPart = "Error on Comm"});
  scene.desktop.Expect({.textPart = "Could not find an open comm port."});
  scene.desktop.SetScreen({9600, 7200});
  scene.desktop.SetVersion({2, 1, 3});
  main.Openers.Terminal = [] { FAIL() << "no terminal without a port"; };
  scene.program.Start();
  EXPECT_EQ(main.Caption(), "KAVR6 Configurator  V2.1.3 - untitled");
  EXPECT_EQ(main.Width(), 9600) << "a narrow screen keeps the designed width";
  EXPECT_EQ(main.StatusPort.Caption() + main.StatusDrive.Caption(), "No port openNo drive heard");
  EXPECT_TRUE(main.PressKey(20)) << "Ctrl+T is kept from the focused control all the same";
  main.MenuTerminal.Click();
  scene.desktop.Expect({.textPart = "Cannot upload from drive: there is no comm port open."});
  main.Upload.Click();
  EXPECT_EQ(scene.comm.Written(), "");
  // The adapter is found in the machine after all.
  scene.comm.Connect(3, &scene.drive);
  main.CommList.Select(2);
  main.Upload.Click();
  EXPECT_EQ(main.MotorLine1.BorderColor(), kGreen);
}

TEST_F(MainFormTest, EarlierFamilyIsAskedFurtherAtTheStart) {
  scene.drive.SetIdentity(20, 18, 'b');
  scene.program.Start();
  EXPECT_EQ(scene.comm.Written(), std::string("CCy\x8E"));
  EXPECT_EQ(main.StatusDrive.Caption(), "Last heard: Unknown model, code 18, firmware 1.20 b");
}

TEST_F(MainFormTest, DriveThatSpeaksDuringTheStartChangesNothingButWhatIsShown) {
  scene.comm.Arm({.fault = LineFault::Silence});
  scene.desktop.CallAfter(0.3, [&] {
    scene.comm.ClearFault();
    scene.drive.SendRaw("\xFF\x34\x2E");
  });
  scene.program.Start();
  EXPECT_EQ(main.ModelList.ListIndex(), 5);
  EXPECT_EQ(main.StatusDrive.Caption(), "Last heard: KAVR6-Zu-220, firmware 1.52");
  EXPECT_DOUBLE_EQ(scene.settings.RunCurrent, 1.4);
}

TEST_F(MainFormTest, ChoosingAModelPullsTheCurrentsDownAndNeverUp) {
  scene.Start();
  scene.settings.RunCurrent = 6.5;
  scene.settings.IdlePercent = 95;
  scene.program.MotorSetup.SetMotorList("KM34-3S-670");
  for (const int model : {4, 0}) {
    main.ModelList.Select(model);
    EXPECT_EQ(scene.settings.RunCurrent, static_cast<double>(3.2F));
    EXPECT_EQ(scene.settings.IdlePercent, 90);
  }
  scene.program.MotorSetup.SetMotorList("KM17-1S-170");
  main.ModelList.Select(4);
  EXPECT_EQ(scene.settings.RunCurrent, static_cast<double>(2.55F)) << "one and a half times the motor's";
}

TEST_F(MainFormTest, ButtonsMenusKeysAndGridReachTheirOpeners) {
  std::string opened;
  const auto note = [&](const char* what) { return [&opened, what] { opened += what; }; };
  main.Openers.Motor = note("M"), main.Openers.IO = note("I"), main.Openers.Encoder = note("E");
  main.Openers.Terminal = note("T"), main.Openers.SelfTest = note("S");
  main.Openers.HelpOn = [&](const std::string& spot) { opened += spot; };
  scene.Start();
  main.Motor.Click();
  for (const int row : {0, 3, 12, 18, 19, 22}) main.Summary.DoubleClick(row);
  main.HSled.Click();
  EXPECT_TRUE(main.PressKey(20));
  EXPECT_FALSE(main.PressKey('a'));
  main.MenuSelfTest.Click();
  EXPECT_EQ(opened, "MMIIEHSledTS");
  EXPECT_FALSE(main.MenuPrint.Enabled()) << "nothing stands behind it yet";
  scene.desktop.CallAfter(1.0, [&] { scene.program.Credits.OK.Click(); });
  main.MenuAbout.Click();
  EXPECT_EQ(scene.program.Credits.lblVersion.Caption(), "Version 1.0");
}

TEST_F(MainFormTest, LeavingAsksOnlyAboutChangesAndCancelKeepsThem) {
  scene.Start();
  state.Modified = true;
  EXPECT_EQ(main.StatusSettings.Caption(), "Settings changed");
  scene.desktop.Expect({.textPart = "Do you really want to quit?", .answer = BoxAnswer::Cancel});
  main.RequestClose();
  EXPECT_TRUE(main.Visible() && state.Modified);
  scene.desktop.Expect({.textPart = "Do you really want to quit?"});
  EXPECT_THROW(main.MenuExit.Click(), ProgramEnded);
  state.Modified = false;
  EXPECT_THROW(main.RequestClose(), ProgramEnded);
  EXPECT_EQ(scene.comm.Written(), "") << "the drive is told nothing";
}

}  // namespace
}  // namespace kavr6
