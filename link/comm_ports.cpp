#include "link/comm_ports.h"

#include <array>
#include <functional>
#include <optional>

namespace kavr6 {
namespace {

constexpr int kLastPort = 8;
constexpr const char* kLineSettings = "9600,N,8,1";

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

CommPorts::CommPorts(MainScreen& screen, MSComm& comm) : screen_(screen), comm_(comm) {
  screen_.CommList.Clicked.Set([this] { CommListClick(); });
}

void CommPorts::LoadCommList() {
  for (int port = 1; port <= kLastPort; ++port) screen_.CommList.AddItem("COM" + std::to_string(port));
}

void CommPorts::RefreshDeviceNames() {
  for (int row = 0; row < screen_.CommList.Count(); ++row) {
    const std::string device = comm_.DeviceName(row + 1);
    screen_.CommList.SetItemToolTip(row, device.empty() ? "no device" : device);
  }
}

void CommPorts::StartComm() {
  screen_.StartPort = 1;
  comm_.SetSettings(kLineSettings);
  comm_.SetCommPort(screen_.StartPort);
  // Whichever of these fails is tried again with the next port; those before it are not repeated.
  const std::array<std::function<void()>, 4> statements{
      [this] { comm_.SetPortOpen(true); },
      [this] { comm_.SetRThreshold(1); },
      [this] { comm_.SetParityReplace(""); },
      // After a search the row is news to the selection handler, which opens the same port once more.
      [this] { screen_.CommList.SetListIndex(screen_.StartPort - 1); },
  };
  for (const auto& statement : statements)
    while (const auto error = ErrorOf(statement))
      if (!MoveOn(*error)) return;
}

bool CommPorts::MoveOn(const std::string& error) {
  if (screen_.StartPort >= kLastPort) {
    screen_.Desk().Ask(
        {.text = "Could not find an open comm port.  You can still edit and save programs, but drive "
                 "communication is not possible at this time.",
         .title = "No open port"});
    screen_.StartPort = 0;
    screen_.CommList.SetListIndex(0);
    return false;
  }
  screen_.Desk().Ask({.text = "Error on Comm" + std::to_string(screen_.StartPort) + ":  " + error +
                              ".  Will try Comm" + std::to_string(screen_.StartPort + 1) + ".",
                      .icon = BoxIcon::Exclamation,
                      .title = "Communication Error"});
  ++screen_.StartPort;
  comm_.SetCommPort(screen_.StartPort);
  return true;
}

// Every statement is tried, also after one that failed.
bool CommPorts::OpenPort(int port) {
  const bool chosen = !ErrorOf([&] { comm_.SetCommPort(port); });
  comm_.SetSettings(kLineSettings);
  const bool opened = !ErrorOf([&] { comm_.SetPortOpen(true); });
  return chosen && opened;
}

void CommPorts::CommListClick() {
  const int selected = screen_.CommList.ListIndex() + 1;
  const int old = screen_.CommNumber;
  if (selected == old) return;
  screen_.CommNumber = selected;
  const bool closed = !ErrorOf([&] {
    if (comm_.PortOpen()) comm_.SetPortOpen(false);
  });
  const bool opened = OpenPort(selected);
  comm_.Output("0");
  if (closed && opened) return;
  screen_.Desk().Ask({.text = "COM port " + std::to_string(screen_.CommNumber) + " is not available.",
                      .icon = BoxIcon::Exclamation,
                      .title = "COM Error"});
  screen_.CommNumber = old;
  OpenPort(old);  // without a word when this fails too: the port stays closed
  screen_.CommList.SetListIndex(old - 1);
}

void WriteByte(MSComm& comm, std::uint8_t byte) { comm.Output(std::span(&byte, 1)); }

void Write2Bytes(MSComm& comm, std::uint8_t first, std::uint8_t second) {
  comm.Output(std::array{first, second});
}

bool AwaitBytes(Desktop& desktop, const MSComm& comm, int count, double limit,
                const std::function<void()>& onEvent) {
  const double deadline = desktop.Now() + limit;
  const bool enough = desktop.PumpEventsUntil(
      [&] {
        if (onEvent) onEvent();
        return comm.InBufferCount() >= count;
      },
      limit);
  // A box or a transaction that came in between can have held this wait up beyond its limit.
  return enough && desktop.Now() <= deadline;
}

}  // namespace kavr6
