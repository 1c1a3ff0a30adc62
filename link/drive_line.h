// The line to the drive, and the hold that a block transfer keeps on it.
#pragma once

#include <cstdint>
#include <functional>

#include "core/drive_state.h"
#include "platform/event_pump.h"
#include "platform/message_box.h"
#include "platform/mscomm.h"

namespace kavr6 {

/// What every exchange with the drive works on; all of it outlives whoever has been handed it.
struct DriveLine {
  DriveState& state;
  MSComm& comm;
  EventPump& pump;
  Boxes& boxes;
};

inline bool NoCommPort(const MSComm& comm) { return !comm.PortOpen(); }

/// A question on the line, from just before it is written until its answer has come in GlobalBuffer or is
/// given up.
class Asked {
 public:
  explicit Asked(const DriveLine& line)
      : line_(line), openings_(line.comm.Openings()), words_(line.state.Drive.Words()) {}
  /// What comes can be the answer: the port is open and has not been opened anew since, and neither a block
  /// transfer nor a live tool takes it.
  bool Undisturbed() const;
  /// No answer has come in time. The drive is silent then, unless the answer could not have come, or the
  /// drive has said something else.
  void TellNoAnswer() const;

 private:
  const DriveLine& line_;
  int openings_;
  int words_;
};

/// Send one or two bytes in one write. With the port closed they do nothing.
void WriteByte(MSComm& comm, std::uint8_t byte);
void Write2Bytes(MSComm& comm, std::uint8_t first, std::uint8_t second);

/// The pause before an exchange, where CommandPause asks for it.
void PauseBeforeCommand(const DriveLine& line);

/// While it lives, the bytes that come in belong to its owner: CommandActive is raised, what was waiting is
/// dropped, and fewer than `threshold` bytes reach nobody else; with 0 none do. At its end, on every way out,
/// RThreshold is 1 again, Progress 0 and CommandActive lowered.
class LineHold {
 public:
  LineHold(const DriveLine& line, int threshold);
  LineHold(const LineHold&) = delete;
  LineHold& operator=(const LineHold&) = delete;
  ~LineHold();

  /// Lets events run until that many bytes wait at the port, for `limit` seconds at most; `onNews` is told
  /// how many wait, at first and whenever that changes. True when they were there in time.
  bool Await(int count, double limit, const std::function<void(int)>& onNews = {});
  /// Lets others hear the line again before the hold ends: RThreshold is 1 and Progress 0.
  void Release();
  /// The port has been opened anew since the hold began. What is left of a block that was under way means
  /// something else to whoever listens now, and what comes from there is no answer to it.
  bool Broken() const { return line_.comm.Openings() != openings_; }
  /// As Asked, for what the owner has asked for. A part of an answer is no silence.
  void TellNoAnswer() const;
  /// Takes all that waits.
  Bytes Read() { return line_.comm.Input(); }

 private:
  DriveLine line_;
  int openings_;
  int words_;
};

}  // namespace kavr6
