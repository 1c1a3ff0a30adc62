// The main screen, an open port and the receive path: where the bytes of a fuzz target arrive.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>

#include "core/drive_state.h"
#include "fuzz/require.h"
#include "link/receive_path.h"
#include "platform/form.h"
#include "platform/headless/headless_desktop.h"
#include "platform/headless/scripted_comm.h"

namespace kavr6 {

/// With the port of that kind, which hears the line; boxes are answered.
template <class Comm = ScriptedComm>
struct LinkScene : HeadlessDesktop {
  Form main{*this, "MainForm"};
  Comm comm{*this};
  DriveState state;
  DriveLine line{state, comm, *this, *this};
  ReceivePath path{line};

  LinkScene() {
    AnswerAnything();
    comm.SetPortOpen(true);
    comm.SetRThreshold(1);
    path.FrontWindow = [this] { return ActiveFormName(); };
    main.Show();
  }
  /// The tool takes the bytes that arrive while it is in front and active.
  template <class Tool>
  void Serve(Tool& tool) {
    path.AddLiveTool(tool.Name(), [&tool](std::uint8_t byte) { tool.Take(byte); });
  }
  void RequireLineGivenBack() const {
    Require(!state.LiveToolActive && comm.RThreshold() == 1, "the line is given back");
  }
};

/// The first bytes of `rest`, as many as there are up to `count`, are taken off.
inline Bytes TakeBytes(std::span<const std::uint8_t>& rest, std::size_t count) {
  const auto taken = rest.first(std::min(count, rest.size()));
  rest = rest.subspan(taken.size());
  return {taken.begin(), taken.end()};
}

}  // namespace kavr6
