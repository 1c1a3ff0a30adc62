#include "tools/live_tool.h"

#include <cmath>
#include <utility>

namespace kavr6 {
namespace {

constexpr int kSilencePeriod = 1000;  // milliseconds

}  // namespace

LiveTool::LiveTool(const DriveLine& line, Desktop& desktop, std::string name)
    : Form(desktop, std::move(name)), line_(line) {
  SilenceClock.SetEnabled(false);
  SilenceClock.SetInterval(kSilencePeriod);
  SilenceClock.Tick.Set([this] { ShowSilence(); });
}

void LiveTool::Take(std::uint8_t byte) {
  NothingDue();
  ProcessChar(byte);
}

void LiveTool::AnswerDue(double since) {
  if (SilenceClock.Enabled()) return;
  dueSince_ = since;
  SilenceClock.SetEnabled(true);
}

void LiveTool::NothingDue() {
  SilenceClock.SetEnabled(false);
  Silence.SetCaption("");
}

void LiveTool::ShowSilence() {
  const auto seconds = std::lround(Desk().Now() - dueSince_);
  Silence.SetCaption(line_.comm.PortOpen()
                         ? "No answer from the drive since " + std::to_string(seconds) + " s"
                         : "No port is open");
}

}  // namespace kavr6
