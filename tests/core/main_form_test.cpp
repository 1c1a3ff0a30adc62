#include "core/main_form.h"

#include <gtest/gtest.h>

#include "tests/support/scene.h"

namespace kavr6 {
namespace {

class MainFormTest : public testing::Test {
 protected:
  void TearDown() override { scene.desktop.CheckNothingLeft(); }
  Scene scene;
  MainForm& main = scene.main;
};

TEST_F(MainFormTest, StartsOnDefaultsWithADriveThatIsOnlySeen) {
  scene.program.Start();
  EXPECT_EQ(main.Caption(), "KAVR6 Configurator  V1.0 - untitled");
  EXPECT_TRUE(main.Visible());
  EXPECT_FALSE(scene.program.Splash.Visible());
  EXPECT_EQ(scene.comm.Written(), "C") << "a KAVR6 is not asked any further at the start";
  EXPECT_EQ(main.ModelList.ListIndex(), 1);
  EXPECT_EQ(main.DriveVersion.Caption(), "");
  EXPECT_EQ(main.MotionDesc.Caption(), "Pulse && Direction");
  EXPECT_EQ(scene.settings.StepsPerRev, 25000);
  EXPECT_EQ(main.Summary.Text(0, 0), "Motor:");
  EXPECT_EQ(main.Width(), 12000);
  EXPECT_EQ(main.Left(), (20490 - 12000) / 2);
  EXPECT_EQ(main.StatusPort.Caption(), "COM1: simulated port 1");
  EXPECT_EQ(main.StatusDrive.Caption(), "KAVR6-Bx, firmware 1.52");
  EXPECT_EQ(main.StatusSettings.Caption(), "Settings unchanged");
  EXPECT_EQ(scene.program.IOSetup.ListLimits.Text(), "closed");
  scene.ExpectCalm();
}

TEST_F(MainFormTest, EarlierFamilyIsAskedFurtherAtTheStart) {
  scene.drive.SetIdentity(20, 18, 'b');
  scene.program.Start();
  EXPECT_EQ(scene.comm.Written(), std::string("CCy\x8E"));
  EXPECT_EQ(main.DriveVersion.Caption(), "1.20 b");
  EXPECT_EQ(main.StatusDrive.Caption(), "Unknown model, code 18, firmware 1.20 b");
}

TEST_F(MainFormTest, StartsWithoutAnyPortAndRefusesDriveActions) {
  for (int port = 1; port <= 8; ++port) scene.comm.Refuse(port, "no such device");
  for (int port = 1; port <= 7; ++port)
    scene.desktop.Expect({.textPart = "Error on Comm" + std::to_string(port) +
                                      ":  no such device.  Will try Comm" + std::to_string(port + 1) + "."});
  scene.desktop.Expect({.textPart = "Could not find an open comm port."});
  scene.desktop.SetScreen({9600, 7200});
  scene.desktop.SetVersion({2, 1, 3});
  scene.program.Start();
  EXPECT_EQ(main.Caption(), "KAVR6 Configurator  V2.1.3 - untitled");
  EXPECT_EQ(main.Width(), 9600) << "a narrow screen keeps the designed width";
  EXPECT_EQ(main.StatusPort.Caption(), "No port open");
  EXPECT_EQ(main.StatusDrive.Caption(), "No drive heard");
  EXPECT_TRUE(main.KeyPressed(20)) << "Ctrl+T is kept from the focused control all the same";
  scene.desktop.Expect({.textPart = "Cannot download to drive: there is no comm port open."});
  main.Download.Click();
  scene.desktop.Expect({.textPart = "Cannot upload from drive: there is no comm port open."});
  main.Upload.Click();
  EXPECT_EQ(scene.comm.Written(), "");
}

TEST_F(MainFormTest, DriveThatSpeaksDuringTheStartChangesNothingButWhatIsShown) {
  scene.comm.Arm({.fault = LineFault::Silence});
  scene.desktop.CallAfter(0.3, [&] {
    scene.comm.ClearFault();
    scene.drive.SendRaw("\xFF\x34\x2E");
  });
  scene.program.Start();
  EXPECT_EQ(main.ModelList.ListIndex(), 5);
  EXPECT_EQ(main.StatusDrive.Caption(), "KAVR6-Zu-220, firmware 1.52");
  EXPECT_EQ(scene.desktop.Beeps(), 1);
  EXPECT_DOUBLE_EQ(scene.settings.RunCurrent, 1.4);
}

TEST_F(MainFormTest, MissingMotorTableIsToldAndEndsTheProgram) {
  scene.table.FailOpen = true;
  scene.desktop.Expect(
      {.textPart = " Can't load motor database.  The KAVR6 Configurator cannot operate without it."});
  EXPECT_THROW(scene.program.Start(), ProgramEnded);
}

TEST_F(MainFormTest, ChoosingAModelPullsTheCurrentsDownAndNeverUp) {
  scene.Start();
  scene.settings.RunCurrent = 6.5;
  scene.settings.IdlePercent = 95;
  main.ModelList.Select(3);
  EXPECT_LE(scene.settings.RunCurrent, 3.2F);
  EXPECT_EQ(scene.settings.IdlePercent, 90);
  const double pulled = scene.settings.RunCurrent;
  main.ModelList.Select(0);
  EXPECT_EQ(scene.settings.RunCurrent, pulled);
}

TEST_F(MainFormTest, ButtonsMenusKeysAndGridReachTheirOpeners) {
  std::string opened;
  const auto note = [&](const char* what) { return [&opened, what] { opened += what; }; };
  main.Openers.Motor = note("M");
  main.Openers.IO = note("I");
  main.Openers.Encoder = note("E");
  main.Openers.Terminal = note("T");
  main.Openers.SelfTest = note("S");
  main.Openers.HelpOn = [&](const std::string& spot) { opened += spot; };
  scene.Start();
  main.Motor.Click();
  for (const int row : {0, 3, 12, 18, 19, 22}) main.Summary.DoubleClick(row);
  main.HSled.Click();
  EXPECT_TRUE(main.KeyPressed(20));
  EXPECT_FALSE(main.KeyPressed('a'));
  main.MenuSelfTest.Click();
  EXPECT_EQ(opened, "MMIIEHSledTS");
  EXPECT_FALSE(main.MenuPrint.Enabled()) << "nothing stands behind it yet";
  opened.clear();
  scene.comm.Unplug();
  main.KeyPressed(20);
  main.MenuTerminal.Click();
  EXPECT_EQ(opened, "") << "no terminal without a port";
  EXPECT_EQ(main.StatusPort.Caption(), "No port open");
}

TEST_F(MainFormTest, LeavingAsksOnlyAboutChangesAndCancelKeepsThem) {
  scene.Start();
  main.Modified = true;
  EXPECT_EQ(main.StatusSettings.Caption(), "Settings changed");
  scene.desktop.Expect({.textPart = "Do you really want to quit?", .answer = BoxAnswer::Cancel});
  main.RequestClose();
  EXPECT_TRUE(main.Visible());
  EXPECT_TRUE(main.Modified);
  EXPECT_EQ(scene.desktop.Boxes().back().title, "Quit");
  scene.desktop.Expect({.textPart = "Do you really want to quit?"});
  EXPECT_THROW(main.MenuExit.Click(), ProgramEnded);
  main.Modified = false;
  EXPECT_THROW(main.RequestClose(), ProgramEnded);
  EXPECT_EQ(scene.comm.Written(), "") << "the drive is told nothing";
}

TEST_F(MainFormTest, WindowIsNeverSmallerThanItsLeastSize) {
  scene.Start();
  main.Resize(100, 100);
  EXPECT_EQ(main.Width(), 9600);
  EXPECT_EQ(main.Height(), 7200);
}

TEST_F(MainFormTest, CreditsShowTheVersionUntilOk) {
  scene.Start();
  scene.desktop.CallAfter(1.0, [&] { scene.program.Credits.OK.Click(); });
  main.MenuAbout.Click();
  EXPECT_EQ(scene.program.Credits.lblVersion.Caption(), "Version 1.0");
  EXPECT_EQ(scene.program.Credits.Caption(), "Credits");
}

}  // namespace
}  // namespace kavr6
