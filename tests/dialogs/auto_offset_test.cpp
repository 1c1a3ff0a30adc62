#include <tuple>

#include <gtest/gtest.h>

#include "dialogs/advanced_settings.h"
#include "link/receive_path.h"
#include "platform/headless/headless_desktop.h"
#include "tests/support/scene.h"
#include "tests/support/scripted_comm.h"

namespace kavr6 {
namespace {

using namespace std::string_literals;

const MessageBox kMakeSure{.text = "Make sure analog input to drive is set for zero.",
                           .buttons = BoxButtons::OkCancel};
const MessageBox kNoResponse{
    .text = "The drive is not responding.  Is it connected to the right port and turned on?"};

/// The dialog on a line whose far end follows a script.
struct OffsetBench {
  HeadlessDesktop desktop;
  Form main{desktop, "MainForm"};
  ScriptedComm comm{desktop};
  DriveState state;
  DriveLine line{state, comm, desktop, desktop};
  ReceivePath receive{line};
  Settings settings;
  VelocityDialog velocity{{main, state, settings}};
  AdvancedSettings dialog{{main, state, settings}, velocity, line};

  OffsetBench() {
    InitVars(settings);
    state.DspRev = 1.52F;
    state.MinorRev = "k";
    comm.SetPortOpen(true);
    comm.SetRThreshold(1);
    velocity.Open();
    dialog.Open();
    dialog.txtCmdOffset.Type("7");
    desktop.AnswerAnything();
  }
  /// Clicks and checks the outcome; an offset of "7" is one that has not been measured.
  void Measure(const std::string& offset, const std::string& what) {
    const bool measured = offset != "7";
    dialog.AutoOffset.Click();
    EXPECT_TRUE(desktop.Boxes().front() == kMakeSure) << what;
    EXPECT_EQ(desktop.Boxes().back() == kNoResponse, !measured) << what;
    EXPECT_EQ(dialog.txtCmdOffset.Text(), offset) << what;
    EXPECT_EQ(state.Modified, measured) << what;
    EXPECT_TRUE(comm.RThreshold() == 1 && !state.CommandActive) << what;
    EXPECT_EQ(comm.TakeWritten(), what == "port closed" ? "" : "O4071") << what;
    Delay(desktop, 2.0);
  }
};

TEST(AutoOffset, CommandFollowsTheFirmware) {
  const std::tuple<int, const char*, const char*> cases[] = {
      {0, "j", "O"},     {0, "k", "O4071"}, {0, "\u00E9", "O4071"}, {0, "", "O"},  {1, "A", "O"},
      {1, "B", "O4071"}, {1, "a", "O4071"}, {52, "A", "O4071"},     {52, "", "O"}, {52, "kk", "O"}};
  for (const auto& [revision, letter, command] : cases)
    EXPECT_EQ(OffsetCommand(RevisionOf(revision), letter), command) << revision << letter;
}

TEST(AutoOffset, ReplyWithinHalfASecondIsTheOffset) {
  using Row = std::tuple<std::string, double, const char*>;
  const Row cases[] = {
      {"\x10\x01", 0.01, "2048.5"},  {"\xFF\xFD", 0.01, "-1.5"},   {"\x80\x00"s, 0.01, "-16384"},
      {"\x7F\xFF", 0.01, "16383.5"}, {"\x00\x02more"s, 0.01, "1"}, {"\x00\x02"s, 0.5, "1"},
      {"\x00\x02"s, 0.5001, "7"},    {"\x02", 0.01, "7"},          {"", 0.01, "7"}};
  for (const auto& [reply, after, offset] : cases) {
    OffsetBench bench;
    bench.comm.Feed("xx");  // left over from before
    bench.comm.Reply("O4071", reply, after);
    const auto probe = [&bench] { EXPECT_TRUE(bench.state.CommandActive && bench.comm.RThreshold() == 0); };
    bench.desktop.CallAfter(0.005, probe);
    bench.Measure(offset, reply);
  }
}

TEST(AutoOffset, WhatComesInBetweenLeavesTheLineInOrder) {
  const std::tuple<const char*, const char*, void (*)(OffsetBench&)> cases[] = {
      {"port closed", "7", [](OffsetBench& b) { b.comm.SetPortOpen(false); }},
      {"hang-up", "7", [](OffsetBench& b) { b.comm.Unplug(); }},
      {"second click", "129", [](OffsetBench& b) { b.dialog.AutoOffset.Click(); }},
      {"dialogs closed", "129", [](OffsetBench& b) { b.dialog.Cancel.Click(), b.velocity.Cancel.Click(); }},
      {"other box", "7", [](OffsetBench& b) {
         b.desktop.Expect({.whole = MessageBox{.text = "other"}, .after = 1.0});
         b.desktop.Ask({.text = "other"});
       }}};
  for (const auto& [what, offset, disturb] : cases) {
    OffsetBench bench;
    bench.comm.Reply("O4071", "\x01\x02", 0.2);
    const double when = what == "port closed"s ? 0.0 : 0.1;
    bench.desktop.CallAfter(when, [&bench, disturb = disturb] { disturb(bench); });
    if (when == 0) bench.desktop.PumpEvents();
    bench.Measure(offset, what);
  }
  OffsetBench bench;
  bench.desktop.Expect(kMakeSure, BoxAnswer::Cancel);
  bench.dialog.AutoOffset.Click();
  EXPECT_TRUE(bench.comm.TakeWritten().empty() && !bench.state.Modified);
}

TEST(AutoOffset, MeasuredOffsetIsCleanedOnlyWhenTheFieldIsLeft) {
  for (const bool left : {false, true}) {
    OffsetBench bench;
    bench.comm.Reply("O4071", "\x80\x00"s);
    bench.Measure("-16384", "least");
    if (left) bench.dialog.txtCmdOffset.Focus();
    bench.dialog.OK.Click();
    EXPECT_EQ(bench.velocity.PendingOffset, left ? -10000 : -16384);
    bench.velocity.Cancel.Click();
    EXPECT_TRUE(bench.state.Modified && bench.settings.CmdOffset == 0);
  }
}

TEST(AutoOffset, DriveAnswersOnceItIsKnownAndIsHeardAgainAfterwards) {
  for (const bool known : {false, true}) {
    Scene scene;
    scene.Start();
    scene.settings.AnalogVelocity = true;
    scene.program.state.InertiaSet = true;
    if (known) scene.main.Download.Click();
    scene.program.VelocitySetup.Open();
    scene.program.VelocitySetup.Advanced.Click();
    scene.desktop.Expect(kMakeSure);
    // Before its firmware letter is known the drive is not given the code that it wants.
    if (!known) scene.desktop.Expect(kNoResponse);
    scene.program.AdvancedSetup.AutoOffset.Click();
    EXPECT_EQ(scene.program.AdvancedSetup.txtCmdOffset.Text(), known ? "-12.5" : "0");
    Delay(scene.desktop, 1.0);
    scene.main.Download.Click();
    EXPECT_FALSE(scene.program.state.Modified);
    scene.ExpectCalm();
  }
}

}  // namespace
}  // namespace kavr6
