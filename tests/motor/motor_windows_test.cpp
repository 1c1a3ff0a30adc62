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

struct MotorWindows : testing::Test {
  MotorWindows() { scene.Start(); }
  Scene scene;
  MainForm& main = scene.main;
  Settings& settings = scene.settings;
  MotorDialog& dialog = scene.program.MotorSetup;
  EditMotor& editor = scene.program.CustomMotorSetup;

  void TearDown() override { scene.ExpectCalm(); }
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

TEST_F(MotorDialogTest, EachOpeningShowsTheRecordWhateverAnEarlierOneHasLeft) {
  const std::pair<std::function<void(Settings&)>, const char*> cases[] = {
      {[](Settings&) {}, "1.40|50|0.40|1|.00000|g cm2|"},
      {[](Settings& s) { s.RunCurrent = 5, s.IdlePercent = 95; }, "5.00|95|0.40|1|.00000|g cm2|"},
      {[](Settings& s) { s.RunCurrent = 6.4, s.IdlePercent = 0; }, "6.00|0|0.40|1|.00000|g cm2|"},
      {[](Settings& s) { s.InertiaRatio = -1; }, "1.40|50|0.40|0|.00000|g cm2|"},
      {[](Settings& s) { s.InertiaRatio = 1e300; }, "1.40|50|0.40|20|.00000|g cm2|"},
      {[](Settings& s) { s.LoadInertia = 0.5, s.LoadInertiaUnit = 9; }, "1.40|50|0.40|1|.5|kg m2|"}};
  constexpr const char* kTexts =
      "txtDriveCurrent txtIdlePercent IdleDelayTime txtInertiaRatio txtLoadInertia JUnits";
  const Settings start = settings;
  for (const auto& [change, texts] : cases) {
    settings = start;
    change(settings);
    for (TextBox* left : {&dialog.txtDriveCurrent, &dialog.txtIdlePercent, &dialog.IdleDelayTime,
                          &dialog.txtInertiaRatio, &dialog.txtLoadInertia}) {
      Open();
      EXPECT_EQ(Shown(dialog, kTexts), texts) << left->Name();
      EXPECT_EQ(dialog.SliderIdleCurrent.Value(), std::min(settings.IdlePercent, 90));
      EXPECT_FALSE(dialog.InertiaEdited);
      left->Type("7.7x");
      const std::string typed = Shown(dialog, kTexts);
      Open();  // while it stands open
      EXPECT_EQ(Shown(dialog, kTexts), typed);
      dialog.RequestClose();
    }
  }
}

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
    main.ModelList.SetListIndex(model);
    dialog.MotorList.Select(motor);
    if (way == Typed) dialog.txtDriveCurrent.Type(value);
    if (way == Scrolled) dialog.SliderMaxCurrent.Scroll(std::stoi(value));
    if (way == Set) dialog.SliderMaxCurrent.SetValue(std::stoi(value));
    dialog.MotorList.Focus();
    EXPECT_EQ(Shown(dialog, "txtDriveCurrent SliderMaxCurrent"), shown) << model << motor << value;
  }
}

TEST_F(MotorDialogTest, TypedNumbersAreCleanedAndLeadTheirSliders) {
  const std::tuple<TextBox*, const char*, const char*, const char*> cases[] = {
      {&dialog.txtIdlePercent, "SliderIdleCurrent IdleLabel", "95", "95|90|%  (1.33 A)|"},
      {&dialog.txtIdlePercent, "SliderIdleCurrent IdleLabel", "2.5", "2|2|%  (0.03 A)|"},
      {&dialog.IdleDelayTime, "SliderIdleDelay", "12", "10.00|1000|"},
      {&dialog.txtInertiaRatio, "SliderInertiaRatio", "1.23", "1.2|12|"}};
  Open();
  for (const auto& [box, followers, typed, shown] : cases) {
    box->Type(typed);
    dialog.MotorList.Focus();
    EXPECT_EQ(Shown(dialog, box->Name() + " " + followers), shown);
  }
  dialog.txtIdlePercent.Type("");
  EXPECT_EQ(dialog.IdleLabel.Caption(), "%  (0.00 A)");
}

