// A main screen with an open port, on virtual time.
#pragma once

#include <gtest/gtest.h>

#include "core/drive_models.h"
#include "core/main_screen.h"
#include "link/receive_path.h"
#include "platform/headless_desktop.h"
#include "tests/support/scripted_comm.h"

namespace kavr6 {

struct LinkScene {
  LinkScene() {
    for (const DriveModel& model : kDriveModels) screen.ModelList.AddItem(std::string(model.name));
    screen.ModelList.SetListIndex(1);
    comm.SetPortOpen(true);
    comm.SetRThreshold(1);
    path.ServoError152 = [this](int word) { alarms.push_back(word); };
  }

  HeadlessDesktop desktop;
  MainScreen screen{desktop};
  ScriptedComm comm{desktop};
  ReceivePath path{screen, comm};
  std::vector<int> alarms;
};

class LinkTest : public testing::Test, protected LinkScene {
 protected:
  void TearDown() override { EXPECT_NO_THROW(desktop.CheckNothingLeft()); }
};

}  // namespace kavr6
