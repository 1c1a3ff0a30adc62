// What is asked for on the command line.
#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kavr6 {

/// How the program ends, for scripts.
enum class ExitCode {
  Done = 0,
  Differs = 1,
  BadUse = 2,
  NoPort = 3,
  NoAnswer = 4,
  Refused = 5,  ///< by the drive
  BadFile = 6,
  OverLimit = 7,
};

struct CommandOptions {
  std::string command;
  std::vector<std::string> files;
  std::string port = "COM1";  ///< "COM1" to "COM8" in any case, or the path of a device
  std::string motors;         ///< file with the motor table; empty: the one beside the program
  std::string pdf;            ///< file for the report; empty: it is printed as text
  bool json = false;
  bool verify = true;
  bool acceptUnsetInertia = false;
  bool help = false;
  bool version = false;
};

/// A command line that cannot be obeyed; the text says why.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// `words` without the program's name. UsageError for an unknown command or option, an option that the
/// command has no use for, a value that is missing and a wrong number of files.
CommandOptions ParseCommandLine(std::span<const std::string> words);

/// Whether the option means something to that command.
bool CommandTakes(std::string_view command, std::string_view option);

/// What --help prints about that command; about all of them where it is none.
std::string CommandHelp(std::string_view about);

/// 1 to 8 for "COM1" to "COM8" in any case, otherwise 0: a device.
int PortNumber(std::string_view port);

}  // namespace kavr6
