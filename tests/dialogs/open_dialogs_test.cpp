#include "core/numbers.h"
#include "tests/dialogs/setup_dialogs.h"

namespace kavr6 {
namespace {

struct OpenDialogs : SetupDialogs {
  MotorDialog& motor = program.MotorSetup;
  EditMotor& editor = program.CustomMotorSetup;
  using Row = std::pair<SetupDialog*, const char*>;
  const Row kAll[9] = {{&regen, "optExtRes RegenOhms=7"},
                       {&encoder, "txtEncCounts=8000"},
                       {&vtl, "txtTxDelay=70"},
                       {&io, "txtBrakeDelay=70"},
                       {&pulse, "SPR=400"},
                       {&velocity, "txtSpeed=7"},
                       {&advanced, "txtCmdOffset=70"},
                       {&motor, "txtIdlePercent=70"},
                       {&editor, "txtRatedCurrent=1"}};
  std::string pressed;

  OpenDialogs() {
    state.InertiaSet = true;
    for (const auto& [dialog, script] : kAll) {
      dialog->Open();
    }
    for (const auto& [dialog, script] : kAll) {
      Do(*dialog, script);
      // In a window behind others only the view hears of the focus that OK takes.
      dialog->OK.SetView([this, dialog = dialog] { pressed += dialog->Name() + " "; });
    }
    scene.desktop.BroughtToFront(main);
  }
  std::string Taken() const {
    std::string numbers;
    for (const double number :
         {settings.RegenOhms, settings.EncoderCounts * 1.0, settings.TxDelay * 1.0, settings.BrakeDelay * 1.0,
          settings.Speed, velocity.PendingOffset * 1.0, settings.IdlePercent * 1.0, settings.RatedCurrent})
      numbers += NumberText(number) + " ";
    return numbers;
  }
};

TEST_F(OpenDialogs, DownloadPressesTheirOksInOrderButNotThoseOfInputsAndHost) {
  main.Download.Click();
  EXPECT_EQ(
      pressed,
      "EditMotor MotorDialog VelocityDialog AdvancedSettings PulseDirDialog EncoderDialog RegenDialog ");
  EXPECT_EQ(Shown(), "VTLdialog IOdialog ");
  EXPECT_EQ(Taken(), "7 8000 0 200 7 70 70 1 ");
  EXPECT_TRUE(settings.ControlMode == 7 && settings.StepsPerRev == 400) << "pulses come behind velocity";
  EXPECT_EQ(settings.CmdOffset, 0) << "the velocity dialog was pressed before the advanced one";
  EXPECT_EQ(main.Summary.Text(kMotionRow, 0), "Mode: Pulse & Direction");
  EXPECT_FALSE(state.Modified);
  scene.desktop.CallAfter(0.05, [&] { io.OK.Click(); });
  main.Upload.Click();
  EXPECT_EQ(settings.BrakeDelay, 200) << "the image of the drive wins over an OK in its middle";
  vtl.OK.Click();
  EXPECT_TRUE(settings.OpMode == 2 && settings.TxDelay == 0) << "it shows what the drive has sent";
}

TEST_F(OpenDialogs, UploadAndOpeningAFileFillThemAnew) {
  state.Modified = false;
  // The drive's motor, which is not in the list yet, has 3 A; the current of its settings is 2 A.
  main.Upload.Click();
  EXPECT_EQ(motor.MotorList.Text() + " " + motor.txtDriveCurrent.Text(), "KM23-2P-300 2.00");
  scene.desktop.Expect({.purpose = FileDialog::Purpose::Save, .name = "a.cnf"});
  main.MenuSaveAs.Click();
  settings.LimitMode = 3;
  settings.RunCurrent = 1.1;
  scene.desktop.Expect(ExpectedFile{.name = "a.cnf"});
  main.MenuOpen.Click();
  EXPECT_EQ(motor.txtDriveCurrent.Text() + " " + io.ListLimits.Text(), "2.00 closed");
  EXPECT_EQ(pressed, "");
  for (const auto& [dialog, script] : kAll) {
    EXPECT_TRUE(dialog->Visible()) << dialog->Name();
    dialog->OK.Click();
  }
  EXPECT_EQ(Taken(), "40 4000 0 200 10 0 50 2 ");
  EXPECT_TRUE(state.Modified && settings.LimitMode == 1 && settings.RunCurrent == 2);
}

TEST_F(OpenDialogs, SecondOpeningKeepsWhatIsTypedUnlessTheSettingsHaveChanged) {
  main.Encoder.Click();
  Do(encoder, "txtMaxTorque=5");
  main.Motor.Click();
  EXPECT_EQ(encoder.txtMaxTorque.Text(), "10") << "a field left for another window is left";
  main.Encoder.Click();
  EXPECT_EQ(encoder.txtMaxTorque.Text(), "10");
  EXPECT_EQ(scene.desktop.ActiveFormName(), "EncoderDialog");
  settings.MaxTorquePct = 77;
  main.Encoder.Click();
  EXPECT_EQ(encoder.txtMaxTorque.Text(), "77");

  // The pending values are new with the velocity dialog's next filling, even where the child has stayed open.
  settings.AnalogVelocity = true;
  velocity.Open();
  Do(velocity, "Advanced");
  Do(velocity, "Cancel");
  settings.CmdOffset = 100;
  velocity.Open();
  Do(velocity, "Advanced");
  EXPECT_EQ(advanced.txtCmdOffset.Text(), "100");
}

}  // namespace
}  // namespace kavr6
