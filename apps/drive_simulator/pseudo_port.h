// A pseudo-terminal that a program can open like a serial port.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace kavr6 {

/// While plugged, a link in the file system leads to the terminal that the other program opens. This end
/// keeps that terminal open too, so that nothing happens here when the other program closes it; what is sent
/// while nobody has it open waits in the terminal. A refusal by the system is a std::system_error.
class PseudoPort {
 public:
  /// The folder of `link` is made if need be.
  explicit PseudoPort(std::filesystem::path link) : link_(std::move(link)) {}
  PseudoPort(const PseudoPort&) = delete;
  PseudoPort& operator=(const PseudoPort&) = delete;
  ~PseudoPort() { Unplug(); }

  /// Makes a new terminal and the link to it, in place of any link of that name. A file of that name that is
  /// no link is left alone and is a std::runtime_error.
  void Plug();
  /// Hangs up: who has the terminal open sees the line go away. The link is removed.
  void Unplug();
  bool Plugged() const { return master_ >= 0; }

  const std::filesystem::path& Link() const { return link_; }
  const std::string& Terminal() const { return terminal_; }
  /// For polling; -1 while unplugged.
  int Descriptor() const { return master_; }
  /// What waits to be read; does not block.
  std::vector<std::uint8_t> Read();
  /// Does not block; what the terminal has no room for is lost, as on a line that nobody reads.
  void Write(std::uint8_t byte);

 private:
  void MakeLink() const;
  void RemoveLink() const;

  std::filesystem::path link_;
  std::string terminal_;
  int master_ = -1;
  int kept_ = -1;
};

}  // namespace kavr6
