// The two motor windows in the whole program.
#include <functional>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>

#include "tests/support/error_of.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

struct MotorWindows : SceneTest {
  MotorDialog& dialog = scene.program.MotorSetup;
  EditMotor& editor = scene.program.CustomMotorSetup;

  void Open() { main.Motor.Click(); }
  void OpenEditor() {
    Open();
    dialog.optCustom.Click();
    dialog.DefineNewMotor.Click();
  }
  /// What stands in these controls, in one line.
  static std::string Shown(const Form& form, const std::string& names) {
    std::string line;
    std::istringstream words(names);
    for (std::string name; words >> name;) {
      const Control& control = *form.Find(name);
      if (const auto* box = dynamic_cast<const TextBox*>(&control)) line += box->Text();
      if (const auto* label = dynamic_cast<const Label*>(&control)) line += label->Caption();
      if (const auto* list = dynamic_cast<const ListBox*>(&control)) line += list->Text();
      if (const auto* bar = dynamic_cast<const Slider*>(&control)) line += std::to_string(bar->Value());
      line += "|";
    }
    return line;
  }
  std::string CustomSpecs() const {
    return Shown(dialog,
                 "OtherTorque OtherTorqueUnit OtherCurrent OtherInertia OtherInertiaUnit "
                 "OtherHarmonicGain OtherHarmonicPhase OtherDeg OtherRPS");
  }
};

using MotorDialogTest = MotorWindows;

TEST_F(MotorDialogTest, RunningCurrentIsHeldByMotorModelAndRange) {
  enum Way { Typed, Scrolled, Set };
  const std::tuple<int, int, Way, const char*, const char*> cases[] = {
      {0, 0, Typed, "2.551", "2.55|255|"}, {0, 0, Typed, "0.2", "0.50|50|"},
      {0, 2, Typed, "6.5", "6.00|600|"},   {3, 2, Typed, "5x", "3.20|320|"},
      {-1, 0, Typed, "1", "0.01|1|"},      {0, 0, Scrolled, "600", "2.55|255|"},
      {0, 0, Scrolled, "20", "0.50|50|"},  {0, 0, Set, "600", "6.00|600|"},
      {0, 0, Set, "20", "0.20|20|"}};
  Open();
  for (const auto& [model, motor, way, value, shown] : cases) {
    state.ModelIndex = model;
    dialog.MotorList.Select(motor);
    if (way == Typed) dialog.txtDriveCurrent.Type(value);
    if (way == Scrolled) dialog.SliderMaxCurrent.Scroll(std::stoi(value));
    if (way == Set) dialog.SliderMaxCurrent.SetValue(std::stoi(value));
    dialog.MotorList.Focus();
    EXPECT_EQ(Shown(dialog, "txtDriveCurrent SliderMaxCurrent"), shown) << model << motor << value;
  }
}

TEST_F(MotorDialogTest, OkTakesWhatWasEditedAndCancelKeepsTheSelectedMotorOnly) {
  Settings expected = settings;
  Open();
  dialog.MotorList.Select(2);
  EXPECT_EQ(Shown(dialog,
                  "lblRatedTorque TorqueUnit lblRatedCurrent lblRotorInertia RotorInertiaUnit "
                  "lblSmoothingGain lblSmoothingPhase lblDeg lblrps"),
            "1200|oz in|6.7|4000|g cm2|0|0|120|25|");
  dialog.Cancel.Click();
  EXPECT_TRUE(settings == expected && !state.Modified);
  Open();
  EXPECT_EQ(Shown(dialog, "MotorList txtDriveCurrent"), "KM34-3S-670|1.40|");
  dialog.OK.Click();
  EXPECT_FALSE(state.InertiaSet) << "nobody has touched the load";
  expected.RunCurrent = 3.2, expected.IdlePercent = 95, expected.IdleDelay = 10;
  expected.LoadInertiaUnit = 2, expected.LoadInertia = 0.0012, expected.InertiaRatio = 1.2;
  expected.InertiaIsRatio = expected.DampingOn = expected.SmoothingOn = false;
  Open();
  dialog.MotorList.Select(1);
  dialog.SliderMaxCurrent.Scroll(400);
  dialog.IdleDelayTime.Type("12");
  dialog.txtInertiaRatio.Type("1.23");
  dialog.optValue.Click();
  dialog.JUnits.Select(2);
  dialog.txtLoadInertia.Type(" 12 ");
  dialog.chkDampingOff.Click();
  dialog.chkSmoothingOff.Click();
  dialog.txtIdlePercent.Type("95");
  main.ModelList.SetListIndex(3);
  dialog.OK.Click();
  EXPECT_EQ(Shown(dialog, "SliderIdleCurrent IdleLabel SliderIdleDelay SliderInertiaRatio"),
            "90|%  (3.04 A)|1000|12|");
  EXPECT_EQ(settings, expected);
  EXPECT_TRUE(state.Modified && state.InertiaSet && !dialog.Visible());
  EXPECT_EQ(main.Summary.Text(0, 0) + main.Summary.Text(1, 0), "Motor: KM23-2S-3003.2");
}

