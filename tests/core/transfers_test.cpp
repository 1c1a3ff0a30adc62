#include "image/transfers.h"

#include <gtest/gtest.h>

#include "tests/support/scene.h"

namespace kavr6 {
namespace {

struct TransfersTest : SceneTest {
  TransfersTest() { state.InertiaSet = true; }
};

TEST_F(TransfersTest, DownloadPutsExactlyThisOnTheWire) {
  state.Modified = true;
  int most = 0;
  main.ProgBar.SetView([&] { most = std::max(most, main.ProgBar.FloodPercent()); });
  main.Download.Click();
  const SimulatedDrive::Image& stored = scene.drive.StoredImage();
  EXPECT_EQ(scene.comm.Written(), "SCy\x8E" + ("d" + std::string(stored.begin(), stored.end())));
  EXPECT_TRUE(ChecksumHolds(stored));
  EXPECT_EQ(stored[12] * 256 + stored[13], 140);
  EXPECT_EQ(most, 100);
  EXPECT_FALSE(state.Modified);
  EXPECT_EQ(main.ModelList.ListIndex(), 0);
  EXPECT_EQ(main.StatusDrive.Caption(), "Last heard: KAVR6-Bx, firmware 1.52 k");
}

TEST_F(TransfersTest, UploadPutsExactlyThisOnTheWireAndShowsTheSettings) {
  main.Download.Click();
  const Settings sent = scene.settings;
  scene.settings.Speed = 77;
  scene.comm.ForgetWritten();
  state.FileName = "kept.cnf";
  state.InertiaSet = false;
  main.Upload.Click();
  EXPECT_EQ(scene.comm.Written(), "SCCy\x8EuCy\x8E");
  EXPECT_DOUBLE_EQ(scene.settings.Speed, sent.Speed);
  EXPECT_EQ(main.Summary.Text(1, 0), "1.4");
  EXPECT_EQ(main.MotorLine1.BorderColor(), kGreen);
  EXPECT_EQ(state.FileName, "kept.cnf");
  EXPECT_FALSE(state.InertiaSet) << "an upload does not confirm the load inertia";
}

TEST_F(TransfersTest, InertiaQuestionReturnsUntilAnsweredYes) {
  state.InertiaSet = false;
  scene.desktop.Expect({.textPart = "You have not set the load inertia", .answer = BoxAnswer::No});
  main.Download.Click();
  EXPECT_EQ(scene.comm.Written(), "");
  scene.desktop.Expect({.textPart = "You have not set the load inertia", .answer = BoxAnswer::Yes});
  main.Download.Click();
  main.Download.Click();
  EXPECT_EQ(scene.desktop.Boxes().size(), 2U);
}

TEST_F(TransfersTest, LimitsAreCheckedBeforeAnythingIsSent) {
  const std::tuple<int, int, double, Long, const char*> cases[] = {
      {52, 42, 6.1, 3, "The motor current setting exceeds"},
      {52, 41, 7.0, 3, nullptr},
      {52, 44, 3.2, 3, nullptr},
      {1, 41, 1.4, 5, "You need DSP firmware 1.02 or later"},
      {2, 41, 1.4, 5, nullptr},
      {0, 41, 1.4, 4, nullptr}};
  for (const auto& [revision, model, current, motionOut, box] : cases) {
    scene.drive.SetIdentity(revision, model, 'k');
    // The model list pulls the current down when it changes; the check is for what is set afterwards.
    main.ModelList.SetListIndex(model - 41);
    scene.settings.RunCurrent = current;
    scene.settings.MotionOutMode = motionOut;
    scene.comm.ForgetWritten();
    state.Modified = true;
    if (box != nullptr) scene.desktop.Expect({.textPart = box});
    main.Download.Click();
    EXPECT_EQ(scene.comm.Written().find('d') == std::string::npos, box != nullptr) << revision;
    EXPECT_EQ(state.Modified, box != nullptr);
  }
}

TEST_F(TransfersTest, SilentDriveIsToldWithinTheLimitAndNothingIsSent) {
  const double start = scene.desktop.Now();
  scene.drive.SetSilent(true);
  state.Modified = true;
  scene.desktop.Expect({.textPart = "The drive is not responding."});
  main.Download.Click();
  EXPECT_NEAR(scene.desktop.Now(), start + 0.5, 1e-9);
  EXPECT_EQ(scene.desktop.Boxes().back().title, "CheckDrive 0");
  scene.desktop.Expect({.textPart = "Do you really want to upload and replace your program?"});
  scene.desktop.Expect({.textPart = "The drive is not responding."});
  main.Upload.Click();
  EXPECT_NEAR(scene.desktop.Now(), start + 1.0, 1e-9);
  EXPECT_EQ(scene.desktop.Boxes().back().title, "Communication Error");
  EXPECT_EQ(scene.comm.Written(), "SCSC");
  EXPECT_TRUE(state.Modified);
}

TEST_F(TransfersTest, UnknownModelGetsNothingAndNoMessage) {
  scene.drive.SetIdentity(20, 18, 'b');
  main.Download.Click();
  main.Upload.Click();
  EXPECT_EQ(scene.comm.Written(), "SCy\x8ESC");
  EXPECT_TRUE(scene.desktop.Boxes().empty());
}

TEST_F(TransfersTest, UploadHeldUpByABoxCountsAsLateAlthoughAllBytesAreThere) {
  const Settings before = scene.settings;
  scene.desktop.CallAfter(0.1, [&] { scene.desktop.Ask({.text = "something else"}); });
  scene.desktop.Expect({.textPart = "something else", .after = 1.0});
  scene.desktop.Expect({.textPart = "We are having trouble uploading tuning data"});
  // The image that nobody has read runs over the ring in front of the last reply: what that says is chance.
  scene.desktop.AnswerAnything();
  main.Upload.Click();
  EXPECT_EQ(scene.settings, before);
}

TEST_F(TransfersTest, SecondClickInsideATransferEndsCalmly) {
  for (const double when : {0.001, 0.004, 0.01, 0.05, 0.15, 0.2}) {
    for (ImageButton MainScreen::*first : {&MainScreen::Download, &MainScreen::Upload}) {
      for (ImageButton MainScreen::*second : {&MainScreen::Download, &MainScreen::Upload}) {
        Scene other;
        other.Start();
        other.state.InertiaSet = true;
        other.desktop.CallAfter(when, [&other, second] { (other.main.*second).Click(); });
        other.desktop.AnswerAnything();
        (other.main.*first).Click();
        Delay(other.desktop, 5.0);
        other.ExpectCalm();
      }
    }
  }
}

TEST_F(TransfersTest, ClosedWindowAndValueThatDoesNotFitEndTheTransferAtOnce) {
  scene.settings.RS485Addr.clear();
  EXPECT_THROW(main.Download.Click(), RuntimeError);
  EXPECT_EQ(scene.comm.Written(), "SCy\x8E" + std::string("d"));
  InitVars(scene.settings);
  state.CommandActive = false;
  scene.desktop.CallAfter(0.05, [&] { main.RequestClose(); });
  EXPECT_THROW(main.Download.Click(), ProgramEnded);
  state.Progress = 0;
  state.CommandActive = false;
}

}  // namespace
}  // namespace kavr6
