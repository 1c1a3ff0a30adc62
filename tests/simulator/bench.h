// One tool's port with one drive behind it, in virtual time.
#pragma once

#include <string>
#include <string_view>

#include "platform/headless_desktop.h"
#include "simulator/simulated_comm.h"

namespace kavr6 {

struct Bench {
  HeadlessDesktop desktop;
  SimulatedDrive drive{desktop};
  SimulatedComm comm{desktop};

  Bench() {
    comm.Connect(1, &drive);
    comm.SetPortOpen(true);
  }
  std::string Received() {
    const Bytes bytes = comm.Input();
    return {bytes.begin(), bytes.end()};
  }
  /// What has arrived `seconds` after these bytes were written.
  std::string Say(std::string_view bytes, double seconds = 1.0) {
    comm.Output(bytes);
    Delay(desktop, seconds);
    return Received();
  }
};

inline std::string TextOf(const SimulatedDrive::Image& image) { return {image.begin(), image.end()}; }

}  // namespace kavr6
