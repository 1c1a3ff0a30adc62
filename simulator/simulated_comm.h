// The tool's end of a simulated serial line.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/mscomm.h"
#include "platform/runtime_error.h"
#include "simulator/simulated_drive.h"
#include "simulator/simulated_line.h"

namespace kavr6 {

/// Serial ports 1 to 8 of a machine, some with a drive behind them. Bytes travel at line speed in both
/// directions. Closing the port or hanging up drops what is on the way.
class SimulatedComm : public MSComm {
 public:
  /// `program` delivers notifications, `line` carries the bytes.
  SimulatedComm(Scheduler& program, LineScheduler& line);
  ~SimulatedComm() override { time_.Cancel(handOver_); }

  /// Puts a drive behind a port; while the port is open the drive's Transmit is taken over. Null leaves a
  /// port that opens with nothing behind it. Ports never named cannot be opened. A connected drive must be
  /// there whenever a port is opened or closed.
  void Connect(int port, SimulatedDrive* drive);
  /// The port exists and cannot be opened, with this text; Connect lifts that.
  void Refuse(int port, const std::string& reason, int error = kInUse);

  /// Of each direction the fault armed last counts.
  void Arm(const FaultAt& fault) { line_.Arm(fault); }
  void ClearFault() { line_.ClearFaults(); }
  /// All bytes that the tool has written, in order, over all ports.
  const std::string& Written() const { return written_; }
  void ForgetWritten() { written_.clear(); }
  /// The adapter gathers what comes in for this long, in seconds, and hands it over in one piece.
  void SetLatency(double seconds) { latency_ = seconds; }
  /// The adapter of the port in use is pulled out of the machine: its port is no longer there.
  void Unplug();
  /// All adapters that have been pulled out are put back.
  void Plug();
  /// An adapter that is there hangs up, as when what it is a part of starts again.
  void HangUp();

  std::string DeviceName(int number) const override;
  PortLook Look(int number) const override;
  bool DeviceBack(int number) const override;
  std::unique_ptr<DeviceWatch> WatchDevices(DeviceNews news, std::function<void()> told) override;

 protected:
  void OpenDevice(int number) override;
  void CloseDevice() override;
  void Send(std::span<const std::uint8_t> bytes) override;
  void Block(const std::function<bool()>& done, double limit) override { time_.Block(done, limit); }
  /// Bytes leave the adapter towards the program.
  virtual void HandOut(const Bytes& bytes) { Arrived(bytes); }

 private:
  struct Port {
    SimulatedDrive* drive = nullptr;
    std::optional<RuntimeError> refusal = {};
    bool there = true;
  };
  struct Watch;
  void TellWatches(DeviceNews news);

  void Gather(std::uint8_t byte);
  void HandOver();
  void DropLine();

  Scheduler& program_;
  LineScheduler& time_;
  std::vector<Watch*> watches_;  // in the order in which they were asked for
  double latency_ = 0.0;
  Bytes gathered_;
  Scheduler::TaskId handOver_ = 0;
  std::map<int, Port> ports_;
  SimulatedLine line_;
  int openPort_ = 0;
  std::string written_;
};

}  // namespace kavr6
