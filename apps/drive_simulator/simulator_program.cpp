#include "apps/drive_simulator/simulator_program.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <utility>

#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include "apps/drive_simulator/image_file.h"
#include "apps/drive_simulator/trace.h"

namespace kavr6 {
namespace {

// Beyond this the bytes stay in the terminal, whose buffer then holds the writer up.
constexpr std::size_t kLargestBacklog = 4096;

/// Signals that end the program, as something to read. A hang-up that the parent has switched off stays off.
int OpenSignals() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGTERM);
  sigaddset(&set, SIGINT);
  struct sigaction hangUp {};
  sigaction(SIGHUP, nullptr, &hangUp);
  if (hangUp.sa_handler != SIG_IGN) sigaddset(&set, SIGHUP);
  sigprocmask(SIG_BLOCK, &set, nullptr);
  signal(SIGPIPE, SIG_IGN);
  signal(SIGTTIN, SIG_IGN);  // orders cannot be read in the background of a terminal; the drive still runs
  return signalfd(-1, &set, SFD_CLOEXEC);
}

timespec ToTimespec(double seconds) {
  const double whole = std::floor(seconds);
  return {static_cast<time_t>(whole), static_cast<long>((seconds - whole) * 1e9)};
}

const std::pair<const char*, LineFault> kFaultNames[] = {
    {"lost", LineFault::Lost},         {"doubled", LineFault::Doubled}, {"flipped", LineFault::Flipped},
    {"inserted", LineFault::Inserted}, {"late", LineFault::Late},       {"silence", LineFault::Silence},
    {"swapped", LineFault::Swapped},   {"hangup", LineFault::HangUp},   {"restart", LineFault::Restart},
};

LineFault FaultOf(const std::string& name) {
  for (const auto& [known, fault] : kFaultNames)
    if (name == known) return fault;
  throw std::runtime_error("no fault '" + name + "'");
}

FaultAt::Direction DirectionOf(const std::string& name) {
  if (name == "drive") return FaultAt::Direction::ToDrive;
  if (name == "tool") return FaultAt::Direction::ToTool;
  throw std::runtime_error("a fault is on the way to the drive or to the tool, not to '" + name + "'");
}

}  // namespace

SimulatorProgram::SimulatorProgram(const SimulatorOptions& options)
    : options_(options),
      drive_(scheduler_),
      line_(scheduler_),
      port_(options.directory / "ports" / options.port),
      signals_(OpenSignals()) {
  SetUpDrive();
  SetUpLine();
  AddEventOrders();
  AddWiringOrders();
  AddMisbehaviourOrders();
  AddLineOrders();
}

void SimulatorProgram::SetUpDrive() {
  drive_.SetIdentity(options_.revisionByte, options_.modelCode, options_.letter);
  if (!options_.quiet) {
    drive_.Observe = [this](const DriveEvent& event) {
      if (!event.query || options_.queries) Print(Describe(event));
    };
  }
  if (!options_.imageFile) return;
  if (const auto image = LoadImageFile(*options_.imageFile)) drive_.StoreImage(*image);
  drive_.ImageChanged = [this] {
    try {
      SaveImageFile(*options_.imageFile, drive_.StoredImage());
    } catch (const std::runtime_error& error) {
      Print(error.what());
    }
  };
}

void SimulatorProgram::SetUpLine() {
  line_.ToTool = [this](std::uint8_t byte) { port_.Write(byte); };
  line_.HungUp = [this] { Unplug(); };
  if (options_.unpaced) {
    line_.SetByteTime(0.0);
    drive_.SetByteTime(0.0);
  }
}

void SimulatorProgram::AddEventOrders() {
  using Words = Orders::Words;
  orders_.Add("alarm", "HEX", "raise this alarm word", 1,
              [this](const Words& w) { drive_.RaiseAlarm(Number(w[0], 16, 0xFFFF)); });
  orders_.Add("restart", "", "switch the drive off and on", 0, [this](const Words&) { drive_.Restart(); });
  orders_.Add("revision", "", "send a revision message", 0,
              [this](const Words&) { drive_.ReportRevision(); });
  orders_.Add("send", "HEX", "send these bytes, two digits each, as they are", 1, [this](const Words& w) {
    if (w[0].size() % 2 != 0) throw std::runtime_error("a byte is two digits");
    std::string bytes;
    for (std::size_t i = 0; i < w[0].size(); i += 2)
      bytes += static_cast<char>(Number(w[0].substr(i, 2), 16, 0xFF));
    drive_.SendRaw(bytes);
  });
  orders_.Add("queries", "on|off", "print what the live tools ask without end, and the answers", 1,
              [this](const Words& w) { options_.queries = OnOff(w[0]); });
  orders_.Add("quit", "", "end the program", 0, [this](const Words&) { running_ = false; });
}

void SimulatorProgram::AddWiringOrders() {
  using Words = Orders::Words;
  orders_.Add("input", "NAME low|high", "set an input, IN1 to IN8 or X0 to X7; low is closed", 2,
              [this](const Words& w) { SetInput(w[0], w[1]); });
  orders_.Add("volts", "VOLTS|auto", "set the analog input, or let it wander", 1, [this](const Words& w) {
    drive_.SetVolts(w[0] == "auto" ? std::nullopt : std::optional(Signed(w[0], 100)));
  });
  orders_.Add("encoder", "N", "set the encoder count", 1,
              [this](const Words& w) { drive_.SetEncoder(std::lround(Signed(w[0], 2e9))); });
  orders_.Add("stall", "on|off", "hold the motor's shaft", 1,
              [this](const Words& w) { drive_.SetStalled(OnOff(w[0])); });
}

