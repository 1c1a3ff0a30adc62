// Downloads and uploads from the click to the rest.
#include <numeric>

#include "tests/support/scenario.h"

namespace kavr6 {
namespace {

using Direction = FaultAt::Direction;

struct TransferScenario : Scenario {
  /// The program at rest, changed settings, the load inertia confirmed.
  void StartChanged() {
    StartUnseen();
    Do("the settings are changed, the load inertia is set", [&] {
      state.InertiaSet = true;
      state.Modified = true;
    });
  }
  void SettingsAreChanged() {
    Do("the settings are changed", [&] { state.Modified = true; });
  }
  void Armed(const FaultAt& fault, ClickableControl& control) {
    comm.Arm(fault);
    Click(control);
    Wait(3.0);
  }
};

TEST_F(TransferScenario, DownloadAfterTheInertiaQuestion) {
  StartUnseen();
  SettingsAreChanged();
  Answer(BoxAnswer::No);
  Click(main.Download);
  Answer(BoxAnswer::Yes);
  Click(main.Download);
  Click(main.Download);
}

TEST_F(TransferScenario, DownloadIsHeldToTheLimitsOfDriveAndFirmware) {
  struct Case {
    const char* what;
    int revision, model;
    double current;
    Long motionOut;
    bool box = false;
  };
  const Case cases[] = {{"6.1 A for a drive of 6 A", 52, 42, 6.1, 3, true},
                        {"7.1 A for a drive of 7 A", 52, 41, 7.1, 3, true},
                        {"7 A for a drive of 7 A", 52, 41, 7.0, 3},
                        {"3.2 A for a drive of 3.2 A", 52, 44, 3.2, 3},
                        {"3.21 A for a drive of 3.2 A", 52, 46, 3.21, 3, true},
                        {"200 pulses/rev with firmware 1.01", 1, 41, 1.4, 5, true},
                        {"both: the current is told", 1, 41, 7.1, 8, true},
                        {"200 pulses/rev with firmware 1.02", 2, 41, 1.4, 5},
                        {"100 pulses/rev with firmware 1.00", 0, 41, 1.4, 4}};
  StartChanged();
  for (const Case& c : cases) {
    Do(c.what, [&] {
      drive.SetIdentity(c.revision, c.model, 'k');
      // The model list pulls the current down when it changes; the check is for what is set afterwards.
      main.ModelList.Select(c.model - 41);
      settings.RunCurrent = c.current;
      settings.MotionOutMode = c.motionOut;
      state.Modified = true;
    });
    if (c.box) AnswerOk();
    Click(main.Download);
  }
}

TEST_F(TransferScenario, DriveThatIsSilentOrUnknownGetsNothing) {
  StartChanged();
  drive.SetSilent(true);
  AnswerOk();
  Click(main.Download);
  AnswerOk(2);
  Click(main.Upload);
  drive.SetSilent(false);
  comm.Arm({.fault = LineFault::Lost, .byte = 1});
  AnswerOk();
  Click(main.Download);
  drive.SetIdentity(20, 47, 'b');
  Click(main.Download);
  AnswerOk();
  Click(main.Upload);
}

TEST_F(TransferScenario, DownloadIsAnsweredInEveryWay) {
  StartChanged();
  const FaultAt answers[] = {
      {.fault = LineFault::Flipped, .byte = 6, .value = 6 ^ 7},
      {.fault = LineFault::Doubled, .byte = 6},
      {.fault = LineFault::Inserted, .byte = 6, .value = 7},
      {.fault = LineFault::Lost, .byte = 6},
      // The line itself takes 0.17 s.
      {.fault = LineFault::Late, .byte = 6, .seconds = 0.9},
      {.fault = LineFault::Late, .byte = 6, .seconds = 0.95},
      {.direction = Direction::ToDrive, .fault = LineFault::Flipped, .byte = 20, .value = 0x81}};
  for (const FaultAt& fault : answers) {
    const bool box = fault.fault == LineFault::Lost || fault.seconds == 0.95 || fault.value == 0x81;
    if (box) AnswerOk();
    SettingsAreChanged();
    Armed(fault, main.Download);
    comm.ClearFault();
  }
}

TEST_F(TransferScenario, DownloadIsInterrupted) {
  StartChanged();
  Later(0.165, "the drive loses power for a moment", [&] { drive.Restart(); });
  AnswerOk();
  Click(main.Download);
  Wait(0.5);
  SettingsAreChanged();
  Later(0.1, "the adapter is pulled out", [&] { comm.Unplug(); });
  AnswerOk();
  Click(main.Download);
}

TEST_F(TransferScenario, DownloadIsClickedAgainWhileItRuns) {
  StartChanged();
  Later(0.1, "click Download", [&] { main.Download.Click(); });
  AnswerOk();
  Click(main.Download);
  Wait(2.0);
}

TEST_F(TransferScenario, DownloadEndsWithTheProgram) {
  StartChanged();
  Later(0.1, "close the window", [&] { main.RequestClose(); });
  AnswerOk();
  Click(main.Download);
}

TEST_F(TransferScenario, DownloadOfAValueThatDoesNotFitEndsTheProgram) {
  StartChanged();
  Do("no line address", [&] { settings.RS485Addr.clear(); });
  AnswerOk();
  Click(main.Download);
}

TEST_F(TransferScenario, PortIsChangedWhileADownloadRuns) {
  comm.Connect(2, nullptr);
  StartChanged();
  Later(0.1, "select row 1 of CommList", [&] { main.CommList.Select(1); });
  AnswerOk();
  Click(main.Download);
}

TEST_F(TransferScenario, UploadReplacesAndShowsTheSettings) {
  StartUnseen();
  Do("a file is open and changed", [&] {
    state.FileName = "kept.cnf";
    state.Modified = true;
  });
  Answer(BoxAnswer::Cancel);
  Click(main.Upload);
  AnswerOk();
  Click(main.Upload);
  Click(main.Upload);
}

TEST_F(TransferScenario, UploadOfAnotherSetupIsLimitedAndNamed) {
  const std::pair<std::size_t, std::uint8_t> bytes[] = {
      {12, 0x03}, {13, 0x84}, {14, 0x03}, {15, 0x75},              // 9 A, idle 8.85 A
      {20, 0x04}, {21, 0x05}, {38, 0x82}, {44, 17},   {46, 0x06},  // stalls, analog, velocity, quadrature
      {50, 0},    {54, 12},   {65, 9},    {67, 100},  {123, 1}};
  SimulatedDrive::Image image = drive.StoredImage();
  for (const auto& [position, byte] : bytes) image[position] = byte;
  const int sum = std::accumulate(image.begin(), image.end() - 2, 0);
  image[159] = static_cast<std::uint8_t>(sum / 256);
  image[160] = static_cast<std::uint8_t>(sum % 256);
  drive.StoreImage(image);
  main.CommandPause = true;
  StartUnseen();
  Click(main.Upload);
}

TEST_F(TransferScenario, UploadIsLateOrSpoilt) {
  StartChanged();
  // Two identities of 2 bytes and a letter of 4 come before the image.
  const FaultAt faults[] = {{.fault = LineFault::Flipped, .byte = 8 + 5},
                            {.fault = LineFault::Lost, .byte = 8 + 160},
                            {.fault = LineFault::Late, .byte = 8 + 150, .seconds = 0.31},
                            {.fault = LineFault::Late, .byte = 8 + 150, .seconds = 0.4}};
  for (const FaultAt& fault : faults) {
    AnswerOk(fault.seconds == 0.31 ? 1 : 2);
    SettingsAreChanged();
    Armed(fault, main.Upload);
    comm.ClearFault();
  }
}

TEST_F(TransferScenario, UploadIsInterrupted) {
  StartUnseen();
  Later(0.1, "a box that stands open", [&] { desktop.Ask({.text = "something else"}); });
  Answer(BoxAnswer::Ok, 1.0);
  AnswerOk();
  Click(main.Upload);
  Wait(1.0);
  Later(0.1, "the adapter is pulled out", [&] { comm.Unplug(); });
  AnswerOk(2);
  Click(main.Upload);
}

}  // namespace
}  // namespace kavr6
