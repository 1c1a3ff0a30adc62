#include "command_line/options.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <iterator>
#include <sstream>

#include "core/drive_state.h"

namespace kavr6 {
namespace {

struct Command {
  std::string_view name;
  std::string_view file;     ///< what its file is called, or its two are; empty: it takes none
  std::string_view options;  ///< those that mean something to it
  std::string_view what;
};
constexpr std::array kCommands{
    Command{"identify", "", "--port --json", "model and firmware of the drive"},
    Command{"read", "OUT.cnf", "--port --json --motors", "read the drive and save its settings"},
    Command{"write", "IN.cnf", "--port --json --motors --no-verify --accept-unset-inertia",
            "send the settings to the drive and read them back"},
    Command{"verify", "IN.cnf", "--port --json --motors", "tell whether the drive holds these settings"},
    Command{"compare", "A B", "--json --motors",
            "the settings in which A and B differ, each a file or a port"},
    Command{"report", "IN.cnf", "--json --motors --pdf", "the settings in words"},
    Command{"history", "", "--port --json", "the last eight alarms of the drive"},
    Command{"ports", "", "--json", "the serial ports of this computer"},
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
      {"--pdf", "OUT.pdf", "save it as a PDF file, as the windows print it",
       [](CommandOptions& o, const std::string& value) { o.pdf = value; }},
      {"--no-verify", "", "do not read the settings back",
       [](CommandOptions& o, const std::string&) { o.verify = false; }},
      {"--accept-unset-inertia", "", "send the load inertia of every start, 1 : 1",
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

constexpr std::array<std::string_view, 8> kExamples{
    "kavr6 identify --port COM3",
    "kavr6 read --port /dev/ttyUSB0 machine.cnf",
    "kavr6 verify --json machine.cnf",
    "kavr6 compare yesterday.cnf COM1",
    "kavr6 history --port COM3",
    "kavr6 ports",
    "kavr6 report machine.cnf --pdf machine.pdf",
    "kavr6 write --port COM1 machine.cnf && echo \"next drive, please\""};

std::string Padded(std::string text, std::size_t width) {
  text.resize(std::max(text.size() + 2, width), ' ');
  return text;
}

bool Takes(const Command& command, std::string_view option) {
  std::istringstream names{std::string(command.options)};
  return std::find(std::istream_iterator<std::string>(names), {}, option) !=
         std::istream_iterator<std::string>();
}

/// The commands that take an option.
std::vector<std::string_view> Takers(const Option& option) {
  std::vector<std::string_view> names;
  for (const Command& command : kCommands)
    if (Takes(command, option.name)) names.push_back(command.name);
  return names;
}

/// What an option is good for; before it the command's name, where that is one alone.
std::string Meaning(const Option& option) {
  const std::vector<std::string_view> names = Takers(option);
  return (names.size() == 1 ? std::string(names[0]) + ": " : "") + std::string(option.what);
}

/// Takes the option at `at` and its value, and returns its name; `at` then stands on the last word taken.
std::string_view TakeOption(CommandOptions& options, std::span<const std::string> words, std::size_t& at) {
  const std::string& word = words[at];
  const std::size_t equals = word.find('=');
  const std::string name = word.substr(0, equals);
  const auto found = std::ranges::find(Options(), name, &Option::name);
  if (found == Options().end()) throw UsageError("there is no option " + name);
  std::string value;
  if (found->value.empty() && equals != std::string::npos) throw UsageError(name + " takes no value");
  if (!found->value.empty()) {
    // An option in the place of the value is a value forgotten; one that is meant comes behind "=".
    const bool none = at + 1 == words.size() || words[at + 1].starts_with("--");
    if (equals == std::string::npos && none) throw UsageError(name + " needs a value");
    value = equals == std::string::npos ? words[++at] : word.substr(equals + 1);
    if (value.empty()) throw UsageError(name + " needs a value");
  }
  found->take(options, value);
  return found->name;
}

void CheckPort(const std::string& port) {
  if (port.size() < 4 || PortNumber(port.substr(0, 3) + "1") == 0 || PortNumber(port) != 0) return;
  if (port.find_first_not_of("0123456789", 3) == std::string::npos)
    throw UsageError("the ports are COM1 to COM8, and not " + port);
}

void CheckCommand(const CommandOptions& options, std::span<const std::string_view> given) {
  if (options.help || options.version) return;
  CheckPort(options.port);
  if (options.command.empty()) throw UsageError("a command is missing");
  const auto found = std::ranges::find(kCommands, options.command, &Command::name);
  if (found == kCommands.end()) throw UsageError("there is no command " + options.command);
  for (const std::string_view option : given)
    if (!Takes(*found, option))
      throw UsageError(options.command + " takes no " + std::string(option) + ": it takes " +
                       std::string(found->options));
  const bool two = found->file.find(' ') != std::string_view::npos;
  const std::size_t files = found->file.empty() ? 0 : two ? 2 : 1;
  if (options.files.size() < files)
    throw UsageError(options.command + (two ? " needs two files or ports, " : " needs a file, ") +
                     std::string(found->file));
  if (options.files.size() > files)
    throw UsageError("\"" + options.files.back() + "\" is a word too many for " + options.command);
  if (two) std::ranges::for_each(options.files, CheckPort);
}

}  // namespace

CommandOptions ParseCommandLine(std::span<const std::string> words) {
  CommandOptions options;
  std::vector<std::string_view> given;
  bool onlyFiles = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (!onlyFiles && words[i] == "--") {
      onlyFiles = true;
    } else if (!onlyFiles && words[i].starts_with("-") && words[i] != "-") {
      given.push_back(TakeOption(options, words, i));
    } else if (options.command.empty()) {
      options.command = words[i];
    } else {
      options.files.push_back(words[i]);
    }
  }
  CheckCommand(options, given);
  return options;
}

bool CommandTakes(std::string_view command, std::string_view option) {
  const auto found = std::ranges::find(kCommands, command, &Command::name);
  return found != kCommands.end() && Takes(*found, option);
}

std::string CommandHelp(std::string_view about) {
  constexpr std::size_t kColumn = 28;
  const auto known = std::ranges::find(kCommands, about, &Command::name);
  const bool all = known == kCommands.end();
  std::ostringstream text;
  const auto entry = [&text](std::string_view name, std::string_view value, std::string_view what) {
    text << "  " << Padded(std::string(name) + " " + std::string(value), kColumn) << what << "\n";
  };
  text << "kavr6: settings of a KAVR6 drive, without a window\n\n  kavr6 COMMAND [OPTION]... "
          "[FILE]\n\nCommands\n";
  for (const Command& command : kCommands)
    if (all || command.name == about) entry(command.name, command.file, command.what);
  text << "\nOptions\n";
  for (const Option& option : Options())
    if (all || Takes(*known, option.name) || Takers(option).empty())
      entry(option.name, option.value, Meaning(option));
  text << "\nExit codes\n";
  for (std::size_t code = 0; code < kExitWords.size(); ++code)
    text << "  " << code << "  " << kExitWords[code] << "\n";
  text << "\nExamples\n";
  for (const std::string_view example : kExamples)
    if (all || (std::string(example) + " ").starts_with("kavr6 " + std::string(about) + " "))
      text << "  " << example << "\n";
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
