// Downloads and uploads from the click to the rest.
#include "tests/support/scenario.h"

namespace kavr6 {
namespace {

using Direction = FaultAt::Direction;

struct TransferScenario : Scenario {
  void Change(const std::function<void()>& change = {},
              const std::string& what = "the settings are changed") {
    Do(what, [&] {
      if (change) change();
      state.Modified = true;
    });
  }
  /// The program at rest, with changed settings and the load inertia confirmed.
  void StartChanged() {
    StartUnseen();
    Change([&] { state.InertiaSet = true; });
  }
  /// Each fault on the line in turn, with the answers to the boxes that come of it.
  void ClickWith(std::initializer_list<std::pair<FaultAt, const char*>> faults, ClickableControl& control) {
    for (const auto& [fault, answers] : faults) {
      Change();
      comm.Arm(fault);
      Click(control, answers);
      Wait(3.0);
      comm.ClearFault();
    }
  }
};

TEST_F(TransferScenario, DownloadAfterTheInertiaQuestion) {
  StartUnseen();
  Change();
  Click(main.Download, "N");
  Click(main.Download, "Y");
  Click(main.Download);
}

TEST_F(TransferScenario, DownloadIsHeldToTheLimitsOfDriveAndFirmware) {
  // Revision, model, current, motion output.
  const std::tuple<const char*, int, int, double, Long, const char*> cases[] = {
      {"6.1 A for a drive of 6 A", 52, 42, 6.1, 3, "O"},
      {"7.1 A for a drive of 7 A", 52, 41, 7.1, 3, "O"},
      {"7 A for a drive of 7 A", 52, 41, 7.0, 3, ""},
      {"3.2 A for a drive of 3.2 A", 52, 44, 3.2, 3, ""},
      {"3.21 A for a drive of 3.2 A", 52, 46, 3.21, 3, "O"},
      {"200 pulses/rev with firmware 1.01", 1, 41, 1.4, 5, "O"},
      {"both: the current is told", 1, 41, 7.1, 8, "O"},
      {"200 pulses/rev with firmware 1.02", 2, 41, 1.4, 5, ""},
      {"100 pulses/rev with firmware 1.00", 0, 41, 1.4, 4, ""}};
  StartChanged();
  for (const auto& [what, revision, model, current, motionOut, answers] : cases) {
    drive.SetIdentity(revision, model, 'k');
    // The model list pulls the current down when it changes; the check is for what is set afterwards.
    Select(main.ModelList, model - 41);
    Change(
        [&, amperes = current, mode = motionOut] {
          settings.RunCurrent = amperes;
          settings.MotionOutMode = mode;
        },
        what);
    Click(main.Download, answers);
  }
}

TEST_F(TransferScenario, DriveThatIsSilentOrUnknownGetsNothing) {
  StartChanged();
  drive.SetSilent(true);
  Click(main.Download, "O");
  Click(main.Upload, "OO");
  drive.SetSilent(false);
  comm.Arm({.fault = LineFault::Lost, .byte = 1});
  Click(main.Download, "O");
  drive.SetIdentity(20, 47, 'b');
  Click(main.Download);
  Click(main.Upload, "O");
}

TEST_F(TransferScenario, DownloadIsAnsweredInEveryWay) {
  StartUnseen();
  state.InertiaSet = true;
  // An identity of 2 bytes and a letter of 4 come before the answer. A byte too many counts for the letter.
  ClickWith(
      {{{.fault = LineFault::Lost, .byte = 3}, ""},
       {{.fault = LineFault::Inserted, .byte = 2, .value = 'x'}, ""},
       {{.fault = LineFault::Flipped, .byte = 6, .value = 6 ^ 7}, ""},
       {{.fault = LineFault::Doubled, .byte = 6}, ""},
       {{.fault = LineFault::Inserted, .byte = 6, .value = 7}, ""},
       {{.fault = LineFault::Lost, .byte = 6}, "O"},
       // The line itself takes 0.17 s.
       {{.fault = LineFault::Late, .byte = 6, .seconds = 0.9}, ""},
       {{.fault = LineFault::Late, .byte = 6, .seconds = 0.95}, "O"},
       {{.direction = Direction::ToDrive, .fault = LineFault::Flipped, .byte = 20, .value = 0x81}, "O"}},
      main.Download);
}

TEST_F(TransferScenario, DownloadIsInterrupted) {
  comm.Connect(2, &drive);
  StartChanged();
  const std::tuple<double, const char*, std::function<void()>> disturbances[] = {
      {0.165, "the drive loses power for a moment", [&] { drive.Restart(); }},
      {0.1, "select row 1 of CommList", [&] { main.CommList.Select(1); }},
      {0.1, "the adapter is pulled out", [&] { comm.Unplug(); }}};
  for (const auto& [when, what, disturb] : disturbances) {
    Change();
    Later(when, what, disturb);
    Click(main.Download, "O");
    Wait(0.7);
  }
}

TEST_F(TransferScenario, DownloadIsClickedAgainWhileItRuns) {
  StartChanged();
  Later(0.1, "click Download", [&] { main.Download.Click(); });
  Click(main.Download, "O");
}

TEST_F(TransferScenario, DownloadEndsWithTheProgram) {
  StartChanged();
  Later(0.1, "close the window", [&] { main.RequestClose(); });
  Click(main.Download, "O");
}

TEST_F(TransferScenario, DownloadOfAValueThatDoesNotFitEndsTheProgram) {
  StartChanged();
  Do("no line address", [&] { settings.RS485Addr.clear(); });
  Click(main.Download, "N");
}

TEST_F(TransferScenario, ErrorThatEndsTheProgramOffersToSaveFirst) {
  StartChanged();
  Do("no line address", [&] { settings.RS485Addr.clear(); });
  desktop.Expect({.purpose = FileDialog::Purpose::Save, .name = "rescued.cnf"});
  Click(main.Download, "Y");
  EXPECT_EQ(scene.files.content.at("rescued.cnf"), program.Files.FileText());
}

TEST_F(TransferScenario, UploadReplacesAndShowsTheSettings) {
  StartUnseen();
  Change([&] { state.FileName = "kept.cnf"; });
  Click(main.Upload, "C");
  Click(main.Upload, "O");
  Click(main.Upload);
}

TEST_F(TransferScenario, UploadOfAnotherSetupIsLimitedAndNamed) {
  const std::pair<std::size_t, std::uint8_t> bytes[] = {
      {12, 0x03}, {13, 0x84}, {14, 0x03}, {15, 0x75},              // 9 A, idle 8.85 A
      {20, 0x04}, {21, 0x05}, {38, 0x82}, {44, 17},   {46, 0x06},  // stalls, analog, velocity, quadrature
      {50, 0},    {54, 12},   {65, 9},    {67, 100},  {123, 1}};
  SimulatedDrive::Image image = drive.StoredImage();
  for (const auto& [position, byte] : bytes) image[position] = byte;
  image[159] = static_cast<std::uint8_t>(DriveImageSum(image) / 256);
  image[160] = static_cast<std::uint8_t>(DriveImageSum(image) % 256);
  drive.StoreImage(image);
  state.CommandPause = true;
  StartUnseen();
  Click(main.Upload);
}

TEST_F(TransferScenario, UploadIsLateOrSpoilt) {
  StartUnseen();
  // Two identities of 2 bytes and a letter of 4 come before the image.
  ClickWith({{{.fault = LineFault::Flipped, .byte = 8 + 5}, "OO"},
             {{.fault = LineFault::Lost, .byte = 8 + 160}, "OO"},
             {{.fault = LineFault::Late, .byte = 8 + 150, .seconds = 0.31}, "O"},
             {{.fault = LineFault::Late, .byte = 8 + 150, .seconds = 0.4}, "OO"}},
            main.Upload);
}

TEST_F(TransferScenario, UploadIsInterrupted) {
  StartUnseen();
  Later(0.1, "a box that stands open", [&] { desktop.Ask({.text = "something else"}); });
  Answer("O", 1.0);
  Click(main.Upload, "O");
  Wait(1.0);
  Later(0.1, "the adapter is pulled out", [&] { comm.Unplug(); });
  Click(main.Upload, "OO");
}

}  // namespace
}  // namespace kavr6