void SimulatorProgram::SetInput(const std::string& name, const std::string& level) {
  const auto input = DriveTerminals::InputOf(name);
  if (!input) throw std::runtime_error("no input '" + name + "' among IN1 to IN8 and X0 to X7");
  if (level != "low" && level != "high") throw std::runtime_error("it is low or high, not '" + level + "'");
  drive_.SetInput(*input, level == "high");
}

void SimulatorProgram::AddMisbehaviourOrders() {
  using Words = Orders::Words;
  orders_.Add("silent", "on|off", "send nothing at all", 1,
              [this](const Words& w) { drive_.SetSilent(OnOff(w[0])); });
  orders_.Add("delay", "SECONDS", "answer this much later", 1,
              [this](const Words& w) { drive_.SetReplyDelay(Seconds(w[0])); });
  orders_.Add("refuse", "on|off", "refuse every downloaded image", 1,
              [this](const Words& w) { drive_.SetRefusing(OnOff(w[0])); });
  orders_.Add("stick", "on|off", "let no command clear the alarm", 1,
              [this](const Words& w) { drive_.SetAlarmSticking(OnOff(w[0])); });
}

void SimulatorProgram::AddLineOrders() {
  using Words = Orders::Words;
  orders_.Add("unplug", "", "hang up the line", 0, [this](const Words&) { Unplug(); });
  orders_.Add("plug", "", "put the line back, as a new terminal", 0, [this](const Words&) { Plug(); });
  std::string kinds;
  for (const auto& [name, fault] : kFaultNames) kinds += std::string(" ") + name;
  orders_.Add("fault", "drive|tool KIND N",
              "hit the Nth byte from now, counted from 0, on its way there:" + kinds, 3,
              [this](const Words& w) { ArmFault(w); });
  orders_.Add("nofault", "", "end all faults on the line", 0, [this](const Words&) { line_.ClearFaults(); });
}

void SimulatorProgram::ArmFault(const Orders::Words& words) {
  FaultAt fault;
  fault.direction = DirectionOf(words[0]);
  fault.fault = FaultOf(words[1]);
  fault.byte = Number(words[2], 10, 1'000'000);
  line_.Arm(fault);
}

void SimulatorProgram::Run() {
  prctl(PR_SET_TIMERSLACK, 1UL);  // wake up at the nanosecond asked for
  Plug();
  while (running_) {
    scheduler_.RunDue();
    if (running_) Sleep();
  }
}

void SimulatorProgram::Sleep() {
  const bool readPort = line_.Backlog() < kLargestBacklog;
  std::array<pollfd, 3> watched{{
      {readPort ? port_.Descriptor() : -1, POLLIN, 0},
      {orderInput_, POLLIN, 0},
      {signals_, POLLIN, 0},
  }};
  const double seconds = scheduler_.SecondsToNext();
  const timespec limit = seconds == kForever ? timespec{} : ToTimespec(seconds);
  if (ppoll(watched.data(), watched.size(), seconds == kForever ? nullptr : &limit, nullptr) <= 0) return;
  if (watched[0].revents != 0) ReadPort();
  if (watched[1].revents != 0) ReadOrders();
  if (watched[2].revents != 0) ReadSignal();
}

void SimulatorProgram::ReadPort() {
  const std::vector<std::uint8_t> bytes = port_.Read();
  line_.FromTool(bytes);
}

void SimulatorProgram::ReadOrders() {
  std::array<char, 4096> buffer{};
  const ssize_t count = read(orderInput_, buffer.data(), buffer.size());
  if (count <= 0) {
    orderInput_ = -1;  // the end of the orders is not the end of the drive
    return;
  }
  unfinishedOrder_.append(buffer.data(), static_cast<std::size_t>(count));
  for (std::size_t end; (end = unfinishedOrder_.find('\n')) != std::string::npos;) {
    const std::string line = unfinishedOrder_.substr(0, end);
    unfinishedOrder_.erase(0, end + 1);
    const std::string reply = orders_.Obey(line);
    if (!reply.empty()) std::cout << reply << std::endl;
  }
}

void SimulatorProgram::ReadSignal() {
  signalfd_siginfo info{};
  if (read(signals_, &info, sizeof info) == sizeof info) running_ = false;
}

void SimulatorProgram::Plug() {
  if (port_.Plugged()) return;
  port_.Plug();
  line_.Connect(&drive_);
  Print("drive " + ModelText(options_.modelCode) + " " + RevisionText(options_.revisionByte) +
        options_.letter + " at " + port_.Link().string() + " -> " + port_.Terminal());
}

void SimulatorProgram::Unplug() {
  if (!port_.Plugged()) return;
  line_.Connect(nullptr);
  port_.Unplug();
  Print("line hung up");
}

void SimulatorProgram::Print(std::string_view text) const {
  if (options_.quiet) return;
  char time[32];
  std::snprintf(time, sizeof time, "%9.3f ", scheduler_.Now());
  std::cout << time << text << std::endl;
}

}  // namespace kavr6