TEST_F(MotorDialogTest, PickedMotorShowsItsFactsAndStaysSelectedAfterCancel) {
  main.ModelList.SetListIndex(1);
  const Settings before = settings;
  Open();
  dialog.MotorList.Select(2);
  EXPECT_EQ(dialog.SliderMaxCurrent.Value(), 600) << "6.7 A on a model of 6 A";
  EXPECT_EQ(Shown(dialog,
                  "lblRatedTorque TorqueUnit lblRatedCurrent lblRotorInertia RotorInertiaUnit "
                  "lblSmoothingGain lblSmoothingPhase lblDeg lblrps"),
            "1200|oz in|6.7|4000|g cm2|0|0|120|25|");
  dialog.Cancel.Click();
  EXPECT_FALSE(dialog.Visible() || main.Modified);
  EXPECT_EQ(settings, before);
  Open();
  EXPECT_EQ(Shown(dialog, "MotorList txtDriveCurrent"), "KM34-3S-670|1.40|");
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

TEST_F(MotorDialogTest, OkTakesEverythingOverAndRedrawsTheGrid) {
  Settings expected = settings;
  expected.RunCurrent = 3.2, expected.IdlePercent = 95;
  expected.IdleDelay = 2.5;
  expected.LoadInertiaUnit = 2, expected.LoadInertia = 0.0012;
  expected.InertiaIsRatio = expected.DampingOn = expected.SmoothingOn = false;
  expected.InertiaRatio = 4.5;
  Open();
  dialog.MotorList.Select(1);
  dialog.SliderMaxCurrent.Scroll(400);
  dialog.IdleDelayTime.Type("2.5");
  dialog.SliderInertiaRatio.Scroll(45);
  dialog.optValue.Click();
  dialog.JUnits.Select(2);
  dialog.txtLoadInertia.Type(" 12 ");
  dialog.chkDampingOff.Click();
  dialog.chkSmoothingOff.Click();
  dialog.txtIdlePercent.Type("95");
  main.ModelList.SetListIndex(3);
  dialog.OK.Click();
  EXPECT_EQ(settings, expected);
  EXPECT_TRUE(main.Modified && main.InertiaSet);
  EXPECT_FALSE(dialog.Visible());
  EXPECT_EQ(main.Summary.Text(0, 0) + main.Summary.Text(1, 0), "Motor: KM23-2S-3003.2");
}

TEST_F(MotorDialogTest, OnlyATouchedLoadCountsAsConfirmed) {
  for (const bool touched : {false, true}) {
    main.InertiaSet = false;
    Open();
    dialog.MotorList.Select(2);
    if (touched) dialog.txtInertiaRatio.Type("4");
    dialog.OK.Click();
    EXPECT_EQ(main.InertiaSet, touched);
  }
}

TEST_F(MotorDialogTest, TransfersBesideAnOpenDialogCommitItOrLeaveWhatIsTyped) {
  main.InertiaSet = true;
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
  EXPECT_TRUE(settings.IdleDelay == 3 && settings.IdlePercent == 70);
}

TEST(MotorDialogAlone, HelpButtonsOpenTheirPagesOrAreGrey) {
  Scene scene;
  MotorDialog& dialog = scene.program.MotorSetup;
  std::string pages;
  dialog.ShowHelp = [&](const std::string& page) { pages += page + " "; };
  scene.program.CustomMotorSetup.ShowHelp = nullptr;
  scene.program.CustomMotorSetup.Open();
  for (Button* button : {&dialog.Help, &dialog.Wiring, &dialog.MoreOrLess}) button->Click();
  EXPECT_EQ(pages, "ConfigSoftware_Motor.html Connecting_the_Motor.html ");
  EXPECT_FALSE(scene.program.CustomMotorSetup.Help.Enabled());
  EXPECT_TRUE(dialog.MoreOrLess.Caption() == "Less" && dialog.OtherMore.Visible());
}

// Once the least current of a scroll and a limit below it chased each other without end.
TEST(MotorDialogAlone, FirstMotorOfVeryLowCurrentStartsTheProgram) {
  Scene scene;
  scene.table.AddMotor("AAA", 0.2, 10, 10);
  scene.Start();
  EXPECT_EQ(scene.program.MotorSetup.txtDriveCurrent.Text(), "0.50");
}

struct EditMotorTest : MotorWindows {
  EditMotorTest() { OpenEditor(); }
  std::string Texts() const {
    return Shown(editor,
                 "txtMotorName txtRatedCurrent txtRatedTorque TorqueUnit txtRotorInertia JUnits txtR "
                 "txtL txtMaxVolts txtDeg txtRPS Gain Phase");
  }
};

TEST_F(EditMotorTest, OpeningShowsTheCustomMotorUnlessItStandsOpen) {
  const std::string start = "custom motor|2|118|oz in|300|g cm2|3.6|10|94|120|25|0|0|";
  EXPECT_EQ(editor.FocusedControl(), &editor.txtMotorName);
  EXPECT_EQ(Shown(editor, "SliderMaxVolts SliderGain SliderPhase"), "94|0|0|");
  for (TextBox* left : {&editor.txtMaxVolts, &editor.Gain, &editor.Phase, &editor.txtR}) {
    EXPECT_EQ(Texts(), start) << left->Name();
    left->Type("51.5");
    dialog.DefineNewMotor.Click();
    EXPECT_EQ(left->Text(), "51.5");
    editor.RequestClose();
    if (left != &editor.txtR) dialog.DefineNewMotor.Click();
  }
  settings.TorqueUnit = 17, settings.InertiaUnit = -1;
  settings.HarmonicGain = 8000, settings.MotorR = 0;
  dialog.DefineNewMotor.Click();
  EXPECT_EQ(Texts(), "custom motor|2|118|N m|300|kg m2|0|10|94|120|25|8000|0|");
}

TEST_F(EditMotorTest, TypedNumbersAreCleanedAndSlidersWriteTheirTexts) {
  const std::tuple<TextBox*, const char*, const char*> typed[] = {
      {&editor.txtR, "321", "320"},          {&editor.txtL, "-1", "0.1"},    {&editor.txtMaxVolts, "9", "10"},
      {&editor.txtMaxVolts, "101", "100"},   {&editor.txtDeg, "361", "360"}, {&editor.txtRPS, "4", "5"},
      {&editor.txtRPS, "101", "100"},        {&editor.Gain, "-1", "0"},      {&editor.Phase, "-129", "-128"},
      {&editor.Phase, "129", "128"},         {&editor.txtR, "0", "0.1"},     {&editor.txtL, "999", "320"},
      {&editor.txtMaxVolts, "55.5", "55.5"}, {&editor.txtDeg, "", "45"},     {&editor.txtRPS, "12abc", "12"},
      {&editor.Gain, "99999", "10000"},      {&editor.Phase, "-9", "-9"},    {&editor.Gain, "5000", "5000"},
      {&editor.txtRatedCurrent, "x", "x"}};
  for (const auto& [box, text, cleaned] : typed) {
    box->Type(text);
    editor.txtMotorName.Focus();
    EXPECT_EQ(box->Text(), cleaned) << text;
  }
  EXPECT_EQ(Shown(editor, "SliderGain SliderPhase SliderMaxVolts"), "3000|-9|94|");
  editor.SliderGain.Scroll(120);
  editor.SliderPhase.Scroll(-7);
  editor.SliderMaxVolts.Scroll(80);
  EXPECT_EQ(Shown(editor, "Gain Phase txtMaxVolts"), "120|-7|80|");
}

TEST_F(EditMotorTest, OkWritesTheSettingsAndTheMotorDialogsLabelsForGood) {
  Settings expected = settings;
  static_cast<MotorRecord&>(expected) = {20, 1.50, 7, 55.5, 1.25, 2, " my motor ", 70, -8, 4, 3, 46, 6};
  const std::pair<TextBox&, const char*> typed[] = {{editor.txtRatedCurrent, "20.0"},
                                                    {editor.txtRatedTorque, "1.50"},
                                                    {editor.txtRotorInertia, "7"},
                                                    {editor.txtMaxVolts, "55.5"},
                                                    {editor.txtR, "1.25"},
                                                    {editor.txtL, "2"},
                                                    {editor.Gain, "70"},
                                                    {editor.txtMotorName, " my motor "},
                                                    {editor.Phase, "-8"},
                                                    {editor.txtDeg, "45.6"},
                                                    {editor.txtRPS, "5.5"}};
  for (const auto& [box, text] : typed) box.Type(text);
  editor.TorqueUnit.Select(4);
  editor.JUnits.Select(3);
  dialog.RequestClose();
  editor.OK.Click();
  EXPECT_EQ(settings, expected);
  EXPECT_TRUE(main.Modified && !editor.Visible());
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
  int opened = 0;
  editor.OpenWizard = [&] { ++opened; };
  for (const auto& [revision, letter, opens] : cases) {
    main.DspRev = revision;
    main.MinorRev = letter;
    if (!opens) scene.desktop.Expect({.textPart = "You must have firmware version 1.00k or later"});
    const int before = opened;
    editor.Wizard.Click();
    EXPECT_EQ(opened, before + (opens ? 1 : 0)) << revision << letter;
  }
  editor.OpenWizard = nullptr;
  editor.Wizard.Click();
}

}  // namespace
}  // namespace kavr6
