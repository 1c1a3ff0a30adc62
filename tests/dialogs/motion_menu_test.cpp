#include <array>
#include <tuple>

#include "tests/dialogs/setup_dialogs.h"

namespace kavr6 {
namespace {

using MotionMenuTest = SetupDialogs;

using Row = std::tuple<Long, Long, const char*, const char*, const char*, const char*>;
/// OpMode, ControlMode; the focus with the common modes, with Wy programs too, and with both programs; the
/// dialog that Shift leads to.
const Row kModes[] = {{1, 21, "VTLmode", "VTLmode", "ZuProgram", ""},
                      {2, 21, "VTLmode", "VTLmode", "VTLmode", "VTL Configuration"},
                      {5, 11, "VTLmode", "VTLmode", "VTLmode", "VTL Configuration"},
                      {3, 7, "PulseDirMode", "PulseDirMode", "PulseDirMode", "Pulse & Direction Control"},
                      {3, 11, "VelocityMode", "VelocityMode", "VelocityMode", "Velocity Control Mode"},
                      {3, 99, "PulseDirMode", "PulseDirMode", "PulseDirMode", "Pulse & Direction Control"},
                      {4, 7, "HubProg", "HubProg", "HubProg", ""},
                      {7, 21, "VTLmode", "WyProgram", "WyProgram", "Wy Configuration"},
                      {0, 7, "Cancel", "Cancel", "Cancel", ""},
                      {6, 11, "Cancel", "Cancel", "Cancel", ""}};

TEST_F(MotionMenuTest, OffersWhatTheModelCanDoAndPutsTheFocusOnThePresentMode) {
  const char* const programs[] = {"", "WyProgram ", "WyProgram ZuProgram "};
  const std::string common = "PulseDirMode VelocityMode VTLmode HubProg Cancel ";
  for (int model = -1; model < 6; ++model) {
    const int kind = model < 0 ? 0 : model % 3;
    for (const auto& [op, control, plain, wy, zu, dialog] : kModes) {
      main.Motion.Click();
      menu.Cancel.Focus();
      scene.desktop.BroughtToFront(main);  // the menu stands open behind it
      state.ModelIndex = model;
      settings.OpMode = op;
      settings.ControlMode = control;
      main.Motion.Click();
      EXPECT_EQ(Which(menu, common + programs[2], &Control::Enabled), common + programs[kind]) << model;
      EXPECT_EQ(menu.FocusedControl()->Name(), (std::array{plain, wy, zu}[kind])) << model << ' ' << op;
      menu.Cancel.Click();
      scene.desktop.SetShift(true);
      main.Motion.Click();
      scene.desktop.SetShift(false);
      const Form& front = *scene.desktop.ShownForms().back();
      EXPECT_EQ(&front == &main ? "" : front.Caption(), dialog) << op;
      for (Form* form : std::vector<Form*>{&pulse, &velocity, &vtl}) form->Hide();
      EXPECT_TRUE(settings.OpMode == op && settings.ControlMode == control && !state.Modified);
    }
  }
}

TEST_F(MotionMenuTest, EachButtonHidesTheMenuAndOpensItsDialogOrSetsItsMode) {
  main.ModelList.SetListIndex(2);
  const std::tuple<Button*, std::string, Long> cases[] = {
      {&menu.PulseDirMode, "Pulse & Direction Control", 99},
      {&menu.VelocityMode, "Velocity Control Mode", 99},
      {&menu.VTLmode, "VTL Configuration", 99},
      {&menu.ZuProgram, "Mode: Zu Program", 1},
      {&menu.HubProg, "Mode: Zulink Hub", 4},
      {&menu.Cancel, "before", 99}};
  for (const auto& [button, words, op] : cases) {
    InitVars(settings);
    settings.OpMode = 99;
    main.Summary.SetText(kMotionRow, 0, "before");
    Settings expected = settings;
    expected.OpMode = op;
    if (op == 1) expected.ControlMode = 21, expected.StepsPerRev = 20000;
    main.Motion.Click();
    button->Click();
    Form& front = *scene.desktop.ShownForms().back();
    EXPECT_EQ(&front == &main ? main.Summary.Text(kMotionRow, 0) : front.Caption(), words);
    EXPECT_TRUE(settings == expected && !state.Modified && !menu.Visible()) << words;
    if (&front != &main) front.RequestClose();
  }
}

TEST_F(MotionMenuTest, OneDialogServesBothHostModesAndKeepsTheOneItWasOpenedFor) {
  main.ModelList.SetListIndex(2);
  Do(main, "Motion");
  Do(menu, "VTLmode");
  vtl.txtTxDelay.Type("7");
  Do(main, "Motion");
  Do(menu, "VTLmode");
  EXPECT_EQ(vtl.txtTxDelay.Text(), "7");
  Do(main, "Motion");
  Do(menu, "WyProgram");
  EXPECT_EQ(vtl.txtTxDelay.Text(), "0");
  vtl.OK.Click();
  EXPECT_EQ(std::tuple(settings.OpMode, settings.ControlMode), std::tuple(7, 21));
  EXPECT_EQ(main.Summary.Text(kMotionRow, 0), "Mode: Wy Program");
  settings.OpMode = 5;
  scene.desktop.SetShift(true);
  main.Motion.Click();
  vtl.OK.Click();
  EXPECT_EQ(settings.OpMode, 2);
  EXPECT_TRUE(state.Modified);
}

}  // namespace
}  // namespace kavr6
