#include "simulator/simulated_comm.h"

#include <utility>

namespace kavr6 {

SimulatedComm::SimulatedComm(Scheduler& program, LineScheduler& line)
    : MSComm(program), time_(line), line_(line) {
  line_.ToTool = [this](std::uint8_t byte) { Gather(byte); };
  line_.HungUp = [this] { Unplug(); };
}

void SimulatedComm::Gather(std::uint8_t byte) {
  gathered_.push_back(byte);
  if (latency_ == 0.0) {
    HandOver();
  } else if (gathered_.size() == 1) {
    handOver_ = time_.CallAfter(latency_, [this] { HandOver(); });
  }
}

void SimulatedComm::HandOver() {
  time_.Cancel(handOver_);
  HandOut(std::exchange(gathered_, {}));
}

void SimulatedComm::Unplug() {
  // The port may learn of it later.
  DropLine();
  LineLost();
}

void SimulatedComm::Connect(int port, SimulatedDrive* drive) {
  ports_[port] = {drive};
  if (port == openPort_) line_.Connect(drive);
}

void SimulatedComm::Refuse(int port, const std::string& reason, int error) {
  ports_[port].refusal = RuntimeError(error, reason);
}

std::string SimulatedComm::DeviceName(int number) const {
  return ports_.contains(number) ? "simulated port " + std::to_string(number) : std::string();
}

void SimulatedComm::OpenDevice(int number) {
  const auto port = ports_.find(number);
  if (port == ports_.end())
    throw RuntimeError(8002, "There is no port COM" + std::to_string(number) + " on this machine");
  if (port->second.refusal) throw *port->second.refusal;
  openPort_ = number;
  line_.Connect(port->second.drive);
}

void SimulatedComm::CloseDevice() {
  openPort_ = 0;
  DropLine();
}

void SimulatedComm::DropLine() {
  time_.Cancel(handOver_);
  gathered_.clear();
  line_.Connect(nullptr);
}

void SimulatedComm::Send(std::span<const std::uint8_t> bytes) {
  written_.append(bytes.begin(), bytes.end());
  line_.FromTool(bytes);
}

}  // namespace kavr6
