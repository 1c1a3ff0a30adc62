#include "simulator/simulated_comm.h"

#include <utility>

namespace kavr6 {

struct SimulatedComm::Watch : DeviceWatch {
  Watch(SimulatedComm& owner, DeviceNews wanted, std::function<void()> tell)
      : comm(owner), kind(wanted), told(std::move(tell)) {
    comm.watches_.push_back(this);
  }
  ~Watch() override {
    std::erase(comm.watches_, this);
    comm.program_.Cancel(news);
  }
  void Tell() {
    comm.program_.Cancel(news);
    news = comm.program_.Post([tell = told] { tell(); });
  }

  SimulatedComm& comm;
  DeviceNews kind;
  std::function<void()> told;
  Scheduler::TaskId news = 0;
};

SimulatedComm::SimulatedComm(Scheduler& program, LineScheduler& line)
    : MSComm(program), program_(program), time_(line), line_(line) {
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

void SimulatedComm::HangUp() {
  // The port may learn of it later.
  DropLine();
  LineLost();
}

void SimulatedComm::Unplug() {
  if (const auto port = ports_.find(CommPort()); port != ports_.end()) port->second.there = false;
  TellWatches(DeviceNews::Devices);
  HangUp();
}

void SimulatedComm::Plug() {
  for (auto& [number, port] : ports_) port.there = true;
  TellWatches(DeviceNews::Devices);
}

// News of devices are for all who ask, news of their users for some.
void SimulatedComm::TellWatches(DeviceNews news) {
  for (Watch* watch : watches_)
    if (news == DeviceNews::Devices || watch->kind == news) watch->Tell();
}

void SimulatedComm::Connect(int port, SimulatedDrive* drive) {
  ports_[port] = {drive};
  if (port == openPort_) line_.Connect(drive);
  TellWatches(DeviceNews::Devices);
}

void SimulatedComm::Refuse(int port, const std::string& reason, int error) {
  ports_[port].refusal = RuntimeError(error, reason);
  TellWatches(DeviceNews::Devices);
}

PortLook SimulatedComm::Look(int number) const {
  using enum PortLook::State;
  const auto port = ports_.find(number);
  if (port == ports_.end()) return {};
  const bool open = PortOpen() && number == openPort_;
  const auto& refusal = port->second.refusal;
  return {DeviceName(number), !port->second.there                                     ? NotThere
                              : open                                                  ? Open
                              : refusal && refusal->Number() == MSComm::kNoPermission ? NotAllowed
                              : refusal                                               ? InUse
                                                                                      : There};
}

bool SimulatedComm::DeviceBack(int number) const {
  using enum PortLook::State;
  const PortLook::State state = Look(number).state;
  return state == There || state == InUse || state == NotAllowed;
}

std::unique_ptr<DeviceWatch> SimulatedComm::WatchDevices(DeviceNews news, std::function<void()> told) {
  return std::make_unique<Watch>(*this, news, std::move(told));
}

std::string SimulatedComm::DeviceName(int number) const {
  return ports_.contains(number) ? "simulated port " + std::to_string(number) : std::string();
}

void SimulatedComm::OpenDevice(int number) {
  const auto port = ports_.find(number);
  if (port == ports_.end() || !port->second.there)
    throw RuntimeError(8002, "There is no port COM" + std::to_string(number) + " on this machine");
  if (port->second.refusal) throw *port->second.refusal;
  openPort_ = number;
  TellWatches(DeviceNews::Users);
  line_.Connect(port->second.drive);
}

void SimulatedComm::CloseDevice() {
  openPort_ = 0;
  DropLine();
  TellWatches(DeviceNews::Users);
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