TEST_F(MotorDialogTest, SourceOfTheMotorDecidesItsCurrentAndItsLimit) {
  Open();
  EXPECT_EQ(dialog.FocusedControl(), &dialog.MotorList);
  dialog.optCustom.Click();
  EXPECT_EQ(dialog.txtDriveCurrent.Text(), "2.00");
  EXPECT_EQ(CustomSpecs(), "118|oz in|2|300|g cm2|0|0|120|25|");
  EXPECT_TRUE(dialog.DefineNewMotor.Enabled() && dialog.FrameOtherMotor.Visible());
  EXPECT_FALSE(dialog.MotorList.Enabled() || dialog.FrameMotorSpecs.Visible());
  dialog.SliderMaxCurrent.Scroll(600);
  EXPECT_EQ(dialog.txtDriveCurrent.Text(), "3.00");
  dialog.optStandard.Click();
  dialog.Cancel.Click();
  settings.CustomMotor = true;
  for (const char* current : {"2.00", "1.40"}) {  // another source than the last one shown, then the same
    Open();
    EXPECT_EQ(dialog.txtDriveCurrent.Text(), current);
    EXPECT_EQ(dialog.FocusedControl(), &dialog.DefineNewMotor);
    dialog.Cancel.Click();
  }
}

TEST_F(MotorDialogTest, TransfersBesideAnOpenDialogCommitItOrFillItAnew) {
  state.InertiaSet = true;
  OpenEditor();
  editor.txtRatedCurrent.Type("4");
  dialog.txtIdlePercent.Type("70");
  scene.desktop.BroughtToFront(main);
  main.Download.Click();
  EXPECT_FALSE(editor.Visible() || dialog.Visible());
  EXPECT_TRUE(settings.RatedCurrent == 4 && settings.IdlePercent == 70 && settings.CustomMotor);
  EXPECT_EQ(settings.RunCurrent, 2.55) << "4 A within the limit of the motor that was the selected one";
  EXPECT_EQ(scene.drive.StoredImage()[13], 255);
  Open();
  dialog.IdleDelayTime.Type("3");
  main.Upload.Click();
  settings.IdlePercent = 20;
  dialog.OK.Click();
  EXPECT_TRUE(settings.IdleDelay == 0.4 && settings.IdlePercent == 70 && settings.RunCurrent == 2.55);
}

TEST(MotorDialogAlone, HelpButtonsOpenTheirPagesOrAreGrey) {
  Scene scene;
  MotorDialog& dialog = scene.program.MotorSetup;
  std::string pages;
  dialog.ShowHelp = [&](const std::string& page) { pages += page + " "; };
  scene.program.CustomMotorSetup.ShowHelp = nullptr;
  scene.program.CustomMotorSetup.Open();
  dialog.Show();
  for (Button* button : {&dialog.Help, &dialog.Wiring, &dialog.MoreOrLess}) button->Click();
  EXPECT_EQ(pages, "ConfigSoftware_Motor.html Connecting_the_Motor.html ");
  EXPECT_FALSE(scene.program.CustomMotorSetup.Help.Enabled() ||
               scene.program.CustomMotorSetup.Wizard.Enabled());
  EXPECT_TRUE(dialog.MoreOrLess.Caption() == "Less" && dialog.OtherMore.Visible());

  Scene noViewer;
  noViewer.Start();
  noViewer.main.IO.Click();
  const MotorDialog& motor = noViewer.program.MotorSetup;
  const IOdialog& io = noViewer.program.IOSetup;
  for (const Button* button : {&motor.Help, &motor.Wiring, &io.Help, &io.Wiring, &io.ShowHistory})
    EXPECT_FALSE(button->Enabled()) << button->Name();
}

// Once the least current of a scroll and a limit below it chased each other without end.
TEST(MotorDialogAlone, FirstMotorOfVeryLowCurrentStartsTheProgram) {
  Scene scene;
  scene.table.AddMotor("AAA", 0.2, 10, 10);
  scene.Start();
  EXPECT_EQ(scene.program.MotorSetup.txtDriveCurrent.Text(), "0.50");
}

struct EditMotorTest : MotorWindows {
  EditMotorTest() {
    editor.OpenWizard = [this] { ++wizards; };
    OpenEditor();
  }
  int wizards = 0;
};

TEST_F(EditMotorTest, OpeningAgainLeavesWhatIsTypedUnlessItWasClosed) {
  EXPECT_EQ(editor.FocusedControl(), &editor.txtMotorName);
  editor.txtMaxVolts.Type("51.5");
  for (const char* text : {"51.5", "94"}) {
    dialog.DefineNewMotor.Click();
    EXPECT_EQ(Shown(editor, "txtMaxVolts txtRatedTorque TorqueUnit"), text + std::string("|118|oz in|"));
    editor.RequestClose();
  }
}

