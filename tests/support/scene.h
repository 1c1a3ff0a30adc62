// The whole program in virtual time, with a simulated drive on COM1.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "core/program/configurator.h"
#include "motor/small_catalogue.h"
#include "platform/headless/collected_print.h"
#include "platform/headless/memory_files.h"
#include "simulator/simulated_drive.h"
#include "tests/support/watched.h"

namespace kavr6 {

/// Everything a test of the whole program needs. COM1 has a KAVR6-Bx with firmware 1.52k behind it.
struct Scene {
  WatchedDesktop desktop;
  SimulatedDrive drive{desktop.Line()};
  WatchedComm comm{desktop, desktop.Line()};
  MemoryTable table = CatalogueTable();
  MemoryFiles files;
  CollectedPrint print;
  Configurator program{{desktop, comm, table, files, print}};
  DriveState& state = program.state;
  MainForm& main = program.Main;
  Settings& settings = program.settings;

  Scene() {
    drive.SetIdentity(52, 41, 'k');
    comm.Connect(1, &drive);
  }

  /// Starts the program and forgets what was written to the line meanwhile.
  void Start() {
    program.Start();
    comm.ForgetWritten();
  }

  /// All windows of the program.
  std::vector<Form*> Forms() {
    Summary& list = program.Commands;
    TEQhelp& servo = list.ServoCommands;
    return {&program.Splash,
            &main,
            &program.MotorSetup,
            &program.CustomMotorSetup,
            &program.ModeMenu,
            &program.PulseDirSetup,
            &program.VelocitySetup,
            &program.AdvancedSetup,
            &program.VTLSetup,
            &program.IOSetup,
            &program.EncoderSetup,
            &program.RegenSetup,
            &program.LastAlarms,
            &program.FaultPopup,
            &program.MotorTest,
            &program.StatusMonitor,
            &program.SmoothingWizard,
            &program.Credits,
            &program.Help,
            &program.LastEvents,
            &program.Compared,
            &program.Terminal,
            &list,
            &list.EFcodes,
            &list.LimCodes,
            &list.IOcodes,
            &list.RScodes,
            &list.MRcodes,
            &list.BRcodes,
            &list.ServoCommands,
            &servo.ControlModes,
            &servo.DefCodes,
            &list.MoveCalculator};
  }

  /// What must hold whenever the program is at rest.
  void ExpectCalm() const {
    desktop.CheckNothingLeft();
    EXPECT_EQ(comm.RThreshold(), 1);
    EXPECT_EQ(main.ProgBar.FloodPercent(), 0);
    EXPECT_FALSE(state.CommandActive);
  }
};

/// A test on a started scene.
struct SceneTest : testing::Test {
  SceneTest() { scene.Start(); }
  void TearDown() override { scene.ExpectCalm(); }
  Scene scene;
  DriveState& state = scene.state;
  MainForm& main = scene.main;
  Settings& settings = scene.settings;
  Configurator& program = scene.program;
};

}  // namespace kavr6
