#include "link/drive_line.h"

#include <algorithm>
#include <array>
#include <span>

namespace kavr6 {
namespace {

constexpr double kCommandPause = 0.1;  // seconds

}  // namespace

void WriteByte(MSComm& comm, std::uint8_t byte) { comm.Output(std::span(&byte, 1)); }

void Write2Bytes(MSComm& comm, std::uint8_t first, std::uint8_t second) {
  comm.Output(std::array{first, second});
}

void PauseBeforeCommand(const DriveLine& line) {
  if (line.state.CommandPause) Delay(line.pump, kCommandPause);
}

bool Asked::Undisturbed() const {
  return line_.comm.PortOpen() && line_.comm.Openings() == openings_ && line_.comm.RThreshold() == 1 &&
         !line_.state.LiveToolActive;
}

void Asked::TellNoAnswer() const {
  DriveRecord& drive = line_.state.Drive;
  Undisturbed() && drive.Words() == words_ ? drive.NoAnswer() : drive.Doubt();
}

LineHold::LineHold(const DriveLine& line, int threshold)
    : line_(line), openings_(line.comm.Openings()), words_(line.state.Drive.Words()) {
  line_.state.CommandActive = true;
  line_.comm.SetRThreshold(threshold);
  line_.comm.Input();
}

void LineHold::Release() {
  line_.comm.SetRThreshold(1);
  line_.state.Progress = 0;
}

LineHold::~LineHold() {
  Release();
  line_.state.CommandActive = false;
}

void LineHold::TellNoAnswer() const {
  DriveRecord& drive = line_.state.Drive;
  const bool couldCome = line_.comm.PortOpen() && !Broken() && !line_.state.LiveToolActive;
  const bool silent = couldCome && line_.comm.InBufferCount() == 0 && drive.Words() == words_;
  silent ? drive.NoAnswer() : drive.Doubt();
}

bool LineHold::Await(int count, double limit, const std::function<void(int)>& onNews) {
  const double deadline = line_.pump.Now() + limit;
  int waiting = 0;
  bool news = true;
  while (news) {
    waiting = line_.comm.InBufferCount();
    if (onNews) onNews(waiting);
    if (waiting >= count) break;
    news = line_.pump.PumpEventsUntil([&] { return line_.comm.InBufferCount() != waiting; },
                                      std::max(deadline - line_.pump.Now(), 0.0));
  }
  // A box or a transaction that came in between can have held this wait up beyond its limit.
  return waiting >= count && line_.pump.Now() <= deadline;
}

}  // namespace kavr6
