#include "tools/live_tool.h"

#include <utility>

#include "link/wire.h"

namespace kavr6 {
namespace {

constexpr int kSilencePeriod = 1000;  // milliseconds
constexpr double kTolerance = 0.25;   // seconds by which a full one may be missed

}  // namespace

LiveTool::LiveTool(const DriveLine& line, Desktop& desktop, std::string name)
    : Form(desktop, std::move(name)), line_(line) {
  SilenceClock.SetEnabled(false);
  SilenceClock.SetInterval(kSilencePeriod);
  SilenceClock.Tick.Set([this] { ShowSilence(); });
}

void LiveTool::Take(std::uint8_t byte) {
  Hear(std::span(&byte, 1));
  ProcessChar(byte);
}

void LiveTool::Hear(std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return;
  NothingDue();
  line_.state.Drive.Heard();
  for (const std::uint8_t byte : bytes) alarms_.Take(byte, line_.state.Drive);
}

void LiveTool::TakeLine() {
  line_.state.LiveToolActive = true;
  line_.state.Drive.TextSessionBegins();
}

void LiveTool::LetGo() {
  line_.state.LiveToolActive = false;
  line_.state.Drive.TextSessionEnds();
  alarms_.Forget();
  NothingDue();
}

void LiveTool::LeaveLine() {
  if (Visible() && line_.state.LiveToolActive) GiveBack();
}

void LiveTool::Send(std::string_view letters) { line_.comm.Output(std::string(letters) + kReturn); }

void LiveTool::Change(std::string_view letters) {
  line_.state.Drive.ForgetImage();
  Send(letters);
}

void LiveTool::AnswerDue(double since) {
  // What was asked before the port was opened anew will never be answered.
  const bool lost = std::exchange(dueOpenings_, line_.comm.Openings()) != line_.comm.Openings();
  if (SilenceClock.Enabled() && !lost) return;
  dueSince_ = since;
  SilenceClock.SetEnabled(false);
  SilenceClock.SetEnabled(true);
}

void LiveTool::NothingDue() {
  SilenceClock.SetEnabled(false);
  Silence.SetCaption("");
}

void LiveTool::ShowSilence() {
  if (line_.comm.PortOpen() && line_.comm.Openings() == dueOpenings_) line_.state.Drive.NoAnswer();
  const auto seconds = static_cast<long>(Desk().Now() - dueSince_ + kTolerance);
  Silence.SetCaption(line_.comm.PortOpen()
                         ? "No answer from the drive since " + std::to_string(seconds) + " s"
                         : "No port is open");
}

}  // namespace kavr6