TEST_F(EditMotorTest, TypedNumbersAreCleanedAndSlidersWriteTheirTexts) {
  // What is typed and what then stands there, in turn.
  const std::pair<TextBox*, const char*> cases[] = {{&editor.txtR, "321 320 0 0.1"},
                                                    {&editor.txtL, "999 320 -1 0.1"},
                                                    {&editor.txtDeg, "none 45 361 360"},
                                                    {&editor.txtRPS, "4 5 101 100 12abc 12"},
                                                    {&editor.Gain, "-1 0 99999 10000 5000 5000"},
                                                    {&editor.Phase, "-129 -128 129 128 -9 -9"},
                                                    {&editor.txtMaxVolts, "9 10 101 100 55.5 55.5"}};
  for (const auto& [box, entries] : cases) {
    std::istringstream words(entries);
    for (std::string typed, cleaned; words >> typed >> cleaned;) {
      box->Type(typed);
      editor.txtMotorName.Focus();
      EXPECT_EQ(box->Text(), cleaned) << typed;
    }
  }
  editor.SliderGain.Scroll(120);
  editor.SliderPhase.Scroll(-7);
  editor.SliderMaxVolts.Scroll(80);
  EXPECT_EQ(Shown(editor, "Gain Phase txtMaxVolts"), "120|-7|80|");
}

TEST_F(EditMotorTest, OkWritesTheSettingsAndTheMotorDialogsLabelsForGood) {
  Settings expected = settings;
  static_cast<MotorRecord&>(expected) = {20, 1.50, 7, 55.5, 1.25, 2, " my motor ", 70, -8, 4, 3, 46, 6};
  std::istringstream typed("20.0 1.50 7 55.5 1.25 2 70 -8 45.6 5.5");
  std::string text;
  for (TextBox* box :
       {&editor.txtRatedCurrent, &editor.txtRatedTorque, &editor.txtRotorInertia, &editor.txtMaxVolts,
        &editor.txtR, &editor.txtL, &editor.Gain, &editor.Phase, &editor.txtDeg, &editor.txtRPS})
    typed >> text, box->Type(text);
  editor.txtMotorName.Type(" my motor ");
  editor.TorqueUnit.Select(4);
  editor.JUnits.Select(3);
  dialog.RequestClose();
  editor.OK.Click();
  EXPECT_EQ(settings, expected);
  EXPECT_TRUE(state.Modified && !editor.Visible());
  EXPECT_EQ(CustomSpecs(), "1.50|N m|20.0|7|kg m2|70|-8|45.6|5.5|");
  EXPECT_EQ(dialog.txtDriveCurrent.Text(), "6.00") << "what the drive can give";
  EXPECT_EQ(main.Summary.Text(0, 0), "Motor:") << "no summary is redrawn here";
}

TEST_F(MotorWindows, FieldThatIsNoNumberEndsTheProgramAndTakesNothingOver) {
  const std::tuple<TextBox*, Button*, const char*, int> cases[] = {
      {&dialog.txtLoadInertia, &dialog.OK, "", 13},
      {&dialog.txtLoadInertia, &dialog.OK, "1e999", 6},
      {&editor.txtRatedTorque, &editor.OK, "", 13},
      {&editor.txtRotorInertia, &editor.OK, "12abc", 13},
      {&editor.txtRatedCurrent, &editor.OK, "2 A", 13}};
  settings.CustomMotor = true;
  settings.InertiaIsRatio = false;
  const Settings before = settings;
  for (const auto& [box, ok, typed, error] : cases) {
    Open();
    dialog.DefineNewMotor.Click();
    dialog.SliderIdleDelay.Scroll(77);
    editor.Gain.Type("99");
    box->Type(typed);
    EXPECT_EQ(ErrorOf([&, ok = ok] { ok->Click(); }), error) << box->Name();
    EXPECT_EQ(settings, before);
    editor.Cancel.Click();
    dialog.Cancel.Click();
  }
}

TEST_F(EditMotorTest, WizardNeedsFirmware100k) {
  const std::tuple<float, const char*, bool> cases[] = {
      {1.0F, "k", true}, {1.0F, "j", false}, {1.52F, "", false}, {0.0F, "a", true}};
  for (const auto& [revision, letter, opens] : cases) {
    state.DspRev = revision;
    state.MinorRev = letter;
    if (!opens)
      scene.desktop.Expect(
          {.text = "You must have firmware version 1.00k or later to use the Waveform Smoothing Wizard."});
    const int before = wizards;
    editor.Wizard.Click();
    EXPECT_EQ(wizards, before + (opens ? 1 : 0)) << revision << letter;
  }
}

}  // namespace
}  // namespace kavr6
