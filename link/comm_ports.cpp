#include "link/comm_ports.h"

#include <array>
#include <functional>
#include <optional>
#include <utility>

#include "link/wire.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr const char* kLineSettings = "9600,N,8,1";

/// Seconds after each refusal: who may use a device is often settled a moment after it has come.
constexpr std::array kRetryAfter{0.05, 0.1, 0.25, 0.5};
/// A device that has gone so soon after it was opened was not really back.
constexpr double kHoldsAtLeast = 1.0;  // seconds
constexpr double kOwnNews = 0.2;       // seconds behind an attempt

/// Runs a statement; gives the text of its error if it failed.
std::optional<std::string> ErrorOf(const std::function<void()>& statement) {
  try {
    statement();
    return std::nullopt;
  } catch (const RuntimeError& error) {
    return error.what();
  }
}

}  // namespace

CommPorts::CommPorts(const DriveLine& line) : line_(line), state_(line.state) {
  line_.comm.Lost.Set([this] {
    inUse_ = gone_ = true;
    AwaitDevice();
  });
}

CommPorts::~CommPorts() {
  line_.comm.Lost.Replace({});
  StopAwaiting();
}

void CommPorts::StartComm() {
  state_.StartPort = 1;
  line_.comm.SetSettings(kLineSettings);
  line_.comm.SetCommPort(state_.StartPort);
  // Whichever of these fails is tried again with the next port; those before it are not repeated.
  const std::array<std::function<void()>, 4> statements{
      [this] { line_.comm.SetPortOpen(true); },
      [this] { line_.comm.SetRThreshold(1); },
      [this] { line_.comm.SetParityReplace(""); },
      // After a search the row is news to the selection handler, which opens the same port once more.
      [this] { Select(state_.StartPort - 1); },
  };
  for (const auto& statement : statements)
    while (const auto error = ErrorOf(statement))
      if (!MoveOn(*error)) return;
  inUse_ = true;
}

bool CommPorts::MoveOn(const std::string& error) {
  if (state_.StartPort >= kPortCount) {
    line_.boxes.Ask({.text =
                         "Could not find an open comm port.  You can still edit and save programs, but drive "
                         "communication is not possible at this time.",
                     .title = "No open port"});
    state_.StartPort = 0;
    Select(0);
    return false;
  }
  line_.boxes.Ask({.text = "Error on Comm" + std::to_string(state_.StartPort) + ":  " + error +
                           ".  Will try Comm" + std::to_string(state_.StartPort + 1) + ".",
                   .icon = BoxIcon::Exclamation,
                   .title = "Communication Error"});
  ++state_.StartPort;
  line_.comm.SetCommPort(state_.StartPort);
  return true;
}

// Every statement is tried, also after one that failed.
bool CommPorts::OpenPort(int port) {
  const bool chosen = !ErrorOf([&] { line_.comm.SetCommPort(port); });
  line_.comm.SetSettings(kLineSettings);
  const bool opened = !ErrorOf([&] { line_.comm.SetPortOpen(true); });
  inUse_ = inUse_ || opened;
  if (opened) gone_ = false;
  return chosen && opened;
}

void CommPorts::Select(int row) {
  if (state_.CommIndex == row) return;
  state_.CommIndex = row;
  if (row >= 0 && row + 1 != state_.CommNumber) ChangePort(row + 1);
}

void CommPorts::ChangePort(int port) {
  StopAwaiting();
  const int old = state_.CommNumber;
  const bool oldWasOpen = line_.comm.PortOpen();
  state_.CommNumber = port;
  const bool closed = !ErrorOf([&] {
    if (line_.comm.PortOpen()) line_.comm.SetPortOpen(false);
  });
  const bool opened = OpenPort(port);
  line_.comm.Output(kPortChanged);
  if (closed && opened) return;
  TellUnavailable();
  state_.CommNumber = old;
  if (!OpenPort(old)) {
    if (oldWasOpen) state_.Happened.Tell("COM" + std::to_string(old) + " did not open again");
    AwaitDevice();  // without a box: it stays closed as long as its device stands there
  }
  Select(old - 1);
}

void CommPorts::TellUnavailable() {
  line_.boxes.Ask({.text = "COM port " + std::to_string(state_.CommNumber) + " is not available.",
                   .icon = BoxIcon::Exclamation,
                   .title = "COM Error"});
}

void CommPorts::SelectAgain() {
  if (!inUse_ || line_.comm.PortOpen()) return;
  StopAwaiting();
  if (OpenPort(state_.CommNumber)) return line_.comm.Output(kPortChanged);
  AwaitDevice();
  TellUnavailable();
}

void CommPorts::AwaitDevice() {
  if (!inUse_) return;
  // The watch outlives the return of the device: the next loss may be told after the return that follows it.
  if (!watch_)
    watch_ = line_.comm.WatchDevices(DeviceNews::Devices, [this] {
      // A refused attempt may be news by itself, of the lock file that it has made; it is repeated anyway.
      const bool own = refusedAt_ && line_.pump.Now() - *refusedAt_ < kOwnNews;
      if (own && line_.comm.DeviceBack(state_.CommNumber)) return;
      newsHeard_ = true;
      TryAnew();
    });
  // It may be back already. But one that opens and goes at once, without any news of it, is a broken one.
  const bool broken = openedWithoutNews_ >= 0 && line_.pump.Now() - openedWithoutNews_ < kHoldsAtLeast;
  if (newsHeard_ || !broken) attempt_ = line_.pump.Post([this] { TryAnew(); });
}

void CommPorts::StopAwaiting() {
  watch_.reset();
  line_.pump.Cancel(attempt_);
  newsHeard_ = false;
  openedWithoutNews_ = -1;
}

void CommPorts::TryAnew() {
  refusals_ = 0;
  Reopen();
  if (!line_.comm.PortOpen()) StillClosed.Raise();
}

void CommPorts::Reopen() {
  line_.pump.Cancel(attempt_);
  refusedAt_.reset();
  if (line_.comm.PortOpen()) return;
  const bool back = line_.comm.DeviceBack(state_.CommNumber);
  gone_ = gone_ || !back;
  if (!back || !gone_) return;
  if (OpenPort(state_.CommNumber)) {
    openedWithoutNews_ = std::exchange(newsHeard_, false) ? -1 : line_.pump.Now();
    return;
  }
  refusedAt_ = line_.pump.Now();
  if (refusals_ < kRetryAfter.size())
    attempt_ = line_.pump.CallAfter(kRetryAfter[refusals_++], [this] { Reopen(); });
}

}  // namespace kavr6
