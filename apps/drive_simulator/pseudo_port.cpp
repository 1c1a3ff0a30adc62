#include "apps/drive_simulator/pseudo_port.h"

#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

void Require(bool done, const char* what) {
  if (!done) throw std::system_error(errno, std::generic_category(), what);
}

void MakeRaw(int terminal) {
  termios mode{};
  Require(tcgetattr(terminal, &mode) == 0, "cannot read the terminal's mode");
  cfmakeraw(&mode);
  cfsetspeed(&mode, B9600);
  Require(tcsetattr(terminal, TCSANOW, &mode) == 0, "cannot set the terminal's mode");
}

void CloseIfOpen(int& descriptor) {
  if (descriptor >= 0) close(descriptor);
  descriptor = -1;
}

}  // namespace

void PseudoPort::Plug() {
  if (Plugged()) return;
  try {
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    Require(master_ >= 0 && grantpt(master_) == 0 && unlockpt(master_) == 0, "cannot make a terminal");
    std::array<char, 128> name{};
    Require(ptsname_r(master_, name.data(), name.size()) == 0, "cannot name the terminal");
    terminal_ = name.data();
    kept_ = open(terminal_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    Require(kept_ >= 0, "cannot open the terminal");
    MakeRaw(kept_);
    MakeLink();
  } catch (...) {
    Unplug();
    throw;
  }
}

void PseudoPort::Unplug() {
  if (!Plugged()) return;
  RemoveLink();
  CloseIfOpen(kept_);
  CloseIfOpen(master_);
}

void PseudoPort::MakeLink() const {
  if (link_.has_parent_path()) fs::create_directories(link_.parent_path());
  const fs::file_status there = fs::symlink_status(link_);
  if (fs::exists(there) && !fs::is_symlink(there))
    throw std::runtime_error(link_.string() + " is there already and is no link");
  fs::remove(link_);
  fs::create_symlink(terminal_, link_);
}

void PseudoPort::RemoveLink() const {
  // Another simulator may have put its own link there meanwhile.
  std::error_code ignored;
  if (fs::read_symlink(link_, ignored) == terminal_) fs::remove(link_, ignored);
}

std::vector<std::uint8_t> PseudoPort::Read() {
  std::vector<std::uint8_t> bytes(4096);
  const ssize_t count = read(master_, bytes.data(), bytes.size());
  bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return bytes;
}

void PseudoPort::Write(std::uint8_t byte) {
  if (!Plugged()) return;
  [[maybe_unused]] const ssize_t count = write(master_, &byte, 1);
}

}  // namespace kavr6
