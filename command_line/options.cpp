#include "command_line/options.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <sstream>

#include "core/drive_state.h"

namespace kavr6 {
namespace {

struct Command {
  std::string_view name;
  std::string_view file;  ///< what its file is called, or its two are; empty: it takes none
  std::string_view what;
};
constexpr std::array kCommands{
    Command{"identify", "", "model and firmware of the drive"},
    Command{"read", "OUT.cnf", "read the drive and save its settings"},
    Command{"write", "IN.cnf", "send the settings to the drive and read them back"},
    Command{"verify", "IN.cnf", "tell whether the drive holds these settings"},
    Command{"compare", "A B", "the settings in which A and B differ, each a file or a port"},
    Command{"report", "IN.cnf", "the settings in words"},
    Command{"history", "", "the last eight alarms of the drive"},
    Command{"ports", "", "the serial ports of this computer"},
};

struct Option {
  std::string_view name;
  std::string_view value;  ///< what its value is called; empty: it takes none
  std::string_view what;
  std::function<void(CommandOptions&, const std::string&)> take;
};

const std::vector<Option>& Options() {
  static const std::vector<Option> options{
      {"--port", "PORT", "COM1 to COM8, or a device such as /dev/ttyUSB0; COM1 without it",
       [](CommandOptions& o, const std::string& value) { o.port = value; }},
      {"--json", "", "print the result as one JSON object",
       [](CommandOptions& o, const std::string&) { o.json = true; }},
      {"--motors", "FILE", "motor table to use; never written to",
       [](CommandOptions& o, const std::string& value) { o.motors = value; }},
      {"--no-verify", "", "write: do not read the settings back",
       [](CommandOptions& o, const std::string&) { o.verify = false; }},
      {"--accept-unset-inertia", "", "write: send the load inertia of every start, 1 : 1",
       [](CommandOptions& o, const std::string&) { o.acceptUnsetInertia = true; }},
      {"--help", "", "print this", [](CommandOptions& o, const std::string&) { o.help = true; }},
      {"--version", "", "print the version", [](CommandOptions& o, const std::string&) { o.version = true; }},
  };
  return options;
}

constexpr std::array<std::string_view, 8> kExitWords{
    "done",
    "the settings differ",
    "the command line is wrong, or a question needs an option",
    "the port cannot be opened",
    "no drive answers",
    "the drive has refused the settings",
    "a file cannot be read or written",
    "a setting is beyond a limit of the drive"};

constexpr const char* kExamples =
    "  kavr6 identify --port COM3\n"
    "  kavr6 read --port /dev/ttyUSB0 machine.cnf\n"
    "  kavr6 compare yesterday.cnf COM1\n"
    "  kavr6 write --port COM1 machine.cnf && echo \"next drive, please\"\n";

std::string Padded(std::string text, std::size_t width) {
  text.resize(std::max(text.size() + 2, width), ' ');
  return text;
}

/// Takes the option at `at` and its value; `at` then stands on the last word taken.
void TakeOption(CommandOptions& options, std::span<const std::string> words, std::size_t& at) {
  const std::string& word = words[at];
  const std::size_t equals = word.find('=');
  const std::string name = word.substr(0, equals);
  const auto found = std::ranges::find(Options(), name, &Option::name);
  if (found == Options().end()) throw UsageError("there is no option " + name);
  std::string value;
  if (found->value.empty() && equals != std::string::npos) throw UsageError(name + " takes no value");
  if (!found->value.empty()) {
    if (equals == std::string::npos && at + 1 == words.size()) throw UsageError(name + " needs a value");
    value = equals == std::string::npos ? words[++at] : word.substr(equals + 1);
    if (value.empty()) throw UsageError(name + " needs a value");
  }
  found->take(options, value);
}

void CheckPort(const std::string& port) {
  if (port.size() < 4 || PortNumber(port.substr(0, 3) + "1") == 0 || PortNumber(port) != 0) return;
  if (port.find_first_not_of("0123456789", 3) == std::string::npos)
    throw UsageError("the ports are COM1 to COM8, and not " + port);
}

void CheckCommand(const CommandOptions& options) {
  if (options.help || options.version) return;
  CheckPort(options.port);
  if (options.command.empty()) throw UsageError("a command is missing");
  const auto found = std::ranges::find(kCommands, options.command, &Command::name);
  if (found == kCommands.end()) throw UsageError("there is no command " + options.command);
  const bool two = found->file.find(' ') != std::string_view::npos;
  const std::size_t files = found->file.empty() ? 0 : two ? 2 : 1;
  if (options.files.size() < files)
    throw UsageError(options.command + (two ? " needs two files or ports, " : " needs a file, ") +
                     std::string(found->file));
  if (options.files.size() > files)
    throw UsageError("what is \"" + options.files.back() + "\" to " + options.command + "?");
  if (two) std::ranges::for_each(options.files, CheckPort);
}

}  // namespace

CommandOptions ParseCommandLine(std::span<const std::string> words) {
  CommandOptions options;
  bool onlyFiles = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (!onlyFiles && words[i] == "--") {
      onlyFiles = true;
    } else if (!onlyFiles && words[i].starts_with("-") && words[i] != "-") {
      TakeOption(options, words, i);
    } else if (options.command.empty()) {
      options.command = words[i];
    } else {
      options.files.push_back(words[i]);
    }
  }
  CheckCommand(options);
  return options;
}

std::string CommandHelp() {
  constexpr std::size_t kColumn = 28;
  std::ostringstream text;
  text << "kavr6: settings of a KAVR6 drive, without a window\n\n  kavr6 COMMAND [OPTION]... "
          "[FILE]\n\nCommands\n";
  for (const Command& command : kCommands)
    text << "  " << Padded(std::string(command.name) + " " + std::string(command.file), kColumn)
         << command.what << "\n";
  text << "\nOptions\n";
  for (const Option& option : Options())
    text << "  " << Padded(std::string(option.name) + " " + std::string(option.value), kColumn) << option.what
         << "\n";
  text << "\nExit codes\n";
  for (std::size_t code = 0; code < kExitWords.size(); ++code)
    text << "  " << code << "  " << kExitWords[code] << "\n";
  text << "\nExamples\n" << kExamples;
  return text.str();
}

int PortNumber(std::string_view port) {
  const std::string prefix = "COM";
  if (port.size() != prefix.size() + 1) return 0;
  const bool named = std::equal(prefix.begin(), prefix.end(), port.begin(), [](char wanted, char c) {
    return wanted == std::toupper(static_cast<unsigned char>(c));
  });
  const int number = port.back() - '0';
  return named && number >= 1 && number <= kPortCount ? number : 0;
}

}  // namespace kavr6
